// The counters' requests through the client library.
#include "quillon/nmtrdrv.h"

#include <gtest/gtest.h>
#include <stdint.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <vector>

#include "driver/swdrv_client.h"
#include "host/driver/reception.h"
#include "quillon/devrm.h"

namespace quillon::test {
namespace {

using driver::FrameKind;
using driver::LogicalPort;

constexpr LogicalPort port{2, 5};

template <class Record>
using Columns = std::array<uint64_t, sizeof(Record) / sizeof(uint64_t)>;

template <class Record>
using Read = uint8_t (*)(uint32_t, uint32_t, uint32_t, Record *);

template <class Record>
Columns<Record> columns(Read<Record> read, const LogicalPort &of = port)
{
    Record record;
    EXPECT_EQ(read(of.unit, of.port, of.port, &record), 1);
    return std::bit_cast<Columns<Record>>(record);
}

struct NmtrdrvTest : SwdrvClientTest {
    NmtrdrvTest() { DEV_NMTRDRV_PMGR_InitiateProcessResource(); }

    void receive(FrameKind kind, uint32_t size, uint64_t count, const LogicalPort &at = port)
    {
        model.lock()->chips.traffic.find(at)->receive({.kind = kind, .size = size, .count = count});
    }
    void send(FrameKind kind, uint32_t size, uint64_t count)
    {
        model.lock()->chips.traffic.find(port)->send({.kind = kind, .size = size, .count = count});
    }
};

TEST_F(NmtrdrvTest, LaysRecordsOut)
{
    receive(FrameKind::unicast, 64, 3);
    receive(FrameKind::unicast, 9242, 1);
    receive(FrameKind::multicast, 127, 2);
    receive(FrameKind::broadcast, 1518, 1);
    receive(FrameKind::pause, 64, 4);
    receive(FrameKind::fcs_error, 64, 5);
    receive(FrameKind::alignment_error, 100, 6);
    receive(FrameKind::unicast, 63, 7);
    receive(FrameKind::fcs_error, 63, 8);
    receive(FrameKind::unicast, 9243, 9);
    receive(FrameKind::alignment_error, 9243, 10);
    send(FrameKind::unicast, 65, 11);
    send(FrameKind::multicast, 66, 12);
    send(FrameKind::broadcast, 67, 13);
    send(FrameKind::pause, 64, 14);
    model.lock()->chips.traffic.find(port)->discard();
    EXPECT_EQ(DEV_SWDRV_PMGR_SetPortCfgFlowCtrl(port.unit, port.port, 1), 1);

    const Columns<IfXTableStats> if_x_table = {2, 1, 12, 13, 11'462, 4, 2, 1, 3274, 11, 12, 13, 1000};
    EXPECT_EQ(columns(DEV_NMTRDRV_PMGR_GetIfTableStats),
              (Columns<IfTableStats>{11'462, 4, 3, 1, 30, 0, 3274, 11, 25, 0, 0, 0}));
    EXPECT_EQ(columns(DEV_NMTRDRV_PMGR_GetIfXTableStats), if_x_table);
    EXPECT_EQ(columns(DEV_NMTRDRV_PMGR_GetAutoTrafficControlIfXTableStats), if_x_table);
    EXPECT_EQ(columns(DEV_NMTRDRV_PMGR_GetRmonStats),
              (Columns<RmonStats>{0, 188'944, 56, 1, 6, 11, 7, 9, 8, 10, 0, 12, 8, 0, 0, 0, 1}));
    EXPECT_EQ(columns(DEV_NMTRDRV_PMGR_GetEtherLikeStats),
              (Columns<EtherLikeStats>{6, 5, 0, 0, 0, 0, 0, 0, 0, 0, 19, 0, 0, 3, 0}));
    EXPECT_EQ(columns(DEV_NMTRDRV_PMGR_GetEtherLikePause), (Columns<EtherLikePause>{0x3'0000'0003, 4, 14}));

    model.lock()->lines.find(port)->plugged = false;
    EXPECT_EQ(columns(DEV_NMTRDRV_PMGR_GetIfXTableStats)[12], 0U);
    EXPECT_EQ(columns(DEV_NMTRDRV_PMGR_GetEtherLikeStats)[13], 1U);
    EXPECT_EQ(columns(DEV_NMTRDRV_PMGR_GetEtherLikePause)[0], 0x1'0000'0003U);
}

TEST_F(NmtrdrvTest, CountsFramesBySize)
{
    constexpr size_t first = 11;
    constexpr size_t none = 6;
    const struct {
        uint32_t size;
        size_t counted;
    } rows[] = {{63, none}, {64, 0},  {65, 1},   {127, 1},  {128, 2},  {255, 2},    {256, 3},
                {511, 3},   {512, 4}, {1023, 4}, {1024, 5}, {1518, 5}, {1519, none}};
    for (const auto &row : rows) {
        EXPECT_EQ(DEV_NMTRDRV_PMGR_ClearPortCounter(port.unit, port.port), 1);
        receive(FrameKind::unicast, row.size, 1);
        const auto rmon = columns(DEV_NMTRDRV_PMGR_GetRmonStats);
        for (size_t i = 0; i < none; ++i) {
            EXPECT_EQ(rmon[first + i], i == row.counted ? 1U : 0U) << row.size;
        }
    }
}

TEST_F(NmtrdrvTest, CountsPacketsThatComeIn)
{
    DEVRM_PMGR_InitiateProcessResource();
    const auto packet = [](std::vector<uint8_t> destination, uint16_t type, size_t size = 60, uint8_t opcode = 0) {
        std::vector<std::byte> bytes(size);
        std::ranges::transform(destination, bytes.begin(), [](uint8_t byte) { return std::byte{byte}; });
        bytes[12] = static_cast<std::byte>(type >> 8);
        bytes[13] = static_cast<std::byte>(type);
        if (opcode != 0) {
            bytes[15] = std::byte{opcode};
        }
        return bytes;
    };
    const auto come_in = [&](const std::vector<std::byte> &bytes) {
        EXPECT_TRUE(receive_packet(model, port, bytes).has_value());
    };
    come_in(packet({0x02, 0, 0, 0, 0, 1}, 0x0800, 14));
    come_in(packet({0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}, 0x0806, 61));
    come_in(packet({0x01, 0x80, 0xC2, 0, 0, 0x01}, 0x8808, 60, 1));
    come_in(packet({0x01, 0x80, 0xC2, 0, 0, 0x01}, 0x8808, 60, 2));
    come_in(packet({0x01, 0x80, 0xC2, 0, 0, 0x01}, 0x0800, 60, 1));
    come_in(packet({0x01, 0x80, 0xC2, 0, 0, 0x01}, 0x8808, 14));
    EXPECT_EQ(DEVRM_PMGR_CreatePcl(port.unit, 7, 1, 10, 4), 1);
    EXPECT_EQ(DEVRM_PMGR_BindPclToPort(port.unit, 7, port.port), 1);
    come_in(packet({0x33, 0x33, 0, 0, 0, 1}, 0x86DD));

    EXPECT_EQ(columns(DEV_NMTRDRV_PMGR_GetIfTableStats),
              (Columns<IfTableStats>{6 * 64 + 65, 1, 5, 1, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(columns(DEV_NMTRDRV_PMGR_GetIfXTableStats)[0], 4U);
    EXPECT_EQ(columns(DEV_NMTRDRV_PMGR_GetIfXTableStats)[1], 1U);
    EXPECT_EQ(columns(DEV_NMTRDRV_PMGR_GetEtherLikePause)[1], 1U);
}

TEST_F(NmtrdrvTest, CountsPacketsThatTheCpuSends)
{
    const driver::SentPacket packet{.port = port, .bytes = driver::PacketBytes(100)};
    models.packets.send(packet);
    models.packets.send({.port = {port.unit, driver::SentPacket::cpu_port}, .bytes = packet.bytes});
    model.lock()->lines.find(port)->plugged = false;
    models.packets.send(packet);
    EXPECT_EQ(columns(DEV_NMTRDRV_PMGR_GetIfTableStats), (Columns<IfTableStats>{0, 0, 0, 0, 0, 0, 104, 1, 0, 0, 0, 0}));
}

TEST_F(NmtrdrvTest, ClearsOnePortAndAll)
{
    const LogicalPort ports[] = {{1, 5}, {2, 5}, {2, 6}};
    const auto counts = [&](Read<IfXTableStats> read) {
        std::array<uint64_t, 3> unicast;
        std::ranges::transform(ports, unicast.begin(), [&](const LogicalPort &each) { return columns(read, each)[5]; });
        return unicast;
    };
    using Counts = std::array<uint64_t, 3>;
    for (const LogicalPort &each : ports) {
        receive(FrameKind::unicast, 64, 10 * each.unit + each.port, each);
    }
    EXPECT_EQ(counts(DEV_NMTRDRV_PMGR_GetIfXTableStats), (Counts{15, 25, 26}));
    EXPECT_EQ(DEV_NMTRDRV_PMGR_ClearPortCounter(2, 5), 1);
    EXPECT_EQ(counts(DEV_NMTRDRV_PMGR_GetIfXTableStats), (Counts{15, 0, 26}));
    receive(FrameKind::unicast, 64, 1);
    EXPECT_EQ(counts(DEV_NMTRDRV_PMGR_GetIfXTableStats), (Counts{15, 1, 26}));
    EXPECT_EQ(DEV_NMTRDRV_PMGR_ClearAllCounters(), 1);
    EXPECT_EQ(counts(DEV_NMTRDRV_PMGR_GetIfXTableStats), (Counts{0, 0, 0}));
    EXPECT_EQ(counts(DEV_NMTRDRV_PMGR_GetAutoTrafficControlIfXTableStats), (Counts{15, 26, 26}));
}

TEST_F(NmtrdrvTest, ReadsRangesOfPorts)
{
    receive(FrameKind::unicast, 64, 1, {1, 28});
    receive(FrameKind::unicast, 64, 9, {2, 1});
    std::array<IfTableStats, 28> records;
    records.fill({{0xEE}});
    EXPECT_EQ(DEV_NMTRDRV_PMGR_GetIfTableStats(1, 27, 28, records.data()), 1);
    EXPECT_EQ(std::bit_cast<Columns<IfTableStats>>(records[0])[0], 0U);
    EXPECT_EQ(std::bit_cast<Columns<IfTableStats>>(records[1])[0], 64U);
    EXPECT_EQ(records[2].bytes[0], 0xEE);
    EXPECT_EQ(DEV_NMTRDRV_PMGR_GetIfTableStats(1, 1, 28, records.data()), 1);
    EXPECT_EQ(std::bit_cast<Columns<IfTableStats>>(records[27])[0], 64U);

    const struct {
        uint32_t unit, first, last;
        uint8_t result;
    } rows[] = {{1, 5, 4, 1}, {1, 0, UINT32_MAX, 1}, {0, 5, 4, 0},   {3, 1, 1, 0},
                {1, 0, 3, 0}, {1, 28, 29, 0},        {1, 29, 29, 0}, {1, UINT32_MAX - 1, UINT32_MAX, 0}};
    for (const auto &row : rows) {
        EXPECT_EQ(DEV_NMTRDRV_PMGR_GetIfTableStats(row.unit, row.first, row.last, records.data()), row.result)
            << row.unit << ' ' << row.first << ' ' << row.last;
    }
    StatsAbility ability;
    expect_refused({
        {"clear no port", [] { return DEV_NMTRDRV_PMGR_ClearPortCounter(2, 29); }},
        {"no port's ability", [&] { return DEV_NMTRDRV_PMGR_GetStatsAbility(3, 1, &ability); }},
    });
}

// The library never asks for them: its callers have no room for more.
TEST(Nmtrdrv, AnswersNoMorePortsThanAReplyHolds)
{
    driver::Models models{driver::StackShape{.units = 1, .ports = 64, .chips = 2}};
    const ServedDispatcher served{[&](driver::Dispatcher &dispatcher) { add_handlers(dispatcher, models); }};
    constexpr uint32_t reply_size = 2908;
    for (const auto &[last, result] : {std::pair<uint8_t, uint8_t>{30, 1}, {31, 0}, {64, 0}}) {
        std::vector<uint8_t> envelope(40);
        envelope[8] = 126;  // the family
        envelope[10] = 20;  // what follows the header
        envelope[16] = 3;   // GetIfTableStats
        envelope[24] = 1;   // unit
        envelope[28] = 1;   // first port
        envelope[32] = last;
        const auto reply = served.client().exchange(envelope, reply_size);
        ASSERT_TRUE(reply && reply->size() == reply_size) << int(last);
        EXPECT_EQ((*reply)[16], result) << int(last);
        EXPECT_EQ(std::ranges::count(reply->begin() + 24, reply->end(), 0), reply_size - 24) << int(last);
    }
}

TEST_F(NmtrdrvTest, TellsWhatAPortCounts)
{
    StatsAbility ability;
    EXPECT_EQ(DEV_NMTRDRV_PMGR_GetStatsAbility(port.unit, port.port, &ability), 1);
    EXPECT_EQ(std::to_array(ability.bytes),
              (std::array<uint8_t, 10>{0xDF, 0xF1, 0xFF, 0xFD, 0xF7, 0x0F, 0x90, 0x1E, 64, 0}));
}

}  // namespace
}  // namespace quillon::test
