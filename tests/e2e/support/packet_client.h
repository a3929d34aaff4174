// The test's own process on the packet path, beside a real driver process.
#pragma once

#include <stdint.h>
#include <string.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

#include "e2e/support/client_test.h"
#include "nicdrv/shared_record.h"
#include "quillon/nicdrv.h"
#include "quillon/receive.h"

namespace quillon::test {

class PacketClientTest : public ClientTest {
  protected:
    PacketClientTest()
    {
        EXPECT_EQ(DEV_NICDRV_PMGR_InitiateProcessResource(), 1);
        EXPECT_EQ(DEV_NICDRV_OM_InitateProcessResource(), 1);
    }

    // 60 bytes, each of them the cookie.
    static void inject(uint32_t cookie, uint32_t count = 1, uint32_t cpu_code = 0)
    {
        const char digits[] = {'0', "0123456789A"[cookie], '\0'};
        std::string hex;
        for (int i = 0; i < 60; ++i) {
            hex += digits;
        }
        told({"inject-packet", "1", "5", "cookie=" + std::to_string(cookie), "cpu-code=" + std::to_string(cpu_code),
              "count=" + std::to_string(count), hex});
    }

    // What comes, and no more than `most`.
    static std::vector<QuillonReceivedPacket> receive_some(size_t most)
    {
        constexpr uint32_t only_a_hang_lasts = 60'000;
        std::vector<QuillonReceivedPacket> packets(std::min<size_t>(most, QUILLON_RECEIVE_MOST));
        uint32_t received = 0;
        if (quillon_receive_packets(packets.data(), static_cast<uint32_t>(packets.size()), only_a_hang_lasts,
                                    &received) != QUILLON_STATUS_OK) {
            throw std::runtime_error("no packet comes");
        }
        packets.resize(received);
        return packets;
    }

    // So many, as soon as they are there.
    static std::vector<QuillonReceivedPacket> receive(size_t count)
    {
        std::vector<QuillonReceivedPacket> all;
        while (all.size() < count) {
            const auto some = receive_some(count - all.size());
            all.insert(all.end(), some.begin(), some.end());
        }
        return all;
    }

    static uint8_t give_back(const QuillonReceivedPacket &packet)
    {
        return DEV_NICDRV_MREF_MemFree(nullptr, packet.cookie, quillon_received_buffer(&packet));
    }

    // As it is at this moment.
    static nicdrv::NicShMem record()
    {
        nicdrv::NicShMem copy;
        memcpy(&copy, SYSRSC_MGR_GetShMem(nicdrv::shared_record_segment), sizeof copy);
        return copy;
    }
};

}  // namespace quillon::test
