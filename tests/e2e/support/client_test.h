// The test's own process as a client, beside a real driver process.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "e2e/support/driver_process.h"
#include "e2e/support/observe.h"
#include "quillon/amtrdrv.h"
#include "quillon/devrm.h"
#include "quillon/nmtrdrv.h"
#include "quillon/swdrv.h"
#include "quillon/swdrvl3.h"

namespace quillon::test {

class ClientTest : public testing::Test {
  protected:
    ClientTest()
    {
        DEV_SWDRV_PMGR_InitiateProcessResource();
        DEV_AMTRDRV_PMGR_InitiateProcessResource();
        DEV_SWDRVL3_PMGR_InitiateProcessResource();
        DEV_NMTRDRV_PMGR_InitiateProcessResource();
        DEVRM_PMGR_InitiateProcessResource();
    }

    static Ended control(const std::vector<std::string> &words) { return test::control(runtime_folder(), words); }

    // What quillon-ctl prints.
    static std::string told(const std::vector<std::string> &words)
    {
        const Ended ended = control(words);
        EXPECT_EQ(ended.status, 0) << ended.err;
        return ended.out;
    }

    DriverProcess driver{runtime_folder(), {"--log-level=warning"}};
};

}  // namespace quillon::test
