// Where packets pass: from the ports to those who ask for received ones, and from those who send to the ports.
#pragma once

#include <stdint.h>

#include <deque>
#include <functional>
#include <optional>
#include <random>
#include <span>

#include "host/driver/dispatcher.h"
#include "host/driver/model/clock.h"
#include "host/driver/model/guarded.h"
#include "host/driver/model/packet_generators.h"
#include "host/driver/model/packet_memory.h"
#include "host/driver/model/packet_receiver.h"
#include "host/driver/model/switch.h"
#include "host/driver/nicdrv_encoding.h"

namespace quillon::driver {

// Whoever has asked for received packets when there were none.
struct WaitingReceiver {
    uint64_t id;
    size_t most;
    std::optional<Time> deadline;
    Parked<ReceivePackets> call;
};

struct Reception {
    explicit Reception(std::span<std::byte> area) : packets(area, std::random_device()()) {}

    PacketReceiver packets;
    std::deque<WaitingReceiver> receivers;
    uint64_t next_id = 0;
};

struct Transmission {
    bool loop_back = false;  // what is sent to a port comes in there as well
    uint64_t packets = 0;
    uint64_t bytes = 0;
    uint64_t refused = 0;

    void clear_counts() { packets = bytes = refused = 0; }
};

// What became of a packet that came in.
struct Arrival {
    std::optional<Treatment> treatment;  // nothing: the port's link is down, and no packet comes in
    bool queue_full = false;             // the CPU does not get it: it is dropped and counted
};

class PacketPath {
  public:
    // Without memory no packet can be sent, and those that come in wait for ever.
    explicit PacketPath(SharedSwitch &chips, const PacketMemory &of_run = {})
        : memory(of_run), reception(of_run.receive_area()), chips_(chips)
    {
    }

    // The packet comes in so many times. It is queued for the CPU when a rule of its port copies it there, and when
    // none drops or redirects it.
    Arrival receive(const ReceivedPacket &packet, uint32_t copies = 1);
    void send(const SentPacket &packet);

    // Answers those who wait, as far as packets are there. True when somebody is left waiting.
    bool answer_receivers();
    // Answers those whose time is over with no packets. Returns when that of the next one is.
    std::optional<Time> expire_receivers(Time now);

    // What is set here is set before the queues are served.

    // There may be something to do for the task that puts packets into buffers.
    std::function<void()> wake_receive_task = [] {};
    // Somebody waits until then.
    std::function<void(Time)> receiver_waits = [](Time) {};
    // One of them may have something to send.
    std::function<void()> generators_changed = [] {};

    const PacketMemory memory;
    Guarded<Reception> reception;
    Guarded<PacketGenerators> generators;
    Guarded<Transmission> transmission;

  private:
    std::optional<Treatment> treat(const ReceivedPacket &packet);

    SharedSwitch &chips_;
};

}  // namespace quillon::driver
