// The rows against the functions that the public headers declare.
#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>

#include "support/wire_row.h"

namespace quillon::test {
namespace {

using Names = std::set<std::string>;

// No request bears their name: they work on memory of their own or of the platform, or do nothing but answer.
const Names without_request = {
    "DEV_SWDRVL3_PMGR_AddInetHostTunnelRoute",
    "DEV_SWDRVL3_PMGR_AddTunnelInitiator",
    "DEV_SWDRVL3_PMGR_AddTunnelTerminator",
    "DEV_SWDRVL3_PMGR_Backdoor_Main",
    "DEV_SWDRVL3_PMGR_Create_InterCSC_Relation",
    "DEV_SWDRVL3_PMGR_DeleteInetHostTunnelRoute",
    "DEV_SWDRVL3_PMGR_DeleteTunnelInitiator",
    "DEV_SWDRVL3_PMGR_DeleteTunnelTerminator",
    "DEV_SWDRVL3_PMGR_ReadAndClearNetRouteEntryHitBit",
    "DEV_SWDRVL3_PMGR_SetL3InterfaceMtu",
    "DEV_SWDRVL3_PMGR_UpdateTunnelTtl",
    "DEV_SWDRVL4_PMGR_GetSflowSampleCount",
};

bool is_request_function(const std::string &name)
{
    return name.find("_PMGR") != std::string::npos && !name.ends_with("_InitiateProcessResource") &&
           !without_request.contains(name);
}

Names declared_request_functions()
{
    std::ifstream list(QUILLON_DECLARED_FUNCTIONS);
    EXPECT_TRUE(list) << "cannot read " QUILLON_DECLARED_FUNCTIONS;
    Names names;
    for (std::string name; std::getline(list, name);) {
        if (is_request_function(name)) {
            names.insert(name);
        }
    }
    return names;
}

TEST(WireRowsTest, CoverEveryRequestFunctionOfTheHeaders)
{
    Names sending;
    for (const WireRow &row : all_wire_rows()) {
        if (row.code) {
            sending.insert(row.function);
        }
    }
    EXPECT_EQ(sending, declared_request_functions()) << "each needs a row with a code in tests/wire/";
}

}  // namespace
}  // namespace quillon::test
