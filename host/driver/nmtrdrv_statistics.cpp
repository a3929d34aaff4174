// Statistics of a range of ports.
#include <stdint.h>

#include <array>
#include <bit>

#include "host/driver/handlers.h"
#include "host/driver/on_switch.h"
#include "nmtrdrv/commands.h"

namespace quillon::driver {
namespace {

struct CountedPort {
    const PortTraffic &traffic;
    PortStatus status;
    FlowControl configured_flow_control;
};

// An empty range may stand anywhere.
bool has_ports(const Stack &stack, const nmtrdrv::StatsRangeReq &range)
{
    const uint32_t unit = range.selector;
    if (range.ports() == 0) {
        return stack.has_unit(unit);
    }
    return range.ports() <= QUILLON_STATS_PORTS && stack.has({.unit = unit, .port = range.first_port}) &&
           stack.has({.unit = unit, .port = range.last_port});
}

// Answers C with what `record_of` makes of each port.
template <class C, class RecordOf>
void on_range(Dispatcher &dispatcher, SharedSwitch &model, RecordOf record_of)
{
    on_switch<C>(dispatcher, model,
                 [record_of](const Switch &chips, const nmtrdrv::StatsRangeReq &range, typename C::Reply &reply) {
                     if (!has_ports(chips.stack, range)) {
                         return false;
                     }
                     for (uint32_t i = 0; i < range.ports(); ++i) {
                         const LogicalPort port{.unit = range.selector, .port = range.first_port + i};
                         const auto record = record_of(
                             CountedPort{.traffic = *chips.chips.traffic.find(port),
                                         .status = chips.running_port(port)->status(),
                                         .configured_flow_control = chips.chips.ports.find(port)->flow_control()});
                         reply.records[i] = std::bit_cast<typename C::Reply::Record>(record);
                     }
                     return true;
                 });
}

// ---- Records: the columns of the MIBs' tables in their order. What is not counted stays 0 ----

std::array<uint64_t, 12> if_table(const CountedPort &port)
{
    const PortCounters &counters = port.traffic.counters;
    const FrameCounts &received = counters.received;
    const FrameCounts &sent = counters.sent;
    return {received.octets,
            received.unicast,
            received.multicast + received.broadcast,
            counters.discards,
            counters.crc_align_errors() + counters.too_long(),
            0,
            sent.octets,
            sent.unicast,
            sent.multicast + sent.broadcast};
}

std::array<uint64_t, 13> if_x_table(const PortCounters &counters, const PortStatus &status)
{
    const FrameCounts &received = counters.received;
    const FrameCounts &sent = counters.sent;
    return {received.multicast,
            received.broadcast,
            sent.multicast,
            sent.broadcast,
            received.octets,
            received.unicast,
            received.multicast,
            received.broadcast,
            sent.octets,
            sent.unicast,
            sent.multicast,
            sent.broadcast,
            status.link_up() ? megabits_per_second(*status.speed_duplex) : 0};
}

// A pause is a frame to a multicast address like any other.
std::array<uint64_t, 17> rmon(const CountedPort &port)
{
    const PortCounters &counters = port.traffic.counters;
    const auto &sizes = counters.sizes;
    return {0,
            counters.octets,
            counters.frames(),
            counters.received.broadcast,
            counters.received.multicast + counters.received.pauses,
            counters.crc_align_errors(),
            counters.undersize,
            counters.oversize,
            counters.fragments,
            counters.jabbers,
            0,
            sizes[0],
            sizes[1],
            sizes[2],
            sizes[3],
            sizes[4],
            sizes[5]};
}

// As dot3StatsDuplexStatus.
uint64_t duplex(const PortStatus &status)
{
    enum : uint64_t { unknown = 1, half = 2, full = 3 };
    if (!status.link_up()) {
        return unknown;
    }
    return is_full_duplex(*status.speed_duplex) ? full : half;
}

std::array<uint64_t, 15> ether_like(const CountedPort &port)
{
    const PortCounters &counters = port.traffic.counters;
    std::array<uint64_t, 15> columns{};
    columns[0] = counters.alignment_errors;
    columns[1] = counters.fcs_errors;
    columns[10] = counters.too_long();
    columns[13] = duplex(port.status);
    return columns;
}

struct PauseRecord {
    uint32_t admin_mode;
    uint32_t oper_mode;
    uint64_t received;
    uint64_t sent;
};

// As dot3PauseAdminMode.
uint32_t pause_mode(const FlowControl &flow_control)
{
    return 1 + (flow_control.transmit ? 1U : 0U) + (flow_control.receive ? 2U : 0U);
}

PauseRecord pause(const CountedPort &port)
{
    return {.admin_mode = pause_mode(port.configured_flow_control),
            .oper_mode = pause_mode(port.status.flow_control),
            .received = port.traffic.counters.received.pauses,
            .sent = port.traffic.counters.sent.pauses};
}

}  // namespace

void add_nmtrdrv_statistics(Dispatcher &dispatcher, SharedSwitch &model)
{
    on_range<nmtrdrv::GetIfTableStats>(dispatcher, model, if_table);
    on_range<nmtrdrv::GetIfXTableStats>(
        dispatcher, model, [](const CountedPort &port) { return if_x_table(port.traffic.counters, port.status); });
    on_range<nmtrdrv::GetRmonStats>(dispatcher, model, rmon);
    on_range<nmtrdrv::GetEtherLikeStats>(dispatcher, model, ether_like);
    on_range<nmtrdrv::GetEtherLikePause>(dispatcher, model, pause);
    // Rates are made of it: it must not go back when somebody clears the counters.
    on_range<nmtrdrv::GetAutoTrafficControlIfXTableStats>(
        dispatcher, model, [](const CountedPort &port) { return if_x_table(port.traffic.since_reset, port.status); });
}

}  // namespace quillon::driver
