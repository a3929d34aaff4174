// The test's own process on the packet path, beside a real driver process.
#pragma once

#include <gtest/gtest.h>
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

#include <string>
#include <vector>

#include "e2e/support/control.h"
#include "e2e/support/driver_process.h"
#include "e2e/support/observe.h"
#include "nicdrv/shared_record.h"
#include "quillon/nicdrv.h"
#include "quillon/receive.h"

namespace quillon::test {

class PacketClientTest : public testing::Test {
  protected:
    PacketClientTest()
    {
        EXPECT_EQ(DEV_NICDRV_PMGR_InitiateProcessResource(), 1);
        EXPECT_EQ(DEV_NICDRV_OM_InitateProcessResource(), 1);
    }

    // A client looks its run-time folder up once.
    static const std::string &folder()
    {
        static const TestFolder for_this_process;
        static const int set = setenv("QUILLON_RUNTIME_DIR", for_this_process.path().c_str(), 1);
        EXPECT_EQ(set, 0);
        return for_this_process.path();
    }

    static void command(const std::vector<std::string> &words)
    {
        const Ended ended = control(folder(), words);
        EXPECT_EQ(ended.status, 0) << ended.err;
    }

    // 60 bytes, each of them the cookie.
    static void inject(uint32_t cookie, uint32_t count = 1, uint32_t cpu_code = 0)
    {
        const char digits[] = {'0', "0123456789A"[cookie], '\0'};
        std::string hex;
        for (int i = 0; i < 60; ++i) {
            hex += digits;
        }
        command({"inject-packet", "1", "5", "cookie=" + std::to_string(cookie), "cpu-code=" + std::to_string(cpu_code),
                 "count=" + std::to_string(count), hex});
    }

    // So many, as soon as they are there.
    static std::vector<QuillonReceivedPacket> receive(size_t count)
    {
        std::vector<QuillonReceivedPacket> all;
        while (all.size() < count) {
            QuillonReceivedPacket packets[QUILLON_RECEIVE_MOST];
            uint32_t received = 0;
            constexpr uint32_t only_a_hang_lasts = 60'000;
            const auto most = static_cast<uint32_t>(count - all.size());
            if (quillon_receive_packets(packets, most, only_a_hang_lasts, &received) != QUILLON_STATUS_OK) {
                ADD_FAILURE() << "received " << all.size() << " packets";
                break;
            }
            all.insert(all.end(), packets, packets + received);
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

    DriverProcess driver{folder(), {"--log-level=warning"}};
};

}  // namespace quillon::test
