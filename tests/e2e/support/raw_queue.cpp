#include "e2e/support/raw_queue.h"

#include <errno.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <string.h>
#include <sys/socket.h>

#include <system_error>

#include "host/platform/packet.h"
#include "host/platform/runtime_path.h"

namespace quillon::test {

using host::PacketHeader;

RawQueue::RawQueue(const std::string &folder, uint32_t key) : socket_(socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0))
{
    const sockaddr_un address = host::queue_address(folder.c_str(), key);
    if (connect(socket_.number(), reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0) {
        throw std::system_error(errno, std::generic_category(), address.sun_path);
    }
}

void RawQueue::send_packet(const std::vector<uint8_t> &packet)
{
    ASSERT_EQ(::send(socket_.number(), packet.data(), packet.size(), MSG_NOSIGNAL), static_cast<ssize_t>(packet.size()))
        << strerror(errno);
}

void RawQueue::send(const std::vector<uint8_t> &envelope, uint32_t room)
{
    const PacketHeader header{.sequence = ++sequence_, .room = room};
    std::vector<uint8_t> packet(sizeof header);
    memcpy(packet.data(), &header, sizeof header);
    packet.insert(packet.end(), envelope.begin(), envelope.end());
    send_packet(packet);
}

std::optional<std::vector<uint8_t>> RawQueue::receive()
{
    pollfd source = {.fd = socket_.number(), .events = POLLIN, .revents = 0};
    if (poll(&source, 1, 60'000) != 1) {
        ADD_FAILURE() << "the driver process hangs";
        return std::nullopt;
    }
    std::vector<uint8_t> packet(sizeof(PacketHeader) + host::kLargestEnvelope);
    const ssize_t size = recv(socket_.number(), packet.data(), packet.size(), 0);
    PacketHeader header;
    if (size < static_cast<ssize_t>(sizeof header)) {
        return std::nullopt;
    }
    memcpy(&header, packet.data(), sizeof header);
    EXPECT_TRUE(header.is_ours());
    EXPECT_EQ(header.sequence, sequence_);
    if (header.kind != PacketHeader::kReply) {
        return std::nullopt;
    }
    return std::vector(packet.begin() + sizeof header, packet.begin() + size);
}

std::optional<std::vector<uint8_t>> RawQueue::exchange(const std::vector<uint8_t> &envelope, uint32_t room)
{
    send(envelope, room);
    return receive();
}

}  // namespace quillon::test
