#include "host/driver/control_server.h"

#include <errno.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <system_error>
#include <vector>

#include "host/control_protocol.h"
#include "host/platform/listening_socket.h"
#include "host/platform/peer.h"
#include "host/platform/runtime_path.h"

namespace quillon::driver {
namespace {

// More can connect; they are accepted when others are done.
constexpr size_t most_clients = 16;

host::Descriptor control_socket(const std::string &folder)
{
    auto socket = host::listening_socket(host::control_address(folder.c_str(), host::SocketName::unready),
                                         host::control_address(folder.c_str()));
    if (!socket) {
        throw std::system_error(errno, std::generic_category(), "cannot create control.sock");
    }
    return socket;
}

std::vector<std::string> words_of(std::string_view packet)
{
    std::vector<std::string> words;
    while (!packet.empty()) {
        const size_t end = std::min(packet.find('\0'), packet.size());
        words.emplace_back(packet.substr(0, end));
        packet.remove_prefix(std::min(end + 1, packet.size()));
    }
    return words;
}

}  // namespace

ControlServer::ControlServer(const host::RuntimeFolder &folder, const ControlCommands &commands)
    : path_(host::control_address(folder.path().c_str()).sun_path),
      commands_(commands),
      stop_(eventfd(0, EFD_CLOEXEC)),
      listener_(control_socket(folder.path()))
{
    if (!stop_) {
        throw std::system_error(errno, std::generic_category(), "cannot serve control.sock");
    }
    thread_ = std::thread([this] { run(); });
}

ControlServer::~ControlServer()
{
    eventfd_write(stop_.number(), 1);
    thread_.join();
    unlink(path_.c_str());
}

void ControlServer::run()
{
    std::vector<host::Descriptor> clients;
    for (;;) {
        std::vector<pollfd> watched = {{.fd = stop_.number(), .events = POLLIN, .revents = 0}};
        for (const host::Descriptor &client : clients) {
            watched.push_back({.fd = client.number(), .events = POLLIN, .revents = 0});
        }
        if (clients.size() < most_clients) {
            watched.push_back({.fd = listener_.number(), .events = POLLIN, .revents = 0});
        }
        if (poll(watched.data(), watched.size(), -1) < 0) {
            continue;
        }
        if (watched[0].revents != 0) {
            return;
        }
        for (size_t i = clients.size(); i > 0; --i) {
            if (watched[i].revents != 0) {
                answer(clients[i - 1]);
                clients.erase(clients.begin() + static_cast<ptrdiff_t>(i - 1));
            }
        }
        if (watched.back().fd == listener_.number() && watched.back().revents != 0) {
            host::Descriptor client(accept4(listener_.number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
            if (client && host::is_of_same_user(client.number())) {
                clients.push_back(std::move(client));
            }
        }
    }
}

void ControlServer::answer(const host::Descriptor &client) const
{
    std::string packet(control::longest_packet, '\0');
    const ssize_t size = recv(client.number(), packet.data(), packet.size(), MSG_DONTWAIT | MSG_TRUNC);
    if (size <= 0) {
        return;
    }
    const bool whole = static_cast<size_t>(size) <= packet.size();
    const auto words = words_of(std::string_view(packet).substr(0, whole ? static_cast<size_t>(size) : 0));
    control::Answer answer =
        whole ? commands_.run(words) : control::Answer{control::Outcome::refused, "the command is too long"};
    if (answer.text.size() >= control::longest_packet) {
        answer = {control::Outcome::refused, words[0] + ": was done, but its answer is too long"};
    }
    const std::string reply = static_cast<char>(answer.outcome) + answer.text;
    // Whoever asked may be gone.
    send(client.number(), reply.data(), reply.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
}

}  // namespace quillon::driver
