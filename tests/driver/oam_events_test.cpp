#include "host/driver/model/oam_events.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <set>

namespace quillon::driver {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr OamEvent lost = OamEvent::loss_of_continuity;
constexpr OamEvent mismerge = OamEvent::mismerge;
constexpr pid_t client = 100;
constexpr pid_t other_client = 200;

struct OamBindingsTest : testing::Test {
    // Binds for `client`.
    OamBindings::Handle bind(const OamEvents &events, uint32_t tag = 0)
    {
        return bindings.bind({client, events, tag}).value();
    }

    std::optional<bool> wait(OamBindings::Handle handle, OamBindings::WaitId id, const OamEvents &events)
    {
        return bindings.wait(client, handle, id, {.events = events, .deadline = std::nullopt});
    }

    std::set<pid_t> ended;
    OamBindings bindings{[this](pid_t process) { return !ended.contains(process); }};
};

TEST_F(OamBindingsTest, DeliverEachEventOnce)
{
    const auto one = bind(lost, 1);
    const auto two = bind(lost, 2);
    const auto every = bind(OamEvents::all());
    EXPECT_EQ(wait(one, 1, lost), std::nullopt);
    EXPECT_EQ(wait(every, 2, OamEvents::all()), std::nullopt);
    EXPECT_EQ(wait(every, 3, mismerge), std::nullopt);

    // The second binding does not wait: what comes is kept for it, and for nobody else.
    auto raised = bindings.raise(lost);
    EXPECT_EQ(raised.bindings, 3U);
    EXPECT_THAT(raised.waits, ElementsAre(1, 2));
    EXPECT_EQ(bindings.raise(lost).bindings, 3U);
    raised = bindings.raise(mismerge);
    EXPECT_EQ(raised.bindings, 1U);
    EXPECT_THAT(raised.waits, ElementsAre(3));

    for (const auto &[handle, kept] : {std::pair(one, 1), {two, 2}, {every, 1}}) {
        for (int i = 0; i < kept; ++i) {
            EXPECT_EQ(wait(handle, 4, OamEvents::all()), true);
        }
        EXPECT_EQ(wait(handle, 10 + handle, OamEvents::all()), std::nullopt);
    }
}

// When the callers whose waits it ended had given up.
TEST_F(OamBindingsTest, DeliverAnEventOnceMore)
{
    const auto one = bind(lost, 1);
    bind(lost, 2);
    EXPECT_THAT(bindings.deliver(lost, one), IsEmpty());
    EXPECT_EQ(wait(one, 1, lost), true);
    EXPECT_EQ(wait(one, 2, lost), std::nullopt);
    EXPECT_THAT(bindings.deliver(lost, one), ElementsAre(2));
    EXPECT_EQ(bindings.unbind({client, lost, 1}), std::vector<OamBindings::WaitId>{});
    EXPECT_THAT(bindings.deliver(lost, one), IsEmpty());
}

TEST_F(OamBindingsTest, RefuseWaitsThatNothingCanEnd)
{
    const auto handle = bind(lost);
    EXPECT_EQ(wait(handle, 1, mismerge), false);
    EXPECT_EQ(wait(handle + 1, 1, lost), false);
    EXPECT_EQ(wait(0, 1, lost), false);
    EXPECT_EQ(bindings.wait(other_client, handle, 1, {.events = lost, .deadline = std::nullopt}), false);
    EXPECT_THAT(bindings.raise(lost).waits, IsEmpty());
}

TEST_F(OamBindingsTest, EndWaitsWithTheirBinding)
{
    const auto one = bind(lost, 1);
    const auto two = bind(lost, 2);
    const auto others = bindings.bind({other_client, lost, 1}).value();
    EXPECT_EQ(wait(one, 1, lost), std::nullopt);
    EXPECT_EQ(wait(two, 2, lost), std::nullopt);
    EXPECT_EQ(bindings.wait(other_client, others, 3, {.events = lost, .deadline = std::nullopt}), std::nullopt);

    for (const OamSubscription &nobodys : {OamSubscription{client, lost, 3}, {client, mismerge, 1}, {300, lost, 1}}) {
        EXPECT_EQ(bindings.unbind(nobodys), std::nullopt);
    }
    const auto ended_waits = bindings.unbind({client, lost, 1});
    ASSERT_TRUE(ended_waits);
    EXPECT_THAT(*ended_waits, ElementsAre(1));
    EXPECT_EQ(wait(one, 4, lost), false);
    EXPECT_THAT(bindings.raise(lost).waits, ElementsAre(2, 3));
}

TEST_F(OamBindingsTest, EndWaitsInTime)
{
    const OamWait::Clock::time_point start;
    const auto handle = bind(lost);
    const auto wait_until = [&](OamBindings::WaitId id, milliseconds time) {
        EXPECT_EQ(bindings.wait(client, handle, id, {.events = lost, .deadline = start + time}), std::nullopt);
    };
    EXPECT_EQ(bindings.next_deadline(), std::nullopt);
    EXPECT_EQ(wait(handle, 1, lost), std::nullopt);
    EXPECT_EQ(bindings.next_deadline(), std::nullopt);
    wait_until(2, milliseconds(20));
    wait_until(3, milliseconds(10));
    wait_until(4, milliseconds(30));
    EXPECT_EQ(bindings.next_deadline(), start + milliseconds(10));

    EXPECT_THAT(bindings.expire(start + milliseconds(9)), IsEmpty());
    EXPECT_THAT(bindings.expire(start + milliseconds(20)), ElementsAre(2, 3));
    bindings.cancel(4);
    EXPECT_EQ(bindings.next_deadline(), std::nullopt);
    EXPECT_THAT(bindings.raise(lost).waits, ElementsAre(1));
}

TEST_F(OamBindingsTest, GoWithTheirClient)
{
    for (size_t i = 0; i < OamBindings::most; ++i) {
        EXPECT_TRUE(bindings.bind({i % 2 == 0 ? client : other_client, lost, 0}));
    }
    EXPECT_EQ(bindings.bind({client, lost, 0}), std::nullopt);
    ended.insert(other_client);
    EXPECT_TRUE(bindings.bind({client, lost, 0}));
    EXPECT_EQ(bindings.raise(lost).bindings, OamBindings::most / 2 + 1);
    ended.insert(client);
    EXPECT_EQ(bindings.raise(lost).bindings, 0U);
}

}  // namespace
}  // namespace quillon::driver
