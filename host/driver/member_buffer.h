// Room for a request's or a reply's member, which moves in and out of an envelope as bytes.
#pragma once

#include <stddef.h>
#include <string.h>

#include <array>
#include <new>
#include <span>
#include <type_traits>

#include "ipc/envelope.h"

namespace quillon::driver {

template <class Member>
class MemberBuffer {
    static_assert(std::is_trivially_copyable_v<Member>);

  public:
    // Zero, whatever initialisers the member has.
    MemberBuffer() = default;

    // What stands at `data`, which need not be aligned for the member.
    explicit MemberBuffer(std::span<const std::byte> data) { memcpy(bytes_.data(), data.data(), size); }

    Member &member() { return *std::launder(reinterpret_cast<Member *>(bytes_.data())); }
    std::span<const std::byte> data() const { return std::span(bytes_).first(size); }

  private:
    static constexpr size_t size = ipc::member_size<Member>;

    alignas(Member) std::array<std::byte, sizeof(Member)> bytes_{};
};

}  // namespace quillon::driver
