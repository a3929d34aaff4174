// Values on the wire that stand for something in the model.
#pragma once

#include <stdint.h>

#include <array>
#include <optional>

namespace quillon::driver {

template <class Meaning>
struct Code {
    uint32_t value;
    Meaning meaning;
};

// All values that mean something of this kind. Each family states its own.
template <class Meaning>
inline constexpr std::array<Code<Meaning>, 0> codes{};

// Nothing for a value that means nothing.
template <class Meaning>
constexpr std::optional<Meaning> decoded(uint32_t value)
{
    static_assert(!codes<Meaning>.empty());
    for (const Code<Meaning> &code : codes<Meaning>) {
        if (code.value == value) {
            return code.meaning;
        }
    }
    return std::nullopt;
}

// 0 for a meaning without a value.
template <class Meaning>
constexpr uint32_t encoded(const Meaning &meaning)
{
    static_assert(!codes<Meaning>.empty());
    for (const Code<Meaning> &code : codes<Meaning>) {
        if (code.meaning == meaning) {
            return code.value;
        }
    }
    return 0;
}

}  // namespace quillon::driver
