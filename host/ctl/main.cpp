// quillon-ctl: tells the driver process of the run-time folder what happens to its switch.
#include <fmt/format.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/socket.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "host/control_protocol.h"
#include "host/platform/descriptor.h"
#include "host/platform/error_text.h"
#include "host/platform/peer.h"
#include "host/platform/runtime_path.h"

namespace quillon::control {
namespace {

constexpr int bad_usage = 2;

std::string folder()
{
    host::RuntimePath path;
    if (host::locate_runtime_folder(path) != host::PathFault::none) {
        throw std::runtime_error(fmt::format("the run-time folder's path '{}' is relative or too long", path.text));
    }
    return path.text;
}

std::string packet_of(const std::vector<std::string> &words)
{
    std::string packet;
    for (const std::string &word : words) {
        packet += word;
        packet += '\0';
    }
    if (packet.size() > longest_packet) {
        throw std::runtime_error("the command is too long");
    }
    return packet;
}

Answer ask(const std::vector<std::string> &words)
{
    const std::string path = folder();
    const std::string packet = packet_of(words);
    const sockaddr_un address = host::control_address(path.c_str());
    const host::Descriptor socket(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0));
    if (!socket || connect(socket.number(), reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0) {
        throw std::runtime_error(fmt::format("no driver process in '{}': {}", path, host::error_text()));
    }
    if (!host::is_of_same_user(socket.number())) {
        throw std::runtime_error(fmt::format("the driver process in '{}' is another user's", path));
    }
    std::string reply(longest_packet, '\0');
    const bool sent = send(socket.number(), packet.data(), packet.size(), MSG_NOSIGNAL) >= 0;
    const ssize_t size = sent ? recv(socket.number(), reply.data(), reply.size(), 0) : -1;
    if (size <= 0) {
        throw std::runtime_error("the driver process gave no answer");
    }
    return {static_cast<Outcome>(reply[0]), reply.substr(1, static_cast<size_t>(size) - 1)};
}

int run(const std::vector<std::string> &words)
{
    const Answer answer = ask(words);
    if (answer.outcome == Outcome::done) {
        fmt::print("{}", answer.text);
        if (fflush(stdout) != 0) {
            throw std::runtime_error("cannot write the answer: " + host::error_text());
        }
        return EXIT_SUCCESS;
    }
    fmt::print(stderr, "quillon-ctl: {}\n", answer.text);
    return answer.outcome == Outcome::bad_usage ? bad_usage : EXIT_FAILURE;
}

// The command's own words are no options of CLI11's.
class HelpFormatter : public CLI::Formatter {
    std::string make_usage(const CLI::App * /*app*/, std::string name) const override
    {
        return "Usage: " + name + " COMMAND [ARGUMENT]...\n";
    }
};

}  // namespace
}  // namespace quillon::control

// NOLINTNEXTLINE(bugprone-exception-escape): without the memory for its options it ends as it can
int main(int argc, char **argv)
{
    using namespace quillon::control;
    std::vector<std::string> words;
    CLI::App app("Tells a software driver process what happens to its switch.", "quillon-ctl");
    app.formatter(std::make_shared<HelpFormatter>());
    app.footer(
        "`quillon-ctl help` asks the driver process for its commands. It is the one of the run-time folder, which is\n"
        "$QUILLON_RUNTIME_DIR, else $XDG_RUNTIME_DIR/quillon, else /tmp/quillon-<uid>.\n"
        "Exit status: 0 done, 1 refused or no driver process, 2 no such command or bad options.");
    app.set_version_flag("--version", "quillon-ctl " QUILLON_VERSION);
    app.prefix_command();
    try {
        app.parse(argc, argv);
        words = app.remaining();
        if (words.empty()) {
            throw CLI::RequiredError("COMMAND");
        }
        if (words[0].starts_with('-')) {
            throw CLI::ExtrasError({words[0]});
        }
    } catch (const CLI::Success &help_or_version) {
        return app.exit(help_or_version);
    } catch (const CLI::ParseError &error) {
        fmt::print(stderr, "quillon-ctl: {} (see --help)\n", error.what());
        return bad_usage;
    }
    try {
        return run(words);
    } catch (const std::exception &error) {
        fmt::print(stderr, "quillon-ctl: {}\n", error.what());
        return EXIT_FAILURE;
    }
}
