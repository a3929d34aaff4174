// What is sent and received through the packet path of a driver process, and what it refuses.
#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <stdint.h>
#include <string.h>

#include <algorithm>
#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "e2e/support/packet_client.h"

namespace quillon::test {
namespace {

using testing::HasSubstr;
using testing::UnorderedElementsAreArray;

using PortList = uint8_t[8];

// A packet of the test's that was looped back: where, of which class, and the tag that it got on the way, if it did.
using Looped = std::tuple<uint32_t, uint32_t, uint32_t, uint32_t>;

struct PacketPathTest : PacketClientTest {
    PacketPathTest()
    {
        memset(descriptor, 0, 80);
        for (uint8_t i = 0; i < 60; ++i) {
            data[i] = i;
        }
    }

    // What comes, and is given back at once.
    static std::vector<Looped> looped(size_t count)
    {
        std::vector<Looped> back;
        for (const QuillonReceivedPacket &packet : receive(count)) {
            const uint8_t *const bytes = quillon_received_data(&packet);
            const bool tag = packet.length == 64;
            EXPECT_TRUE(tag || packet.length == 60) << packet.length;
            for (uint8_t i = 0; i < 60; ++i) {
                EXPECT_EQ(bytes[tag && i >= 12 ? i + 4 : i], i);
            }
            uint32_t tag_bytes = 0;
            memcpy(&tag_bytes, bytes + 12, sizeof tag_bytes);
            back.emplace_back(packet.unit, packet.port, packet.cookie, tag ? ntohl(tag_bytes) : 0);
            EXPECT_EQ(give_back(packet), 1);
        }
        return back;
    }

    std::string shown(const std::string &beginning) const
    {
        for (const std::string &line : lines_of(told({"packet-path"}))) {
            if (line.starts_with(beginning)) {
                return line;
            }
        }
        return {};
    }

    uint8_t *const descriptor = quillon_transmit_area();
    uint8_t *const data = descriptor + 128;
};

TEST_F(PacketPathTest, LoopsBackWhatIsSent)
{
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateVlan(20), 1);
    for (const uint32_t port : {3U, 28U}) {
        EXPECT_EQ(DEV_SWDRV_PMGR_AddPortVlanSet(2, port, 20), 1);
    }
    EXPECT_EQ(DEV_SWDRV_PMGR_AddPortUntaggedVlanSet(2, 28, 20), 1);
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPortPVID(2, 3, 20), 1);

    const PortList three_ports = {0x05, 0, 0, 0x08};
    const PortList one_of_them = {0x04};
    const struct {
        std::function<uint8_t()> send;
        std::vector<Looped> expected;
    } rows[] = {
        {[&] { return DEV_NICDRV_PMGR_SendPacketToPort(1, 5, 0, 0, data, 60, 3, 0x77, descriptor); }, {{1, 5, 3, 0}}},
        {[&] { return DEV_NICDRV_PMGR_SendPacketToPort(2, 1, 1, 100, data, 60, 5, 0, descriptor); },
         {{2, 1, 5, 0x8100'A064}}},
        {[&] { return DEV_NICDRV_PMGR_SendPacketByPort(2, 3, 0, data, 60, 7, 0, descriptor); }, {{2, 3, 7, 0}}},
        {[&] { return DEV_NICDRV_PMGR_SendPacketByPort(2, 3, 1, data, 60, 7, 0, descriptor); },
         {{2, 3, 7, 0x8100'E014}}},
        {[&] { return DEV_NICDRV_PMGR_SendPacketByPortList(2, three_ports, one_of_them, data, 60, 0, 0, descriptor); },
         {{2, 1, 0, 0}, {2, 3, 0, 0x8100'0014}, {2, 28, 0, 0}}},
        {[&] { return DEV_NICDRV_PMGR_SendPacketByVid(20, data, 60, 1, 0, descriptor); },
         {{2, 3, 1, 0x8100'2014}, {2, 28, 1, 0}}},
        {[&] { return DEV_NICDRV_PMGR_SendIUCPacket(data, 60, 2, 6); }, {{2, 0, 6, 0}}},
    };

    EXPECT_EQ(rows[0].send(), 1) << "without a loop";
    told({"loop-back", "on"});
    size_t sent = 1;
    for (const auto &row : rows) {
        EXPECT_EQ(row.send(), 1);
        EXPECT_THAT(looped(row.expected.size()), UnorderedElementsAreArray(row.expected));
        sent += row.expected.size();
    }
    told({"loop-back", "off"});
    EXPECT_EQ(rows[0].send(), 1);
    EXPECT_EQ(shown("received "), "received fetched=" + std::to_string(sent - 1) + " waiting=0");
    EXPECT_THAT(shown("sent "), HasSubstr("sent packets=" + std::to_string(sent + 1) + " "));
}

TEST_F(PacketPathTest, ForwardsAReceivedPacketWhereItIs)
{
    constexpr uint16_t receive_buffer = 1;
    told({"loop-back", "on"});
    inject(4);
    const QuillonReceivedPacket first = receive(1).at(0);
    memcpy(descriptor + 72, &receive_buffer, sizeof receive_buffer);
    EXPECT_EQ(DEV_NICDRV_PMGR_SendPacketToPort(2, 6, 0, 0, quillon_received_data(&first), 60, 3, 0, descriptor), 1);
    const QuillonReceivedPacket second = receive(1).at(0);
    EXPECT_EQ(std::tuple(second.unit, second.port, second.cookie), std::tuple(2U, 6U, 3U));
    EXPECT_EQ(memcmp(quillon_received_data(&second), quillon_received_data(&first), 60), 0);
    EXPECT_EQ(give_back(first), 1);
    EXPECT_EQ(give_back(second), 1);
}

TEST_F(PacketPathTest, RefusesWhatCannotBeSent)
{
    const PortList port_1 = {0x01};
    const PortList port_3 = {0x04};
    const PortList port_29 = {0, 0, 0, 0x10};
    const PortList none = {};
    uint32_t entry = 0;
    const struct {
        const char *what;
        std::function<uint8_t()> send;
    } rows[] = {
#define TO_PORT(...) [&] { return DEV_NICDRV_PMGR_SendPacketToPort(__VA_ARGS__); }
        {"a unit that is not there", TO_PORT(3, 1, 0, 0, data, 60, 0, 0, descriptor)},
        {"a port that is not there", TO_PORT(1, 29, 0, 0, data, 60, 0, 0, descriptor)},
        {"no such flag", TO_PORT(1, 1, 2, 1, data, 60, 0, 0, descriptor)},
        {"no VLAN", TO_PORT(1, 1, 1, 0, data, 60, 0, 0, descriptor)},
        {"the reserved VLAN", TO_PORT(1, 1, 1, 4095, data, 60, 0, 0, descriptor)},
        {"too short", TO_PORT(1, 1, 0, 0, data, 13, 0, 0, descriptor)},
        {"too long", TO_PORT(1, 1, 0, 0, data, 9239, 0, 0, descriptor)},
        {"no such class", TO_PORT(1, 1, 0, 0, data, 60, 8, 0, descriptor)},
        {"data outside", TO_PORT(1, 1, 0, 0, &entry, 60, 0, 0, descriptor)},
#undef TO_PORT
        {"by port", [&] { return DEV_NICDRV_PMGR_SendPacketByPort(1, 0, 0, data, 60, 0, 0, descriptor); }},
        {"to no ports",
         [&] { return DEV_NICDRV_PMGR_SendPacketByPortList(1, none, none, data, 60, 0, 0, descriptor); }},
        {"to a port past the last",
         [&] { return DEV_NICDRV_PMGR_SendPacketByPortList(1, port_29, none, data, 60, 0, 0, descriptor); }},
        {"with a tag where it does not go",
         [&] { return DEV_NICDRV_PMGR_SendPacketByPortList(1, port_3, port_1, data, 60, 0, 0, descriptor); }},
        {"to the ports of no unit",
         [&] { return DEV_NICDRV_PMGR_SendPacketByPortList(0, port_1, none, data, 60, 0, 0, descriptor); }},
        {"a VLAN that is not there", [&] { return DEV_NICDRV_PMGR_SendPacketByVid(2, data, 60, 0, 0, descriptor); }},
        {"data far below", [&] { return DEV_NICDRV_PMGR_SendPacketByVid(1, &entry, 60, 0, 0, descriptor); }},
        {"between units, to none", [&] { return DEV_NICDRV_PMGR_SendIUCPacket(data, 60, 3, 0); }},
        {"between units, outside", [&] { return DEV_NICDRV_PMGR_SendIUCPacket(&entry, 60, 1, 0); }},
    };
    told({"loop-back", "on"});
    for (const auto &row : rows) {
        EXPECT_EQ(row.send(), 0) << row.what;
    }
    EXPECT_EQ(DEV_NICDRV_PMGR_AddPacketGenByPort(1, 29, 0, data, 60, 0, descriptor, 0, &entry), 0);
    EXPECT_EQ(shown("sent "), "sent packets=0 bytes=0 refused=" + std::to_string(std::size(rows)) + " loop-back=on");
    EXPECT_THAT(shown("generator 0 "), HasSubstr("entries=0"));
}

TEST_F(PacketPathTest, GeneratesPackets)
{
    told({"loop-back", "on"});
    uint32_t entry = 0;
    EXPECT_EQ(DEV_NICDRV_PMGR_AddPacketGenByPort(1, 1, 0, data, 60, 1, descriptor, 7, &entry), 1);
    EXPECT_EQ(entry, 1U);
    EXPECT_EQ(DEV_NICDRV_PMGR_AddPacketGenByPort(1, 2, 0, data, 60, 2, descriptor, 7, &entry), 1);
    EXPECT_EQ(entry, 2U);
    EXPECT_EQ(DEV_NICDRV_PMGR_UpdatePacketGenByPort(2, 2, 1, data, 60, 3, descriptor, 7, entry), 1);

    uint64_t wanted = 5'000'000;
    uint64_t rate = 0;
    EXPECT_EQ(DEV_NICDRV_PMGR_SetPacketGenRate(7, &wanted, &rate), 1);
    EXPECT_EQ(rate, 100'000U);
    wanted = 1500;
    EXPECT_EQ(DEV_NICDRV_PMGR_SetPacketGenRate(7, &wanted, &rate), 1);
    EXPECT_EQ(rate, 1500U);
    EXPECT_EQ(DEV_NICDRV_PMGR_EnablePacketGen(7, 1, 1, 31), 1);
    const std::vector<Looped> back = looped(31);
    EXPECT_EQ(std::ranges::count(back, Looped(1, 1, 1, 0)), 16);
    EXPECT_EQ(std::ranges::count(back, Looped(2, 2, 3, 0x8100'6001)), 15);
    EXPECT_EQ(shown("generator 7 "), "generator 7 entries=2 rate=1500 sent=31 stopped");

    // Until it is told to stop.
    EXPECT_EQ(DEV_NICDRV_PMGR_EnablePacketGen(7, 1, 0, 0), 1);
    EXPECT_THAT(shown("generator 7 "), HasSubstr(" running"));
    looped(40);
    EXPECT_EQ(DEV_NICDRV_PMGR_EnablePacketGen(7, 0, 0, 0), 1);
    EXPECT_THAT(shown("generator 7 "), HasSubstr(" stopped"));

    EXPECT_EQ(DEV_NICDRV_PMGR_EnablePacketGen(7, 2, 0, 0), 0);
    EXPECT_EQ(DEV_NICDRV_PMGR_UpdatePacketGenByPort(2, 2, 1, data, 60, 3, descriptor, 7, 3), 0);
    EXPECT_EQ(DEV_NICDRV_PMGR_RemovePacketGen(7, 2), 1);
    EXPECT_EQ(DEV_NICDRV_PMGR_RemovePacketGen(7, 2), 0);
}

TEST_F(PacketPathTest, CountsWhatIsReceivedAndRefusesWhatIsNotOnLoan)
{
    inject(9, 2, 37);
    inject(10, 1, 0xFFFFFFFF);
    const auto packets = receive(3);
    ASSERT_EQ(packets.size(), 3U);
    EXPECT_EQ(record().pool_held[9], 2U);
    EXPECT_EQ(record().cookie10_held, 1U);
    EXPECT_EQ(record().total_held, 2U);
    EXPECT_EQ(packets[0].cpu_code, 37U);
    EXPECT_EQ(packets[2].cpu_code, 0xFFFFFFFFU);
    EXPECT_EQ(packets[0].unit, 1U);
    EXPECT_EQ(packets[0].port, 5U);

    for (const QuillonReceivedPacket &packet : packets) {
        EXPECT_EQ(give_back(packet), 1);
        EXPECT_EQ(give_back(packet), 0) << "twice";
    }
    EXPECT_EQ(DEV_NICDRV_PMGR_FreeRxPacket(descriptor), 0);
    EXPECT_EQ(record().free_ok_count, 3U);
    EXPECT_EQ(record().free_fail_count, 3U);
    EXPECT_EQ(record().total_held, 0U);

    struct {
        uint64_t packets, bytes, dropped;
    } by_cookie[62];
    static_assert(sizeof by_cookie == sizeof(NicPriInfo));
    NicPriInfo info;
    EXPECT_EQ(DEV_NICDRV_PMGR_PriInfo(&info), 1);
    memcpy(by_cookie, &info, sizeof info);
    EXPECT_EQ(by_cookie[9].packets, 2U);
    EXPECT_EQ(by_cookie[9].bytes, 120U);
    EXPECT_EQ(by_cookie[10].packets, 1U);
    EXPECT_EQ(by_cookie[0].packets, 0U);

    NicMemStatus memory;
    NicRxSummary summary;
    EXPECT_EQ(DEV_NICDRV_PMGR_MemStatus(&memory), 1);
    EXPECT_EQ(memory.values[0], 704U);
    EXPECT_EQ(memory.values[2], 4U) << "refused frees";
    EXPECT_EQ(DEV_NICDRV_PMGR_Clear(), 1);
    EXPECT_EQ(DEV_NICDRV_PMGR_MemStatus(&memory), 1);
    EXPECT_EQ(memory.values[2], 0U);
    EXPECT_EQ(DEV_NICDRV_PMGR_RxSummary(&summary), 1);
    EXPECT_EQ(summary.values[0], 0U);
}

TEST_F(PacketPathTest, TimesOutWhenNoPacketComes)
{
    QuillonReceivedPacket packet;
    uint32_t count = 0;
    for (const uint32_t wait_time : {0U, 1U, 20U}) {
        EXPECT_EQ(quillon_receive_packets(&packet, 1, wait_time, &count), QUILLON_STATUS_TIMED_OUT);
    }
    EXPECT_EQ(quillon_receive_packets(&packet, 0, QUILLON_WAIT_FOREVER, &count), QUILLON_STATUS_BAD_ARGUMENT);
    EXPECT_EQ(count, 0U);
    inject(1);
    EXPECT_EQ(give_back(receive(1).at(0)), 1);
}

}  // namespace
}  // namespace quillon::test
