// The mapping requests against the model, with bytes typed by hand: what the client library never sends included.
#include <gtest/gtest.h>
#include <stdint.h>

#include <string>
#include <vector>

#include "driver/served_dispatcher.h"
#include "host/driver/handlers.h"
#include "host/driver/models.h"
#include "support/byte_text.h"

namespace quillon::test {
namespace {

using driver::ForcedLeds;
using driver::PortOverrides;

struct MappingTest : testing::Test {
    // The result, with what follows `type` in the reply.
    std::string ask(const std::string &request, uint32_t room)
    {
        const auto reply = client.exchange(closed_bytes_of("+8 7800 " + request), room);
        return reply ? text_of(std::span(*reply).subspan(16)) : "no reply";
    }

    PortOverrides overrides(uint32_t unit, uint32_t port)
    {
        return *models.chips.lock()->chips.overrides.find({unit, port});
    }

    driver::Models models{driver::StackShape{.units = 2, .ports = 28, .chips = 2}};
    ServedDispatcher served{[this](driver::Dispatcher &dispatcher) { add_handlers(dispatcher, models); }};
    RawQueue client = served.client();
};

TEST_F(MappingTest, TranslatesThereAndBack)
{
    // Both of the requests that lead there have the same answer.
    for (const std::string code : {"05", "06"}) {
        EXPECT_EQ(ask("0C00 +16 " + code + "000000 +24 02000000 0F000000", 36),
                  text_of(closed_bytes_of("01000000 00*4 04000000 01000000 01000000")));
        EXPECT_EQ(ask("0C00 +16 " + code + "000000 +24 03000000 01000000", 36), text_of(closed_bytes_of("00*20")));
    }
    EXPECT_EQ(ask("1000 +16 07000000 +24 04000000 01000000 0E000000", 32),
              text_of(closed_bytes_of("01000000 00*4 02000000 1C000000")));
    EXPECT_EQ(ask("1000 +16 07000000 +24 04000000 00000000 01000000", 32), text_of(closed_bytes_of("00*16")));
    EXPECT_EQ(ask("0C00 +16 08000000 +24 02000000 04000000", 28), text_of(closed_bytes_of("01000000 00*4 01000000")));
    EXPECT_EQ(ask("0C00 +16 08000000 +24 01000000 04000000", 28), text_of(closed_bytes_of("00*12")));
    EXPECT_EQ(ask("0C00 +16 09000000 +24 02000000 01000000", 28), text_of(closed_bytes_of("01000000 00*4 04000000")));
    EXPECT_EQ(ask("0C00 +16 09000000 +24 02000000 02000000", 28), text_of(closed_bytes_of("00*12")));
    EXPECT_EQ(ask("0400 +16 04000000 00*4", 24), text_of(closed_bytes_of("02000000 00*4")));
}

TEST_F(MappingTest, KeepsWhatIsForced)
{
    const std::string done = text_of(closed_bytes_of("01000000 00*4"));
    const std::string refused = text_of(closed_bytes_of("00*8"));

    EXPECT_EQ(ask("1000 +16 27010000 +24 02000000 1C000000 01000000", 24), done);
    EXPECT_EQ(overrides(2, 28), (PortOverrides{.link_down = true, .leds = {}}));
    EXPECT_EQ(overrides(2, 27), PortOverrides{});
    EXPECT_EQ(ask("1000 +16 27010000 +24 02000000 1D000000 01000000", 24), refused);
    EXPECT_EQ(ask("1000 +16 27010000 +24 02000000 1B000000 02000000", 24), refused);
    EXPECT_EQ(overrides(2, 27), PortOverrides{});

    EXPECT_EQ(ask("3400 +16 29010000 +24 01000000 03000000 10..1D 00*18 0E000000 44332211", 24), done);
    std::vector<uint8_t> pattern = closed_bytes_of("10..1D");
    EXPECT_EQ(overrides(1, 3), (PortOverrides{.link_down = false, .leds = {.pattern = pattern, .mode = 0x11223344}}));
    EXPECT_EQ(ask("3400 +16 29010000 +24 01000000 03000000 00..1F 1F000000 00*4", 24), refused);
    EXPECT_EQ(ask("3400 +16 29010000 +24 01000000 00000000 00*32 00*8", 24), refused);
    EXPECT_EQ(overrides(1, 3).leds.pattern, pattern);
    EXPECT_EQ(ask("3400 +16 29010000 +24 01000000 04000000 00..1F 1E000000 00*4", 24), done);
    EXPECT_EQ(overrides(1, 4).leds.pattern, closed_bytes_of("00..1D"));

    EXPECT_EQ(ask("0C00 +16 28010000 +24 02000000 1C000000", 24), done);
    EXPECT_EQ(ask("0C00 +16 28010000 +24 02000000 00000000", 24), refused);

    EXPECT_EQ(ask("1000 +16 27010000 +24 02000000 1C000000 00000000", 24), done);
    EXPECT_EQ(overrides(2, 28), PortOverrides{});

    // A reset of the chips: not with 0, not with a flag that is none.
    EXPECT_EQ(ask("0500 +16 02000000 +24 00", 24), done);
    EXPECT_EQ(ask("0500 +16 02000000 +24 02", 24), refused);
    EXPECT_EQ(overrides(1, 3).leds.pattern, pattern);
    EXPECT_EQ(ask("0500 +16 02000000 +24 01", 24), done);
    EXPECT_EQ(overrides(1, 3), PortOverrides{});
}

// What is outside the chips stays as it is.
TEST_F(MappingTest, ResetsTheChips)
{
    constexpr driver::LogicalPort port{2, 3};
    {
        const auto access = models.chips.lock();
        driver::ChipState &chips = access->chips;
        chips.ports.find(port)->set_admin_up(false);
        EXPECT_TRUE(chips.vlans.create(7));
        EXPECT_TRUE(chips.macs.set({.vlan = 1}, {.destination = port}, chips.vlans, chips.trunks));
        chips.link_scan.registered = true;
        access->lines.find(port)->plugged = false;
    }
    EXPECT_EQ(ask("0500 +16 02000000 +24 01", 24), text_of(closed_bytes_of("01000000 00*4")));
    const auto access = models.chips.lock();
    EXPECT_TRUE(access->chips.ports.find(port)->admin_up());
    EXPECT_FALSE(access->chips.vlans.has(7));
    EXPECT_EQ(access->chips.macs.size(), 0U);
    EXPECT_FALSE(access->chips.link_scan.registered);
    EXPECT_FALSE(access->lines.find(port)->plugged);
}

}  // namespace
}  // namespace quillon::test
