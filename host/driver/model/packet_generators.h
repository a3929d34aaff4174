// Packet generators: each sends the packets that were added to it, in turn and at a rate.
#pragma once

#include <stdint.h>

#include <array>
#include <map>
#include <memory>
#include <optional>

#include "host/driver/model/clock.h"
#include "host/driver/model/packet.h"

namespace quillon::driver {

class PacketGenerators {
  public:
    using Packet = std::shared_ptr<const SentPacket>;

    static constexpr uint32_t count = 8;          // numbered from 0
    static constexpr uint32_t most_entries = 64;  // of each, numbered from 1
    static constexpr uint64_t most_rate = 100'000;

    // What follows gives nothing or false, and changes nothing, for a generator or an entry that is not there.

    // The number of the entry. Nothing when the generator has no room.
    std::optional<uint32_t> add(uint32_t generator, Packet packet);
    bool update(uint32_t generator, uint32_t entry, Packet packet);
    // A generator stops with its last entry.
    bool remove(uint32_t generator, uint32_t entry);

    // From now on, and until so many packets were sent if it is told. False for one without entries, and for no
    // packets.
    bool start(uint32_t generator, std::optional<uint32_t> packets, Time now);
    bool stop(uint32_t generator);
    // Packets a second. Takes at least 1, and returns the rate that it then has. Initially 1.
    std::optional<uint64_t> set_rate(uint32_t generator, uint64_t wanted, Time now);

    // The next packet that is to be sent by now, null when there is none. Of what was missed by more than a tenth of a
    // second nothing is made up for.
    Packet take_due(Time now);
    // When there will be more of it. Nothing when none runs.
    std::optional<Time> next_due() const;

    struct Generator {
        std::map<uint32_t, Packet> entries;
        uint64_t rate = 1;
        bool running = false;
        std::optional<uint32_t> left;  // none: it runs until it is stopped
        uint64_t sent = 0;
        Time next{};
        uint32_t last_entry = 0;  // the one that was sent last
    };
    const Generator &generator(uint32_t number) const { return generators_.at(number); }

  private:
    static Packet take_next(Generator &generator);
    Generator *find(uint32_t generator) { return generator < count ? &generators_.at(generator) : nullptr; }

    std::array<Generator, count> generators_;
};

}  // namespace quillon::driver
