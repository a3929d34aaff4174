#include "host/driver/control_server.h"

#include <errno.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <system_error>
#include <vector>

#include "host/control_protocol.h"
#include "host/platform/descriptor_limit.h"
#include "host/platform/listening_socket.h"
#include "host/platform/peer.h"
#include "host/platform/runtime_path.h"

namespace quillon::driver {
namespace {

// For one more, that one gives way that has said nothing for the longest time.
constexpr size_t most_silent_clients = 16;
constexpr int accept_again_after_milliseconds = 100;

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
    std::vector<host::Descriptor> clients;  // the oldest first
    bool starving = false;                  // descriptors are short: clients wait in the backlog
    for (;;) {
        std::vector<pollfd> watched;
        watched.reserve(clients.size() + 2);
        for (const host::Descriptor &client : clients) {
            watched.push_back({.fd = client.number(), .events = POLLIN, .revents = 0});
        }
        watched.push_back({.fd = stop_.number(), .events = POLLIN, .revents = 0});
        watched.push_back({.fd = starving ? -1 : listener_.number(), .events = POLLIN, .revents = 0});
        if (poll(watched.data(), watched.size(), starving ? accept_again_after_milliseconds : -1) < 0) {
            // Not even looked at is a list that is longer than the limit on descriptors, which was lowered then.
            if (errno == EINVAL && !host::raise_descriptor_limit() && !clients.empty()) {
                clients.erase(clients.begin());
            }
            continue;
        }
        const bool stopped = watched.end()[-2].revents != 0;
        const bool connected = watched.back().revents != 0;
        if (stopped) {
            return;
        }
        for (size_t i = clients.size(); i > 0; --i) {
            if (watched[i - 1].revents != 0) {
                answer(clients[i - 1]);
                clients.erase(clients.begin() + static_cast<ptrdiff_t>(i - 1));
            }
        }
        starving = connected && !accept_client(clients);
    }
}

// False when there is no descriptor for it.
bool ControlServer::accept_client(std::vector<host::Descriptor> &clients) const
{
    host::Descriptor client(accept4(listener_.number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    if (!client) {
        return errno == EMFILE && host::raise_descriptor_limit();
    }
    if (!host::is_of_same_user(client.number())) {
        return true;
    }
    if (clients.size() == most_silent_clients) {
        answer(clients.front());  // it may have spoken by now
        clients.erase(clients.begin());
    }
    clients.push_back(std::move(client));
    return true;
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
