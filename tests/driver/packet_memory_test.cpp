#include "host/driver/model/packet_memory.h"

#include <gtest/gtest.h>
#include <stdint.h>

#include <initializer_list>
#include <limits>
#include <span>
#include <vector>

namespace quillon::driver {
namespace {

constexpr int64_t receive_size = 4096;
constexpr int64_t transmit_size = 12288;
constexpr int64_t descriptor = 1000;
constexpr int64_t last_descriptor = transmit_size - 80;

// A byte of the memory tells where it stands.
struct PacketMemoryTest : testing::Test {
    PacketMemoryTest()
    {
        for (size_t i = 0; i < bytes.size(); ++i) {
            bytes[i] = std::byte(i / 64 & 0xFF);
        }
        set_kind(descriptor, 0);
        set_kind(last_descriptor, 0);
    }

    void set_kind(int64_t at, uint16_t kind)
    {
        bytes[static_cast<size_t>(receive_size + at + 72)] = std::byte(kind & 0xFF);
        bytes[static_cast<size_t>(receive_size + at + 73)] = std::byte(kind >> 8);
    }

    std::vector<std::byte> bytes = std::vector<std::byte>(receive_size + transmit_size);
    PacketMemory memory{bytes, std::span(bytes).subspan(receive_size), std::span(bytes).first(receive_size)};
};

TEST_F(PacketMemoryTest, CountsOffsetsFromWhereTheDescriptorSays)
{
    for (const uint16_t kind : std::initializer_list<uint16_t>{0, 2, 0x101, 0x100}) {
        set_kind(descriptor, kind);
        EXPECT_EQ(memory.packet(128, 64, descriptor), PacketBytes(64, std::byte{(4096 + 128) / 64})) << kind;
    }
    set_kind(descriptor, 1);
    EXPECT_EQ(memory.packet(128, 64, descriptor), PacketBytes(64, std::byte{2}));
    EXPECT_EQ(memory.packet(128, 64), PacketBytes(64, std::byte{(4096 + 128) / 64}));
}

TEST_F(PacketMemoryTest, RefusesWhatIsNotInThere)
{
    constexpr int64_t far = std::numeric_limits<int64_t>::max();
    const struct {
        int64_t offset;
        uint64_t length;
        int64_t descriptor;
        bool refused;
        bool refused_anywhere;  // with an offset from the start of the whole memory
    } rows[] = {
        {0, 14, descriptor, false, false},
        {0, 13, descriptor, true, true},
        {0, 9238, descriptor, false, false},
        {0, 9239, descriptor, true, true},
        {0, UINT32_MAX, descriptor, true, true},
        {0, UINT64_MAX, descriptor, true, true},
        {transmit_size - 60, 60, descriptor, false, false},
        {transmit_size - 59, 60, descriptor, true, false},
        {receive_size + transmit_size - 60, 60, descriptor, true, false},
        {receive_size + transmit_size - 59, 60, descriptor, true, true},
        {receive_size + transmit_size, 60, descriptor, true, true},
        {UINT32_MAX, 60, descriptor, true, true},
        {-1, 60, descriptor, true, true},
        {-64, 64, descriptor, true, true},
        {far, 60, descriptor, true, true},
        {-far - 1, 60, descriptor, true, true},
        {0, 60, last_descriptor, false, false},
        {0, 60, last_descriptor + 1, true, true},
        {0, 60, transmit_size, true, true},
        {0, 60, -1, true, true},
        {0, 60, UINT32_MAX, true, true},
        {0, 60, far, true, true},
        {0, 60, -far - 1, true, true},
    };
    for (const uint16_t kind : std::initializer_list<uint16_t>{0, 1}) {
        set_kind(descriptor, kind);
        set_kind(last_descriptor, kind);
        for (const auto &row : rows) {
            EXPECT_EQ(memory.packet(row.offset, row.length, row.descriptor).has_value(),
                      kind == 1 ? !row.refused_anywhere : !row.refused)
                << row.offset << ' ' << row.length << ' ' << row.descriptor << " kind " << kind;
        }
    }
    EXPECT_FALSE(PacketMemory().packet(0, 60));
    EXPECT_FALSE(PacketMemory().packet(0, 60, 0));
}

TEST(Packet, GetsItsTagBehindItsAddresses)
{
    PacketBytes bytes(16, std::byte{0x11});
    const PacketBytes with_tag = tagged(bytes, 4094, 7);
    PacketBytes expected(20, std::byte{0x11});
    expected[12] = std::byte{0x81};
    expected[13] = std::byte{0x00};
    expected[14] = std::byte{0xEF};
    expected[15] = std::byte{0xFE};
    EXPECT_EQ(with_tag, expected);
}

}  // namespace
}  // namespace quillon::driver
