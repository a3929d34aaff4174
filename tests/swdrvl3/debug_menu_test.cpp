// The routing debug menu on a recorded console.
#include <gtest/gtest.h>

#include "quillon/swdrvl3.h"
#include "support/recording_platform.h"

namespace quillon::test {
namespace {

using Texts = std::vector<std::string>;

const Texts menu = {
    "\r\n-----DEV_SWDRVL3_PMGR BACKDOOR MENU:-----\r\n",
    "[0]:Set DEV_SWDRVL3_PMGR_EnableIPv4Routing flag\r\n",
    "[1]:Set DEV_SWDRVL3_PMGR_EnableIPv6Routing flag\r\n",
    "[2]:Set DEV_SWDRVL3_PMGR_DisableIPv4Routing flag\r\n",
    "[3]:Set DEV_SWDRVL3_PMGR_DisableIPv6Routing flag\r\n",
    "[Q]:Quit\r\n",
    "----------------------------\r\nSelect:",
};

// The menu, what follows it, and so on; the menu again at the end.
Texts menus_around(const Texts &lines)
{
    Texts texts = menu;
    for (const std::string &line : lines) {
        texts.push_back(line);
        texts.insert(texts.end(), menu.begin(), menu.end());
    }
    return texts;
}

class DebugMenuTest : public testing::Test {
  protected:
    void SetUp() override
    {
        DEV_SWDRVL3_PMGR_InitiateProcessResource();
        reset_platform();
    }

    // What the menu prints on standard output while it is given these keys.
    static std::string run(std::initializer_list<uint8_t> keys)
    {
        platform().console_keys.assign(keys);
        testing::internal::CaptureStdout();
        DEV_SWDRVL3_PMGR_Backdoor_Main();
        return testing::internal::GetCapturedStdout();
    }

    static void answer_with(uint32_t status, uint32_t type)
    {
        platform().answer = [=](const SentRequest &) {
            std::vector<TextByte> from_type;
            for (int shift = 0; shift < 32; shift += 8) {
                from_type.emplace_back(static_cast<uint8_t>(type >> shift));
            }
            return PlayedReply{.status = status, .from_type = from_type};
        };
    }
};

TEST_F(DebugMenuTest, IsRegisteredAsSubsystem24)
{
    platform().registration_status = 0x94939291;

    EXPECT_EQ(DEV_SWDRVL3_PMGR_Create_InterCSC_Relation(), 0x94939291);

    ASSERT_EQ(platform().registrations.size(), 1);
    EXPECT_EQ(platform().registrations[0].name, "DEVSWDRVL3_PMGR");
    EXPECT_EQ(platform().registrations[0].number, 24);
    EXPECT_EQ(platform().registrations[0].entry, DEV_SWDRVL3_PMGR_Backdoor_Main);
}

TEST_F(DebugMenuTest, BeginsAgainAfterUnknownKeysUntilItEnds)
{
    const Texts unknown(6, "Unknow option\r\n");
    EXPECT_EQ(run({'4', 0, '/', '\r', 'P', 0xFE, 'q', '4'}), "");
    EXPECT_EQ(platform().console_texts, menus_around(unknown));

    reset_platform();
    EXPECT_EQ(run({'Q', '4'}), "");
    EXPECT_EQ(platform().console_texts, menu);

    reset_platform();
    EXPECT_EQ(run({}), "DEV_SWDRVL3_PMGR_Backdoor_Main: BACKDOOR_MGR_GetChar fail\n") << "no key can be read";
    EXPECT_EQ(platform().console_texts, menu);
    EXPECT_TRUE(platform().sent.empty());
}

struct Choice {
    uint8_t key;
    // `type` and the two arguments.
    std::string request;
    std::string function;
};

const Choice choices[] = {
    {'0', "03000000 00000000 01000000 00000000", "DEV_SWDRVL3_PMGR_EnableIPv4Routing"},
    {'1', "04000000 00000000 01000000 00000000", "DEV_SWDRVL3_PMGR_EnableIPv6Routing"},
    {'2', "06000000 00000000 00000000 00000000", "DEV_SWDRVL3_PMGR_DisableIPv4Routing"},
    {'3', "07000000 00000000 00000000 00000000", "DEV_SWDRVL3_PMGR_DisableIPv6Routing"},
};

TEST_F(DebugMenuTest, SendsTheRequestOfAKeyAndShowsItsResult)
{
    struct Outcome {
        uint32_t type;
        const char *shown;
    };
    for (const Outcome outcome : {Outcome{0x5A4B3C01, "TRUE"}, {0x5A4B3C00, "FALSE"}, {0x00000102, "FALSE"}}) {
        for (const Choice &choice : choices) {
            reset_platform();
            answer_with(0, outcome.type);

            EXPECT_EQ(run({choice.key, 'Q'}), "");

            ASSERT_EQ(platform().sent.size(), 1);
            EXPECT_EQ(platform().sent[0].function, choice.function);
            EXPECT_EQ(differences(bytes_of(choice.request), std::span(platform().sent[0].envelope).subspan(16)), "");
            EXPECT_EQ(platform().console_texts, menus_around({choice.function + "() returns " + outcome.shown + "\n"}));
        }
    }
}

TEST_F(DebugMenuTest, ShowsAFailedExchangeAsFalseBesideItsReport)
{
    for (const Choice &choice : choices) {
        reset_platform();
        answer_with(5, 0x5A4B3C01);

        const std::string printed = run({choice.key, 'Q'});

        EXPECT_TRUE(printed.starts_with(choice.function + "() line ")) << printed;
        EXPECT_TRUE(printed.ends_with("\n" + choice.function + ":SYSFUN_SendRequestMsg fail! (5)\n")) << printed;
        EXPECT_EQ(platform().console_texts, menus_around({choice.function + "() returns FALSE\n"}));
    }
}

}  // namespace
}  // namespace quillon::test
