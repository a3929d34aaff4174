// The constant tables, over their whole neighbourhood.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <map>

#include "quillon/nicdrv.h"

namespace quillon::test {
namespace {

uint32_t found_in(const std::map<int64_t, uint32_t> &table, int64_t code)
{
    const auto found = table.find(code);
    return found == table.end() ? 0 : found->second;
}

TEST(ReceiveCodesTest, GiveReasons)
{
    const std::map<int64_t, uint32_t> reasons = {{37, 2}, {271, 2}, {401, 32}, {406, 32}};
    for (uint32_t code = 0; code < 2000; ++code) {
        EXPECT_EQ(DEV_NICDRV_LIB_ReceivePacketReason(code), found_in(reasons, code)) << code;
    }
    for (const uint32_t code : {65536U + 37, 0x80000000U + 271, 0xFFFFFFFFU}) {
        EXPECT_EQ(DEV_NICDRV_LIB_ReceivePacketReason(code), 0) << code;
    }
}

TEST(ReceiveCodesTest, GiveClasses)
{
    const std::map<int64_t, uint32_t> classes = {{5, 501},  {7, 501},  {8, 501},  {9, 501},  {23, 503},
                                                 {10, 504}, {11, 504}, {12, 504}, {13, 504}, {24, 505}};
    for (int32_t code = -1000; code < 1000; ++code) {
        EXPECT_EQ(DEV_NICDRV_LIB_PktClassId(code), found_in(classes, code)) << code;
    }
    for (const int32_t code : {std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max(), 65536 + 5}) {
        EXPECT_EQ(DEV_NICDRV_LIB_PktClassId(code), 0) << code;
    }
}

TEST(ReceiveCodesTest, KeepTheClassOfService)
{
    for (const uint32_t cos : {0U, 7U, 8U, 0x94939291U, 0xFFFFFFFFU}) {
        EXPECT_EQ(DEV_NICDRV_LIB_CosValue(cos), cos);
    }
}

TEST(ReceiveCodesTest, TellBpdusByALowByteOf1)
{
    for (uint32_t flag = 0; flag <= 0x201; ++flag) {
        EXPECT_EQ(DEV_NICDRV_LIB_BpduCpuCode(static_cast<uint8_t>(flag)), flag % 256 == 1 ? 502 : 326) << flag;
    }
}

}  // namespace
}  // namespace quillon::test
