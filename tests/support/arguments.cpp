#include "support/arguments.h"

#include <cstring>

namespace quillon::test {
namespace {

#ifdef QUILLON_ADDRESS_SANITIZER
constexpr size_t guard_size = 0;  // it sees at once what is read or written beside a block
#else
constexpr size_t guard_size = 32;
#endif
constexpr uint8_t guard_byte = 0x6D;
constexpr uint8_t untouched_byte = 0xB7;

template <class T>
std::vector<TextByte> bytes_in_memory(T value)
{
    std::vector<uint8_t> bytes(sizeof value);
    std::memcpy(bytes.data(), &value, sizeof value);
    return {bytes.begin(), bytes.end()};
}

std::vector<TextByte> between_guards(std::span<const uint8_t> before, std::span<const TextByte> after)
{
    std::vector<TextByte> expected(guard_size, guard_byte);
    for (size_t at = 0; at < before.size(); ++at) {
        expected.emplace_back(at < after.size() && after[at] ? *after[at] : before[at]);
    }
    expected.resize(expected.size() + guard_size, guard_byte);
    return expected;
}

// Offsets in the lines are those of the caller's memory: the guard in front has the negative ones, shown from its
// start.
std::string wrong(const char *kind, size_t number, std::span<const TextByte> expected, std::span<const uint8_t> found,
                  size_t guard)
{
    const std::string lines = differences(expected, found);
    return lines.empty() ? ""
                         : std::string(kind) + " " + std::to_string(number) + ", whose first byte is +" +
                               std::to_string(guard) + " here:\n" + lines;
}

}  // namespace

AnyPointer Arguments::in(std::string_view bytes)
{
    const std::vector<uint8_t> values = closed_bytes_of(bytes);
    return AnyPointer(inputs_.emplace_back(Input{values, values}).block.data());
}

void *Arguments::add_output(std::vector<uint8_t> before, std::vector<TextByte> after)
{
    std::vector<uint8_t> block(guard_size, guard_byte);
    block.insert(block.end(), before.begin(), before.end());
    block.resize(block.size() + guard_size, guard_byte);
    return outputs_.emplace_back(Output{std::move(before), std::move(after), std::move(block)}).block.data() +
           guard_size;
}

uint8_t *Arguments::out_u8(uint8_t value)
{
    return static_cast<uint8_t *>(add_output(std::vector(sizeof value, untouched_byte), bytes_in_memory(value)));
}

uint16_t *Arguments::out_u16(uint16_t value)
{
    return static_cast<uint16_t *>(add_output(std::vector(sizeof value, untouched_byte), bytes_in_memory(value)));
}

uint32_t *Arguments::out_u32(uint32_t value)
{
    return static_cast<uint32_t *>(add_output(std::vector(sizeof value, untouched_byte), bytes_in_memory(value)));
}

uint64_t *Arguments::out_u64(uint64_t value)
{
    return static_cast<uint64_t *>(add_output(std::vector(sizeof value, untouched_byte), bytes_in_memory(value)));
}

AnyPointer Arguments::out(std::string_view bytes)
{
    std::vector<TextByte> after = bytes_of(bytes, 0, std::nullopt);
    const size_t size = after.size();
    return AnyPointer(add_output(std::vector(size, untouched_byte), std::move(after)));
}

AnyPointer Arguments::in_out(std::string_view before, std::string_view after)
{
    return AnyPointer(add_output(closed_bytes_of(before), bytes_of(after, 0, std::nullopt)));
}

AnyPointer Arguments::kept(size_t size)
{
    return AnyPointer(add_output(std::vector(size, untouched_byte), {}));
}

std::string Arguments::wrong_inputs() const
{
    std::string lines;
    for (size_t number = 0; number < inputs_.size(); ++number) {
        const Input &input = inputs_[number];
        lines +=
            wrong("input", number, std::vector<TextByte>(input.before.begin(), input.before.end()), input.block, 0);
    }
    return lines;
}

std::string Arguments::wrong_after_success() const
{
    std::string lines = wrong_inputs();
    for (size_t number = 0; number < outputs_.size(); ++number) {
        const Output &output = outputs_[number];
        lines += wrong("output", number, between_guards(output.before, output.after), output.block, guard_size);
    }
    return lines;
}

std::string Arguments::wrong_after_failure() const
{
    std::string lines = wrong_inputs();
    for (size_t number = 0; number < outputs_.size(); ++number) {
        const Output &output = outputs_[number];
        lines += wrong("output", number, between_guards(output.before, {}), output.block, guard_size);
    }
    return lines;
}

}  // namespace quillon::test
