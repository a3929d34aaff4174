// The pointers that a test passes to the function under test, with what has to stand behind them afterwards.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "support/byte_text.h"

namespace quillon::test {

// A pointer that fits the parameter it is passed for.
class AnyPointer {
  public:
    explicit AnyPointer(void *address) : address_(address) {}

    template <class T>
    operator T *() const  // NOLINT(google-explicit-constructor): this is what it is for
    {
        return static_cast<T *>(address_);
    }

  private:
    void *address_;
};

class Arguments {
  public:
    // Bytes that the function reads. They must stand there unchanged afterwards.
    AnyPointer in(std::string_view bytes);

    // One value that the function writes when the exchange succeeded.
    uint8_t *out_u8(uint8_t value);
    uint16_t *out_u16(uint16_t value);
    uint32_t *out_u32(uint32_t value);
    uint64_t *out_u64(uint64_t value);

    // Bytes that the function writes when the exchange succeeded; open ones (--) it must leave alone.
    AnyPointer out(std::string_view bytes);

    // Bytes that the function reads and then writes.
    AnyPointer in_out(std::string_view before, std::string_view after);

    // Room that the function must leave alone even when the exchange succeeded.
    AnyPointer kept(size_t size);

    // What is wrong after the call, as lines, or an empty string.
    std::string wrong_after_success() const;
    std::string wrong_after_failure() const;

  private:
    // The function may write here and not a byte before or after.
    struct Output {
        std::vector<uint8_t> before;
        std::vector<TextByte> after;
        std::vector<uint8_t> block;
    };
    // Its block is as long as it has to be and not a byte longer, for the address sanitizer to see reads beyond it.
    struct Input {
        std::vector<uint8_t> before;
        std::vector<uint8_t> block;
    };

    void *add_output(std::vector<uint8_t> before, std::vector<TextByte> after);
    std::string wrong_inputs() const;

    std::deque<Input> inputs_;
    std::deque<Output> outputs_;
};

}  // namespace quillon::test
