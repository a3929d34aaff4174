// The counters' requests: code, what each carries, what comes back.
#pragma once

#include <stdint.h>

#include <array>
#include <cstddef>

#include "ipc/envelope.h"
#include "nmtrdrv/family.h"
#include "quillon/nmtrdrv.h"

namespace quillon::nmtrdrv {

using ipc::Unused;
using ipc::UnusedWord;

// All members count four bytes behind their fields that nobody fills.
using NoFields = Unused<4>;

struct Port {
    uint32_t unit;
    uint32_t port;
    UnusedWord unused{};
};

struct StatsRangeReq {
    uint32_t selector;
    uint32_t first_port;
    uint32_t last_port;
    UnusedWord unused{};

    // In 32 bits: a range may end at the largest port number, and one that ends in front of its first port is empty.
    constexpr uint32_t ports() const { return last_port + 1 - first_port; }
};

template <class RecordOfPort>
struct Stats {
    using Record = RecordOfPort;
    static constexpr uint32_t max_ports = QUILLON_STATS_PORTS;

    std::array<Record, max_ports> records;
    UnusedWord unused{};
};

struct Ability {
    StatsAbility value;
    Unused<4> unused{};  // not a word: it follows ten bytes at once
};

// Clearing.
using ClearPortCounter = Command<0, Port, NoFields>;
using ClearAllCounters = Command<2, NoFields, NoFields>;

// Statistics of a range of ports.
using GetIfTableStats = Command<3, StatsRangeReq, Stats<IfTableStats>>;
using GetIfXTableStats = Command<4, StatsRangeReq, Stats<IfXTableStats>>;
using GetRmonStats = HeapCommand<5, StatsRangeReq, Stats<RmonStats>>;
using GetEtherLikeStats = HeapCommand<6, StatsRangeReq, Stats<EtherLikeStats>>;
using GetEtherLikePause = HeapCommand<7, StatsRangeReq, Stats<EtherLikePause>>;
using GetAutoTrafficControlIfXTableStats = Command<13, StatsRangeReq, Stats<IfXTableStats>>;

// What a port can count.
using GetStatsAbility = Command<8, Port, Ability>;

}  // namespace quillon::nmtrdrv
