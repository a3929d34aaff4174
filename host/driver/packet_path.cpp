#include "host/driver/packet_path.h"

#include <utility>
#include <vector>

#include "host/driver/reception.h"

namespace quillon::driver {
namespace {

bool is_for_cpu(const Treatment &treatment)
{
    return treatment.copy_to_cpu || (!treatment.drop && !treatment.redirect);
}

// The port, if it is one, counts the packet as sent when its link is up.
void count_sent(SharedSwitch &chips, const SentPacket &packet)
{
    const auto access = chips.lock();
    const auto port = access->running_port(packet.port);
    if (port && port->status().link_up()) {
        access->chips.traffic.find(packet.port)->send(frame_of(packet.bytes));
    }
}

}  // namespace

Arrival PacketPath::receive(const ReceivedPacket &packet, uint32_t copies)
{
    Arrival arrival;
    uint32_t for_cpu = 0;
    for (uint32_t i = 0; i < copies; ++i) {
        arrival.treatment = treat(packet);
        for_cpu += arrival.treatment && is_for_cpu(*arrival.treatment) ? 1 : 0;
    }
    if (for_cpu != 0) {
        arrival.queue_full = !reception.lock()->packets.arrive(packet, for_cpu);
        wake_receive_task();
    }
    return arrival;
}

std::optional<Treatment> PacketPath::treat(const ReceivedPacket &packet)
{
    if (packet.port.port == SentPacket::cpu_port) {
        return Treatment{};
    }
    return receive_packet(chips_, packet.port, packet.bytes);
}

void PacketPath::send(const SentPacket &packet)
{
    bool loop_back;
    {
        const auto access = transmission.lock();
        ++access->packets;
        access->bytes += packet.bytes.size();
        loop_back = access->loop_back;
    }
    count_sent(chips_, packet);
    if (loop_back) {
        receive({.port = packet.port, .cookie = packet.class_of_service, .cpu_code = 0, .bytes = packet.bytes});
    }
}

bool PacketPath::answer_receivers()
{
    for (;;) {
        std::optional<WaitingReceiver> receiver;
        std::vector<OfferedPacket> packets;
        {
            const auto access = reception.lock();
            if (access->receivers.empty()) {
                return false;
            }
            packets = access->packets.take(access->receivers.front().most);
            if (packets.empty()) {
                return true;
            }
            receiver = std::move(access->receivers.front());
            access->receivers.pop_front();
        }
        if (!receiver->call.answer(uint8_t{1}, encoded(packets))) {
            reception.lock()->packets.offer_again(packets);
        }
    }
}

std::optional<Time> PacketPath::expire_receivers(Time now)
{
    std::vector<WaitingReceiver> expired;
    std::optional<Time> next;
    {
        const auto access = reception.lock();
        std::deque<WaitingReceiver> left;
        for (WaitingReceiver &receiver : access->receivers) {
            if (receiver.deadline && *receiver.deadline <= now) {
                expired.push_back(std::move(receiver));
                continue;
            }
            if (receiver.deadline && (!next || *receiver.deadline < *next)) {
                next = receiver.deadline;
            }
            left.push_back(std::move(receiver));
        }
        access->receivers = std::move(left);
    }
    for (WaitingReceiver &receiver : expired) {
        receiver.call.answer(uint8_t{1}, encoded({}));
    }
    return next;
}

}  // namespace quillon::driver
