// The routing requests through the client library, against a model that the test sees.
#pragma once

#include <gtest/gtest.h>
#include <stdint.h>

#include "driver/swdrv_client.h"
#include "quillon/swdrvl3.h"

namespace quillon::test {

// The status codes of routing requests.
inline constexpr uint32_t done = 0;
inline constexpr uint32_t exists = 1;
inline constexpr uint32_t absent = 2;
inline constexpr uint32_t full = 3;
inline constexpr uint32_t invalid = 4;
inline constexpr uint32_t unresolved = 5;

struct Swdrvl3ClientTest : SwdrvClientTest {
    Swdrvl3ClientTest() { DEV_SWDRVL3_PMGR_InitiateProcessResource(); }

    // In VLAN 1.
    static uint32_t new_interface(uint8_t number)
    {
        const uint8_t mac[6] = {2, 0, 0, 0, 0, number};
        uint32_t id = 0;
        EXPECT_EQ(DEV_SWDRVL3_PMGR_CreateL3Interface(1, 0, mac, &id), done);
        return id;
    }
};

}  // namespace quillon::test
