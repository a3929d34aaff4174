// A fuzz input as the bytes of a small language, so that most changes of a byte make another meaningful input.
#pragma once

#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include <algorithm>
#include <span>
#include <vector>

namespace quillon::fuzz {

class Input {
  public:
    explicit Input(std::span<const uint8_t> bytes) : rest_(bytes) {}

    bool empty() const { return rest_.empty(); }

    // Zero behind the end.
    template <class T = uint8_t>
    T next()
    {
        T value{};
        const auto taken = take(sizeof value);
        memcpy(&value, taken.data(), taken.size());
        return value;
    }

    std::span<const uint8_t> take(size_t size)
    {
        const auto taken = rest_.first(std::min(size, rest_.size()));
        rest_ = rest_.subspan(taken.size());
        return taken;
    }

    // Up to the end mark, or the end. A byte is a word of that value, for that is what most fields of requests are,
    // unless it stands for one of the following.
    std::vector<uint8_t> words()
    {
        std::vector<uint8_t> words;
        std::vector<uint8_t> last(sizeof(uint32_t));
        while (!empty()) {
            const uint8_t token = next();
            if (token == end_mark) {
                break;
            }
            if (token == repetition) {
                for (uint8_t times = next(); times != 0; --times) {
                    words.insert(words.end(), last.begin(), last.end());
                }
                continue;
            }
            last = value_of(token);
            words.insert(words.end(), last.begin(), last.end());
        }
        return words;
    }

    // The same, as it stands there.
    std::span<const uint8_t> text()
    {
        const auto end = std::ranges::find(rest_, end_mark);
        const auto text = take(static_cast<size_t>(end - rest_.begin()));
        take(1);
        return text;
    }

  private:
    static constexpr uint8_t bytes_follow = 0xF9;  // their number, then they
    static constexpr uint8_t all_ones = 0xFA;
    static constexpr uint8_t repetition = 0xFB;  // of the last value, so many times
    static constexpr uint8_t word_follows = 0xFC;
    static constexpr uint8_t half_word_follows = 0xFD;
    static constexpr uint8_t byte_follows = 0xFE;
    static constexpr uint8_t end_mark = 0xFF;

    std::vector<uint8_t> value_of(uint8_t token)
    {
        switch (token) {
            case bytes_follow:
                return bytes_of(next());
            case word_follows:
                return bytes_of(4);
            case half_word_follows:
                return bytes_of(2);
            case byte_follows:
                return bytes_of(1);
            case all_ones:
                return {0xFF, 0xFF, 0xFF, 0xFF};
            default:
                return {token, 0, 0, 0};
        }
    }

    std::vector<uint8_t> bytes_of(size_t size)
    {
        const auto taken = take(size);
        return {taken.begin(), taken.end()};
    }

    std::span<const uint8_t> rest_;
};

}  // namespace quillon::fuzz
