// A PoE controller that answers each command with the command itself. A reset of the switch chips does not change it.
#pragma once

#include <stdint.h>

#include <optional>
#include <span>
#include <vector>

namespace quillon::driver {

enum class PoeStatus : uint8_t { ready, not_started, no_command };

enum class PoeLed : uint8_t { off, on, blinking };

class PoeController {
  public:
    void start()
    {
        stop();
        started_ = true;
    }

    // Its answer is lost.
    void stop()
    {
        started_ = false;
        answer_.clear();
    }

    // Anything but `ready` changes nothing.
    PoeStatus command(std::span<const uint8_t> command)
    {
        if (!started_) {
            return PoeStatus::not_started;
        }
        if (command.empty()) {
            return PoeStatus::no_command;
        }
        answer_.assign(command.begin(), command.end());
        return PoeStatus::ready;
    }

    // How `answer` is to be taken.
    PoeStatus status() const
    {
        if (!started_) {
            return PoeStatus::not_started;
        }
        return answer_.empty() ? PoeStatus::no_command : PoeStatus::ready;
    }

    std::span<const uint8_t> answer() const { return answer_; }

    PoeLed led = PoeLed::off;

  private:
    bool started_ = false;
    std::vector<uint8_t> answer_;
};

}  // namespace quillon::driver
