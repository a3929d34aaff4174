// The rows against the functions that the public headers declare.
#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>

#include "support/wire_row.h"

namespace quillon::test {
namespace {

using Names = std::set<std::string>;

// Work on memory of their own or of the platform: no request bears their name.
const Names without_request = {
    "DEV_SWDRVL3_PMGR_Create_InterCSC_Relation",
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
