#include "support/byte_text.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace quillon::test {
namespace {

using Bytes = std::vector<TextByte>;

TEST(ByteTextTest, ReadsEachKindOfWord)
{
    EXPECT_EQ(bytes_of("0401 fF"), (Bytes{0x04, 0x01, 0xFF}));
    EXPECT_EQ(bytes_of("AB*3 --*2"), (Bytes{0xAB, 0xAB, 0xAB, std::nullopt, std::nullopt}));
    EXPECT_EQ(bytes_of("FD..FF 01--"), (Bytes{0xFD, 0xFE, 0xFF, 0x01, std::nullopt}));
    EXPECT_EQ(bytes_of("+25 01 +28 02", 24), (Bytes{0, 0x01, 0, 0, 0x02}));
    EXPECT_EQ(bytes_of("+2 01", 0, std::nullopt), (Bytes{std::nullopt, std::nullopt, 0x01}));
    EXPECT_EQ(bytes_of("  "), Bytes{});
}

TEST(ByteTextTest, RefusesWhatAnAuthorGotWrong)
{
    for (const char *text : {"123", "+x", "1G", "AB*", "AB*x", "ABC*2", "02..01", "1..F", "01..", "+24 0102 +25 03",
                             "+23 01", "-", "- -"}) {
        EXPECT_THROW(bytes_of(text, 24), std::invalid_argument) << text;
    }
    EXPECT_THROW(closed_bytes_of("01 --"), std::invalid_argument);
}

TEST(ByteTextTest, NamesEachDifference)
{
    const std::vector<uint8_t> found = {1, 2, 3};

    EXPECT_EQ(differences(bytes_of("01 -- 03"), found), "");
    EXPECT_EQ(differences(bytes_of("01 22 03"), found, 24), "+25: expected 22, found 02\n");
    EXPECT_EQ(differences(bytes_of("0102"), found, 24), "expected an end at +26, found it at +27\n");
    EXPECT_EQ(differences(bytes_of("01020304"), found, 24), "expected an end at +28, found it at +27\n");
}

}  // namespace
}  // namespace quillon::test
