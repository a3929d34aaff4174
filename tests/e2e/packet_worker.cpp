// An application process for the tests, on the packet path. It prints "ready" and begins when it has read a line.
//
//     packet_worker receive THREADS PACKETS   each thread receives so many packets and gives them back, some of them
//                                             after they were held as fragments
//     packet_worker hand-over PACKETS AT-ONCE receives packets; whenever there are so many, other threads give them
//                                             back while it asks for more
//     packet_worker die-freeing               waits inside of its free function, with the semaphore held, to be killed
//
// It prints a line for everything that is not as it should be, and "done" at the end.
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include "quillon/nicdrv.h"
#include "quillon/receive.h"

namespace {

void give_back(const QuillonReceivedPacket &packet)
{
    if (DEV_NICDRV_MREF_MemFree(nullptr, packet.cookie, quillon_received_buffer(&packet)) != 1) {
        printf("a buffer of cookie %u is not taken back\n", packet.cookie);
    }
}

// The tests' packets hold their cookie in each byte.
void look_at(const QuillonReceivedPacket &packet)
{
    const uint8_t *const data = quillon_received_data(&packet);
    if (std::any_of(data, data + packet.length, [&](uint8_t byte) { return byte != packet.cookie; })) {
        printf("a packet of cookie %u has other bytes\n", packet.cookie);
    }
}

std::vector<QuillonReceivedPacket> receive(uint32_t most)
{
    std::vector<QuillonReceivedPacket> packets(std::min(most, QUILLON_RECEIVE_MOST));
    uint32_t count = 0;
    const uint32_t status =
        quillon_receive_packets(packets.data(), static_cast<uint32_t>(packets.size()), QUILLON_WAIT_FOREVER, &count);
    if (status != QUILLON_STATUS_OK) {
        printf("receiving fails with status %u\n", status);
        exit(1);
    }
    packets.resize(count);
    return packets;
}

void receive_and_give_back(uint32_t packets)
{
    while (packets > 0) {
        for (const QuillonReceivedPacket &packet : receive(packets)) {
            look_at(packet);
            if (packets % 4 == 0 && packet.cookie < 10) {
                DEV_NICDRV_ReserveFragmentBuffer(packet.cookie);
                DEV_NICDRV_ReleaseFragmentBuffer(packet.cookie);
            }
            give_back(packet);
            --packets;
        }
    }
}

// Packets on their way from one thread to others.
class HandOver {
  public:
    void put(const std::vector<QuillonReceivedPacket> &packets)
    {
        const std::lock_guard lock(mutex_);
        packets_.insert(packets_.end(), packets.begin(), packets.end());
        changed_.notify_all();
    }

    void end()
    {
        const std::lock_guard lock(mutex_);
        ended_ = true;
        changed_.notify_all();
    }

    // Nothing after the end.
    std::optional<QuillonReceivedPacket> get()
    {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return ended_ || !packets_.empty(); });
        if (packets_.empty()) {
            return std::nullopt;
        }
        const QuillonReceivedPacket packet = packets_.front();
        packets_.pop_front();
        return packet;
    }

  private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<QuillonReceivedPacket> packets_;
    bool ended_ = false;
};

void receive_and_hand_over(uint32_t packets, uint32_t at_once)
{
    HandOver hand_over;
    std::vector<std::thread> threads;
    for (int i = 0; i < 3; ++i) {
        threads.emplace_back([&] {
            while (const auto packet = hand_over.get()) {
                give_back(*packet);
            }
        });
    }
    while (packets > 0) {
        std::vector<QuillonReceivedPacket> held;
        while (held.size() < std::min(at_once, packets)) {
            const auto received = receive(std::min(at_once, packets) - static_cast<uint32_t>(held.size()));
            held.insert(held.end(), received.begin(), received.end());
        }
        packets -= static_cast<uint32_t>(held.size());
        hand_over.put(held);
    }
    hand_over.end();
    for (std::thread &thread : threads) {
        thread.join();
    }
}

uint8_t wait_to_be_killed(void * /*buffer*/)
{
    printf("freeing %u\n", SYSFUN_TaskIdSelf());
    for (;;) {
        pause();
    }
}

}  // namespace

int main(int argc, char **argv)
{
    const std::string_view what = argc > 1 ? argv[1] : "";
    const auto number = [&](int at) { return at < argc ? static_cast<uint32_t>(atoi(argv[at])) : 0; };
    setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    if (DEV_NICDRV_PMGR_InitiateProcessResource() != 1) {
        return 1;
    }
    DEV_NICDRV_OM_AttachSystemResources();
    puts("ready");
    if (getchar() == EOF) {
        return 1;
    }
    if (what == "receive") {
        std::vector<std::thread> threads;
        for (uint32_t i = 0; i < number(2); ++i) {
            threads.emplace_back(receive_and_give_back, number(3));
        }
        for (std::thread &thread : threads) {
            thread.join();
        }
    } else if (what == "hand-over") {
        receive_and_hand_over(number(2), number(3));
    } else if (what == "die-freeing") {
        DEV_NICDRV_OM_SetFreeFunc(wait_to_be_killed);
        DEV_NICDRV_MREF_MemFree(nullptr, 0, nullptr);
    } else {
        return 2;
    }
    puts("done");
    return 0;
}
