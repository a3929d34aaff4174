// The room of an envelope, 20 bytes and the larger of both sizes, which are counted from `type` on, and its fields.
// What families make of it is in the wire tests.
#include "ipc/envelope.h"

#include <gtest/gtest.h>

#include "ipc/exchange.h"
#include "nicdrv/family.h"
#include "support/recording_platform.h"
#include "support/used_stack.h"

namespace quillon::test {
namespace {

using ipc::Empty;
using ipc::Envelope;
using ipc::Unused;

template <class Request, class Reply, uint32_t DataOffset>
constexpr size_t size_of_envelope = sizeof(Envelope<Request, Reply, DataOffset>);

TEST(EnvelopeTest, HasRoomForWhatTravelsInBothDirections)
{
    EXPECT_EQ((size_of_envelope<Empty, Empty, 24>), 24);
    EXPECT_EQ((size_of_envelope<Empty, Empty, 20>), 24);
    // Largest request and reply sizes that still fit, and one more byte.
    EXPECT_EQ((size_of_envelope<Unused<8>, Empty, 24>), 32);
    EXPECT_EQ((size_of_envelope<Unused<9>, Empty, 24>), 40);
    EXPECT_EQ((size_of_envelope<Empty, Unused<8>, 24>), 32);
    EXPECT_EQ((size_of_envelope<Empty, Unused<9>, 24>), 40);
    // As many bytes travel where the data starts at +20: the gap is not counted, and its room is there all the same.
    EXPECT_EQ((size_of_envelope<Unused<8>, Empty, 20>), 32);
    EXPECT_EQ((size_of_envelope<Unused<9>, Empty, 20>), 40);
    EXPECT_EQ((size_of_envelope<Unused<1>, Unused<8208>, 24>), 8232);
    EXPECT_EQ((size_of_envelope<Unused<4>, Unused<2404>, 20>), 2432);
}

TEST(EnvelopeTest, IsAsLargeAsItsOwnCommandNeeds)
{
    struct alignas(8) Wide {
        uint64_t value;
    };
    EXPECT_EQ((size_of_envelope<Wide, Unused<4>, 24>), 32);
    EXPECT_EQ((alignof(Envelope<Unused<1>, Empty, 20>)), 8);
}

TEST(EnvelopeTest, SendsTheWholeWordOfANarrowField)
{
    struct Narrow {
        ipc::Padded<uint8_t> byte;
        ipc::Padded<uint16_t> half;
    };
    reset_platform();
    platform().answer = [](const SentRequest &) { return PlayedReply{}; };
    leave_garbage_on_the_stack();

    ipc::call<nicdrv::Command<2, Narrow>>({.byte = uint8_t{0x91}, .half = uint16_t{0xA2A1}});

    EXPECT_EQ(
        differences(bytes_of("--*8 25000C00 --*4 02000000 --*4 91000000 A1A20000"), platform().sent.at(0).envelope),
        "");
}

}  // namespace
}  // namespace quillon::test
