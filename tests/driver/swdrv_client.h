// The switch driver's requests through the client library, against a model that the test sees.
#pragma once

#include <gtest/gtest.h>
#include <stdint.h>

#include <functional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "driver/served_dispatcher.h"
#include "host/driver/handlers.h"
#include "host/driver/models.h"
#include "quillon/swdrv.h"

namespace quillon::test {

// Two units of 28 ports on 2 chips each.
class SwdrvClientTest : public testing::Test {
  protected:
    SwdrvClientTest() : models(service().models), served(service().served)
    {
        DEV_SWDRV_PMGR_InitiateProcessResource();
        const auto access = model.lock();
        access->reset_chips();
        access->lines = driver::Switch(access->stack.shape()).lines;
    }

    struct Change {
        const char *what;
        std::function<uint8_t()> call;
        std::function<bool(const driver::ChipState &)> holds;  // afterwards, and not before
    };

    using Words = driver::KeptSettings::Words;

    // For Change::holds.
    static std::function<bool(const driver::ChipState &)> kept(driver::Setting setting, const Words &key,
                                                               const Words &value)
    {
        return [=](const driver::ChipState &chips) { return chips.kept.get(setting, key) == value; };
    }

    // Each of them succeeds and does what it says, beginning with what the ones in front of it left.
    void expect_changes(const std::vector<Change> &changes)
    {
        for (const Change &change : changes) {
            EXPECT_FALSE(change.holds(model.lock()->chips)) << change.what << ": beforehand";
            EXPECT_EQ(change.call(), 1) << change.what;
            EXPECT_TRUE(change.holds(model.lock()->chips)) << change.what;
        }
    }

    // What a request answers through its last argument.
    template <class Value = uint32_t, class Get, class... Args>
    static Value answer(Get get, Args... args)
    {
        Value value = static_cast<Value>(-1);
        EXPECT_EQ(get(static_cast<uint32_t>(args)..., &value), 1);
        return value;
    }

    struct Refusal {
        const char *what;
        std::function<uint8_t()> call;
    };

    static void expect_refused(const std::vector<Refusal> &refusals)
    {
        for (const Refusal &refusal : refusals) {
            EXPECT_EQ(refusal.call(), 0) << refusal.what;
        }
    }

    // The request is refused with any of these arguments replaced by the wrong one in its place, and then taken as it
    // is. Where both are the same, none is wrong.
    template <class Result, class... Args>
    static void expect_checked(Result (*request)(Args...), const std::tuple<std::type_identity_t<Args>...> &arguments,
                               const std::tuple<std::type_identity_t<Args>...> &wrong, int line = __builtin_LINE())
    {
        expect_wrong_refused(request, arguments, wrong, line);
        EXPECT_EQ(std::apply(request, arguments), 1U) << "line " << line;
    }

    // The same of a request that keeps a setting.
    template <class Result, class... Args>
    void expect_kept(Result (*request)(Args...), const std::tuple<std::type_identity_t<Args>...> &arguments,
                     const std::tuple<std::type_identity_t<Args>...> &wrong, driver::Setting setting, const Words &key,
                     const Words &value, int line = __builtin_LINE())
    {
        const Words before = model.lock()->chips.kept.get(setting, key);
        EXPECT_NE(before, value) << "line " << line;
        expect_wrong_refused(request, arguments, wrong, line);
        EXPECT_EQ(model.lock()->chips.kept.get(setting, key), before) << "line " << line;
        EXPECT_EQ(std::apply(request, arguments), 1U) << "line " << line;
        EXPECT_EQ(model.lock()->chips.kept.get(setting, key), value) << "line " << line;
    }

  private:
    template <class Result, class... Args>
    static void expect_wrong_refused(Result (*request)(Args...), const std::tuple<Args...> &arguments,
                                     const std::tuple<Args...> &wrong, int line)
    {
        const auto expect_refused_with = [&]<size_t i>(std::integral_constant<size_t, i>) {
            auto changed = arguments;
            std::get<i>(changed) = std::get<i>(wrong);
            EXPECT_TRUE(changed == arguments || std::apply(request, changed) == 0)
                << "line " << line << ", argument " << i + 1;
        };
        [&]<size_t... i>(std::index_sequence<i...>)
        {
            (expect_refused_with(std::integral_constant<size_t, i>()), ...);
        }
        (std::index_sequence_for<Args...>());
    }

    struct Service {
        driver::Models models{driver::StackShape{.units = 2, .ports = 28, .chips = 2}};
        ServedDispatcher served{[this](driver::Dispatcher &dispatcher) { add_handlers(dispatcher, models); }};
    };

    // One for all tests: a process looks its run-time folder up once.
    static Service &service()
    {
        static Service for_this_process;
        return for_this_process;
    }

  protected:
    driver::Models &models;
    driver::SharedSwitch &model = models.chips;
    ServedDispatcher &served;
};

}  // namespace quillon::test
