// The switch driver's requests through the client library, against a model that the test sees.
#pragma once

#include <gtest/gtest.h>
#include <stdint.h>

#include <functional>
#include <string>
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

    // For Change::holds.
    static std::function<bool(const driver::ChipState &)> kept(driver::Setting setting,
                                                               const driver::KeptSettings::Words &key,
                                                               const driver::KeptSettings::Words &value)
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

  private:
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
