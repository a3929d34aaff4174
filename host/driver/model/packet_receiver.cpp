#include "host/driver/model/packet_receiver.h"

#include <algorithm>
#include <utility>

namespace quillon::driver {

PacketReceiver::PacketReceiver(std::span<std::byte> area, uint32_t first_loan)
    : area_(area),
      buffers_(std::min(most_buffers, area.size() / buffer_size / cookies) * cookies, Buffer{.loan = first_loan})
{
    for (size_t index = 0; index < buffers_.size(); ++index) {
        free_.at(cookie_of(index)).push_back(index);
    }
}

PoolLevels PacketReceiver::levels() const
{
    const auto of_each = static_cast<uint32_t>(buffers_.size() / cookies);
    return {.stop = of_each * 3 / 4, .resume = of_each / 2};
}

bool PacketReceiver::arrive(const ReceivedPacket &packet, uint32_t copies)
{
    ReceiveCounts &counts = counts_.at(packet.cookie);
    auto &queue = queues_.at(packet.cookie);
    if (queue.size() >= longest_queue) {
        counts.dropped += copies;
        return false;
    }
    counts.packets += copies;
    counts.bytes += uint64_t{copies} * packet.bytes.size();
    queue.push_back({std::make_shared<const ReceivedPacket>(packet), copies});
    return true;
}

void PacketReceiver::fill(LoanCounts &loans)
{
    stopped_pools_ = 0;
    for (uint32_t cookie = 0; cookie < cookies; ++cookie) {
        loans.resume(cookie, on_loan(cookie));
        const bool lent = fill(cookie, loans);
        if (loans.stopped(cookie)) {
            stopped_pools_ |= 1U << cookie;
            stops_ += lent ? 1 : 0;
        }
    }
}

bool PacketReceiver::fill(uint32_t cookie, LoanCounts &loans)
{
    auto &queue = queues_.at(cookie);
    auto &free = free_.at(cookie);
    bool lent = false;
    while (!queue.empty() && !free.empty() && !loans.stopped(cookie)) {
        const size_t index = free.back();
        free.pop_back();
        offered_.push_back(put_into_buffer(*queue.front().packet, index));
        loans.lend(cookie, on_loan(cookie));
        lent = true;
        if (--queue.front().copies == 0) {
            queue.pop_front();
        }
    }
    return lent;
}

uint32_t PacketReceiver::on_loan(uint32_t cookie) const
{
    return static_cast<uint32_t>(buffers_.size() / cookies - free_.at(cookie).size());
}

OfferedPacket PacketReceiver::put_into_buffer(const ReceivedPacket &packet, size_t index)
{
    Buffer &buffer = buffers_.at(index);
    buffer.lent = true;
    buffer.loan = std::max(buffer.loan + 1, 1U);
    const size_t offset = index * buffer_size;
    std::ranges::copy(packet.bytes, area_.subspan(offset, buffer_size).begin());
    return {.buffer = uint64_t{buffer.loan} << 32 | offset,
            .offset = static_cast<uint32_t>(offset),
            .length = static_cast<uint32_t>(packet.bytes.size()),
            .cookie = packet.cookie,
            .cpu_code = packet.cpu_code,
            .port = packet.port};
}

std::vector<OfferedPacket> PacketReceiver::take(size_t most)
{
    const auto end = offered_.begin() + static_cast<ptrdiff_t>(std::min(most, offered_.size()));
    std::vector<OfferedPacket> packets(offered_.begin(), end);
    offered_.erase(offered_.begin(), end);
    taken_ += packets.size();
    return packets;
}

void PacketReceiver::offer_again(std::span<const OfferedPacket> packets)
{
    offered_.insert(offered_.begin(), packets.begin(), packets.end());
    taken_ -= std::min<uint64_t>(taken_, packets.size());  // the counts may have been cleared meanwhile
}

bool PacketReceiver::give_back(uint64_t buffer)
{
    const size_t offset = buffer & UINT32_MAX;
    const size_t index = offset / buffer_size;
    if (offset % buffer_size != 0 || index >= buffers_.size() || !buffers_[index].lent ||
        buffers_[index].loan != buffer >> 32) {
        ++refused_frees_;
        return false;
    }
    buffers_[index].lent = false;
    free_.at(cookie_of(index)).push_back(index);
    return true;
}

bool PacketReceiver::starves() const
{
    for (uint32_t cookie = 0; cookie < cookies; ++cookie) {
        if (!queues_.at(cookie).empty() && !free_.at(cookie).empty() && (stopped_pools_ >> cookie & 1) == 0) {
            return true;
        }
    }
    return false;
}

void PacketReceiver::clear_counts()
{
    counts_ = {};
    taken_ = 0;
    refused_frees_ = 0;
}

uint64_t PacketReceiver::filled_buffers() const
{
    return static_cast<uint64_t>(std::ranges::count(buffers_, true, &Buffer::lent));
}

uint32_t PacketReceiver::waiting() const
{
    uint64_t packets = offered_.size();
    for (const auto &queue : queues_) {
        for (const Arrived &arrived : queue) {
            packets += arrived.copies;
        }
    }
    return static_cast<uint32_t>(std::min<uint64_t>(packets, UINT32_MAX));
}

}  // namespace quillon::driver
