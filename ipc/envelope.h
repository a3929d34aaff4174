// The message buffer that carries a request to the driver process and its reply back.
#pragma once

#include <stdint.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <type_traits>

namespace quillon::ipc {

// The request or reply of a command that carries nothing but its code or its result.
struct Empty {};

// Bytes that are counted in a member and that nobody fills: alignment padding, and sizes that differ from their fields.
template <size_t Size>
struct Unused {
    std::array<uint8_t, Size> bytes{};
};

// The same for a whole word among words, which compilers store without a detour over an array.
struct UnusedWord {
    uint32_t word = 0;
};

// A field narrower than the word it stands in, and the padding up to the end of that word, stored as one.
template <class T>
class Padded {
  public:
    // NOLINTNEXTLINE(google-explicit-constructor): a member is filled as if the field were a plain T
    constexpr Padded(T value) : word_(value) {}
    // NOLINTNEXTLINE(google-explicit-constructor)
    constexpr operator T() const { return static_cast<T>(word_); }

  private:
    static_assert(sizeof(T) < sizeof(uint32_t) && std::endian::native == std::endian::little);
    uint32_t word_;
};

template <class Member>
inline constexpr uint32_t member_size = std::is_empty_v<Member> ? 0 : sizeof(Member);

// What every envelope begins with. `type` carries the command code out and the result back.
struct Header {
    std::array<uint32_t, 2> msg_type;
    uint16_t cmd;
    uint16_t msg_size;
    uint32_t reserved;
    uint32_t type;
};
static_assert(sizeof(Header) == 20 && alignof(Header) == 4);

struct HeaderWithGap : Header {
    uint32_t gap;
};

// Sizes are counted from `type`, without the gap that some families have before `data`. A platform moves 20 + size
// bytes all the same, so the envelope has that room.
inline constexpr uint32_t size_of_type = sizeof(Header::type);

template <class Request, class Reply, uint32_t Alignment = 8>
inline constexpr uint32_t envelope_size = (sizeof(Header) + size_of_type +
                                           std::max(member_size<Request>, member_size<Reply>) + Alignment - 1) /
                                          Alignment *Alignment;

template <class Request, class Reply, uint32_t DataOffset, uint32_t Alignment = 8>
struct alignas(Alignment) Envelope {
    static_assert(DataOffset == sizeof(Header) || DataOffset == sizeof(HeaderWithGap));
    static_assert(DataOffset % alignof(Request) == 0 && DataOffset % alignof(Reply) == 0,
                  "fields wider than the data area's alignment are copied as bytes");

    static constexpr uint32_t size = envelope_size<Request, Reply, Alignment>;

    // The members overlap: an output may come back in the place where an input was sent.
    union Data {
        Request request;
        Reply reply;
        std::array<std::byte, size - DataOffset> room;

        // The bytes are the exchange's to clear or to leave as they are.
        // NOLINTNEXTLINE(modernize-use-equals-default): the members' initialisers must not run
        Data() {}
    };

    std::conditional_t<DataOffset == sizeof(Header), Header, HeaderWithGap> header;
    [[no_unique_address]] std::conditional_t<size == DataOffset, Empty, Data> data;
};

}  // namespace quillon::ipc
