// What becomes of packets on their way from a port to the CPU's queues.
#include "host/driver/packet_path.h"

#include <gtest/gtest.h>
#include <stdint.h>

#include <iterator>
#include <optional>

#include "host/driver/models.h"

namespace quillon::driver {
namespace {

constexpr LogicalPort port{2, 3};
constexpr MacAddress source = {0x02, 0, 0, 0, 0, 0x07};

// From `source`, and untagged unless there is a tag of 802.1Q.
PacketBytes packet_with(std::optional<uint16_t> tag = {})
{
    PacketBytes bytes(60);
    for (size_t i = 0; i < source.size(); ++i) {
        bytes[6 + i] = std::byte{source[i]};
    }
    return tag ? tagged(bytes, *tag & 0x0FFF, uint32_t{*tag} >> 13) : bytes;
}

struct PacketPathTest : testing::Test {
    uint64_t arrived(uint32_t cookie) { return path.reception.lock()->packets.counts(cookie).packets; }

    Models models{StackShape{.units = 2, .ports = 28, .chips = 2}};
    PacketPath &path = models.packets;
};

TEST_F(PacketPathTest, GivesTheCpuWhatRulesLeaveToIt)
{
    constexpr PclName list{.unit = 2, .pcl = 1};
    constexpr RuleName rule{.unit = 2, .pcl = 1, .rule = 1};
    {
        const auto access = models.chips.lock();
        EXPECT_TRUE(access->chips.rules.create_pcl(list, {.deny = false, .priority = 1, .size = 1}));
        EXPECT_TRUE(access->chips.rules.bind_port(list, port.port, true));
        EXPECT_TRUE(access->chips.rules.allocate(rule, 1, {}));
    }
    const struct {
        Treatment treatment;
        bool for_cpu;
    } rows[] = {
        {{}, true},
        {{.mirror = true, .priority = 3}, true},
        {{.drop = true}, false},
        {{.redirect = LogicalPort{1, 1}}, false},
        {{.copy_to_cpu = true}, true},
        {{.drop = true, .copy_to_cpu = true}, true},
        {{.copy_to_cpu = true, .redirect = LogicalPort{1, 1}}, true},
    };
    uint64_t expected = 0;
    for (const auto &row : rows) {
        EXPECT_TRUE(models.chips.lock()->chips.rules.set(rule, {}, {.treatment = row.treatment}));
        const Arrival arrival = path.receive({.port = port, .cookie = 4, .bytes = packet_with()}, 3);
        EXPECT_EQ(arrival.treatment, row.treatment);
        expected += row.for_cpu ? 3 : 0;
        EXPECT_EQ(arrived(4), expected) << "row " << &row - rows;
    }
    EXPECT_EQ(models.chips.lock()->chips.rules.counter(rule)->green, 3 * std::size(rows));
}

TEST_F(PacketPathTest, SaysWhenTheQueueIsFull)
{
    const ReceivedPacket packet{.port = port, .bytes = packet_with()};
    for (size_t i = 0; i < PacketReceiver::longest_queue; ++i) {
        EXPECT_FALSE(path.receive(packet).queue_full);
    }
    EXPECT_TRUE(path.receive(packet).queue_full);
    EXPECT_EQ(arrived(0), PacketReceiver::longest_queue);
}

TEST_F(PacketPathTest, LetsNothingInWhereTheLinkIsDown)
{
    models.chips.lock()->lines.find(port)->plugged = false;
    EXPECT_EQ(path.receive({.port = port, .bytes = packet_with()}).treatment, std::nullopt);
    path.transmission.lock()->loop_back = true;
    path.send({.port = port, .bytes = packet_with()});
    EXPECT_EQ(arrived(0), 0U);
    EXPECT_EQ(models.chips.lock()->macs().size(), 0U);
}

TEST_F(PacketPathTest, LearnsWhereAPacketCameFrom)
{
    {
        const auto access = models.chips.lock();
        EXPECT_TRUE(access->chips.vlans.create(20));
        EXPECT_TRUE(access->chips.vlans.create(30));
        EXPECT_TRUE(access->chips.vlans.set_pvid(port, 20));
    }
    const struct {
        const char *what;
        PacketBytes bytes;
        std::optional<uint32_t> vlan;
    } rows[] = {
        {"untagged: the VLAN of the port", packet_with(), 20},
        {"the VLAN of the tag", packet_with(30), 30},
        {"a priority without a VLAN", packet_with(0xE000), 20},
        {"a VLAN that is not there", packet_with(40), std::nullopt},
        {"from a multicast address", PacketBytes(shortest_packet, std::byte{0xFF}), std::nullopt},
    };
    for (const auto &row : rows) {
        path.receive({.port = port, .bytes = row.bytes});
        const auto access = models.chips.lock();
        EXPECT_EQ(access->macs().size(), row.vlan ? 1U : 0U) << row.what;
        if (row.vlan) {
            const MacEntry *const entry = access->macs().find({.vlan = *row.vlan, .mac = source});
            ASSERT_NE(entry, nullptr) << row.what;
            EXPECT_EQ(entry->destination, MacDestination(port)) << row.what;
        }
        access->chips.macs.remove_all({});
    }
}

}  // namespace
}  // namespace quillon::driver
