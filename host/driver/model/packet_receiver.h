// The way of received packets: they wait in a queue of their cookie, are put into buffers, are offered to whoever asks
// for packets, and come back as buffers.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <array>
#include <deque>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "host/driver/model/loan_counts.h"
#include "host/driver/model/packet.h"

namespace quillon::driver {

// A received packet in a buffer.
struct OfferedPacket {
    uint64_t buffer;  // what gives it back
    uint32_t offset;  // in the area of the receive buffers
    uint32_t length;
    uint32_t cookie;
    uint32_t cpu_code;
    LogicalPort port;
};

struct ReceiveCounts {
    uint64_t packets = 0;
    uint64_t bytes = 0;
    uint64_t dropped = 0;  // for the queue of their cookie was full
};

class PacketReceiver {
  public:
    static constexpr size_t buffer_size = 9280;
    static constexpr size_t most_buffers = 64;     // of each cookie
    static constexpr size_t longest_queue = 1024;  // of each cookie

    // `area` is shared with all who receive: it is written, and never read. Its buffers are dealt out evenly.
    // `first_loan` tells its loans apart from those of another run.
    explicit PacketReceiver(std::span<std::byte> area, uint32_t first_loan = 1);

    // For as many buffers as each cookie has.
    PoolLevels levels() const;

    // The packet comes in so many times; once in the queue, all of them are one. False when the queue is full.
    bool arrive(const ReceivedPacket &packet, uint32_t copies);

    // Puts what waits in the queues into buffers, unless the pool is stopped or has none left.
    void fill(LoanCounts &loans);

    // At most so many, the oldest first. Whoever has them finds them counted; those that cannot go where they are to go
    // are offered again.
    std::vector<OfferedPacket> take(size_t most);
    void offer_again(std::span<const OfferedPacket> packets);

    // False for what is no buffer, and for one that is not on loan (any more).
    bool give_back(uint64_t buffer);
    // A buffer has come back for which packets wait that no event is sent for.
    bool starves() const;

    void clear_counts();
    const ReceiveCounts &counts(uint32_t cookie) const { return counts_.at(cookie); }
    uint64_t taken() const { return taken_; }
    uint64_t refused_frees() const { return refused_frees_; }
    uint64_t buffers() const { return buffers_.size(); }
    uint64_t filled_buffers() const;
    uint32_t waiting() const;
    uint32_t stopped_pools() const { return stopped_pools_; }  // a bit each
    uint64_t stops() const { return stops_; }                  // of pools that ran

  private:
    struct Buffer {
        uint32_t loan;  // counts its loans, so that the one before cannot be given back for the one of today
        bool lent = false;
    };
    struct Arrived {
        std::shared_ptr<const ReceivedPacket> packet;
        uint32_t copies;
    };

    uint32_t on_loan(uint32_t cookie) const;
    static uint32_t cookie_of(size_t index) { return static_cast<uint32_t>(index % cookies); }
    bool fill(uint32_t cookie, LoanCounts &loans);  // true when a buffer was lent
    OfferedPacket put_into_buffer(const ReceivedPacket &packet, size_t index);

    std::span<std::byte> area_;
    std::vector<Buffer> buffers_;
    std::array<std::vector<size_t>, cookies> free_;
    std::array<std::deque<Arrived>, cookies> queues_;
    std::deque<OfferedPacket> offered_;
    uint32_t stopped_pools_ = 0;
    uint64_t stops_ = 0;
    std::array<ReceiveCounts, cookies> counts_;
    uint64_t taken_ = 0;
    uint64_t refused_frees_ = 0;
};

}  // namespace quillon::driver
