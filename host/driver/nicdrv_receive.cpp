// Received packets, their way back, and statistics.
#include <string.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <optional>

#include "host/driver/handlers.h"
#include "host/driver/nicdrv_encoding.h"
#include "nicdrv/commands.h"

namespace quillon::driver {
namespace {

// Called on the queue's thread. What it takes out is dropped when nobody's lock is held any more.
void forget_receiver(PacketPath &path, uint64_t id)
{
    std::deque<WaitingReceiver> gone;
    const auto access = path.reception.lock();
    const auto found = std::ranges::find(access->receivers, id, &WaitingReceiver::id);
    if (found != access->receivers.end()) {
        gone.push_back(std::move(*found));
        access->receivers.erase(found);
    }
}

std::optional<Time> deadline_of(const ReceiveRequest &request)
{
    if (request.wait_time == QUILLON_WAIT_FOREVER) {
        return std::nullopt;
    }
    return std::chrono::steady_clock::now() + std::chrono::milliseconds(request.wait_time);
}

void add_receiving(Dispatcher &dispatcher, PacketPath &path)
{
    // Packets that are there already are offered as those are that come later: not to a caller that has died meanwhile.
    dispatcher.on_parkable<ReceivePackets>([&path](const ReceiveRequest &request, ReceivedPackets & /*reply*/,
                                                   Call<ReceivePackets> &call) -> std::optional<uint8_t> {
        if (request.most == 0) {
            return uint8_t{0};
        }
        const size_t most = std::min<size_t>(request.most, QUILLON_RECEIVE_MOST);
        const auto deadline = deadline_of(request);
        {
            const auto access = path.reception.lock();
            const uint64_t id = access->next_id++;
            access->receivers.push_back({id, most, deadline, call.park([&path, id] { forget_receiver(path, id); })});
        }
        if (path.answer_receivers()) {
            path.wake_receive_task();
            if (deadline) {
                path.receiver_waits(*deadline);
            }
        }
        return std::nullopt;
    });

    // The one who gives the buffer back holds the semaphore of the counts meanwhile: nothing here may wait for it.
    dispatcher.on<nicdrv::FreeRxPacket>([&path](const nicdrv::RxBuffer &request) {
        bool given_back;
        bool wanted;
        {
            const auto access = path.reception.lock();
            given_back = access->packets.give_back(request.buffer);
            wanted = access->packets.starves();
        }
        if (wanted) {
            path.wake_receive_task();
        }
        return given_back;
    });
}

NicRxSummary summary_of(const PacketReceiver &packets)
{
    ReceiveCounts all;
    for (uint32_t cookie = 0; cookie < cookies; ++cookie) {
        const ReceiveCounts &counts = packets.counts(cookie);
        all.packets += counts.packets;
        all.bytes += counts.bytes;
        all.dropped += counts.dropped;
    }
    return {.values = {all.packets, all.bytes, all.dropped, packets.taken()}, .last_value = packets.waiting()};
}

void add_statistics(Dispatcher &dispatcher, PacketPath &path)
{
    dispatcher.on<nicdrv::RxSummary>(
        [&path](const ipc::Unused<sizeof(NicRxSummary)> & /*request*/, nicdrv::Record<NicRxSummary> &reply) {
            reply.value = summary_of(path.reception.lock()->packets);
            return true;
        });
    dispatcher.on<nicdrv::MemStatus>(
        [&path](const ipc::Unused<sizeof(NicMemStatus)> & /*request*/, nicdrv::Record<NicMemStatus> &reply) {
            const auto access = path.reception.lock();
            const PacketReceiver &packets = access->packets;
            reply.value = {.values = {packets.buffers(), packets.filled_buffers(), packets.refused_frees()},
                           .last_value = packets.stopped_pools()};
            return true;
        });
    dispatcher.on<nicdrv::PriInfo>(
        [&path](const ipc::Unused<sizeof(NicPriInfo)> & /*request*/, nicdrv::Record<NicPriInfo> &reply) {
            std::array<CookieStatistics, cookies> statistics;
            const auto access = path.reception.lock();
            for (uint32_t cookie = 0; cookie < cookies; ++cookie) {
                const ReceiveCounts &counts = access->packets.counts(cookie);
                statistics.at(cookie) = {counts.packets, counts.bytes, counts.dropped};
            }
            memcpy(reply.value.bytes, statistics.data(), sizeof statistics);
            return true;
        });
    dispatcher.on<nicdrv::Clear>([&path] {
        path.reception.lock()->packets.clear_counts();
        path.transmission.lock()->clear_counts();
        return true;
    });
}

}  // namespace

void add_nicdrv_receive(Dispatcher &dispatcher, PacketPath &path)
{
    add_receiving(dispatcher, path);
    add_statistics(dispatcher, path);
}

}  // namespace quillon::driver
