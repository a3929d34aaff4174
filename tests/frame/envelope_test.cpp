// The room of an envelope: 20 bytes and the larger of both sizes, which are counted from `type` on.
#include "ipc/envelope.h"

#include <gtest/gtest.h>

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

TEST(EnvelopeTest, StartsItsDataWhereTheFamilyDoes)
{
    const Envelope<Unused<4>, Unused<4>, 24> at_24{};
    const Envelope<Unused<4>, Unused<4>, 20> at_20{};
    const auto offset_in = [](const auto &envelope) {
        return reinterpret_cast<const char *>(&envelope.data) - reinterpret_cast<const char *>(&envelope);
    };
    EXPECT_EQ(offset_in(at_24), 24);
    EXPECT_EQ(offset_in(at_20), 20);
}

}  // namespace
}  // namespace quillon::test
