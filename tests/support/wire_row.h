// One request of the library as its caller and the driver process see it.
//
// A row is a call, the bytes that it sends, the reply that is played back, and what the caller then holds:
//
//   const WireRows mapping{
//       {.function = "DEV_SWDRV_PMGR_Logical2PhyDevicePortID",
//        .call = [](Arguments &arg) {
//            return DEV_SWDRV_PMGR_Logical2PhyDevicePortID(0x14131211, 0x24232221, arg.out_u32(0x54535251),
//                                                          arg.out_u32(0x64636261), arg.out_u32(0x74737271));
//        },
//        .code = 5, .msg_size = 12, .request = "+24 11121314 +28 21222324",
//        .reply_size = 16, .reply = "+24 51525354 +28 61626364 +32 71727374"},
//       ...
//
// - Each byte of each argument and of each reply has a value of its own, so that a swapped, narrowed or misplaced field
//   shows. Type the expected bytes from the request's table, never from output.
// - `request` and `reply` are texts as support/byte_text.h has them, with offsets counted from the start of the
//   envelope. What a request does not mention is expected to be zero up to the end of what is sent (in envelopes that
//   are not cleared: is not looked at). What a reply does not mention is poison.
// - Outputs: arg.out_u32(value), arg.out("bytes") and so on say what has to stand there after a success. Bytes left
//   open in them ("--") have to keep what they held. arg.in("bytes") is for arrays that are read, arg.in_out() for
//   records that are both, arg.kept(size) for an output that this branch does not write.
// - Result::byte is checked against the low byte of `reply_type`, Result::word against all of it. Use `refused` as
//   reply_type for the branch in which the result byte is zero.
// - A row without a `code` says that nothing is sent and 0 returned.
// - A function has one row for each of its branches; `branch` (letters, digits and _) tells them apart.
// - Module, queue, start of the data and failure come from support/request_facts.cpp, by the function's name.
//
// The first row of a function that sends is also used to let its exchange fail.
#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <iosfwd>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "support/arguments.h"

namespace quillon::test {

// What a reply carries as the result unless a row says otherwise: each byte differs, and the low byte says success.
inline constexpr uint32_t accepted = 0x5A4B3C01;
// The low byte says that the driver process refused.
inline constexpr uint32_t refused = 0x5A4B3C00;

enum class Result { byte, word, nothing };

class WireCall {
  public:
    template <class Call>
    WireCall(Call call)  // NOLINT(google-explicit-constructor): a row gives a lambda
        : call_([call](Arguments &arg) -> std::optional<uint64_t> {
              if constexpr (std::is_void_v<std::invoke_result_t<Call, Arguments &>>) {
                  call(arg);
                  return std::nullopt;
              } else {
                  return call(arg);
              }
          })
    {
    }

    std::optional<uint64_t> operator()(Arguments &arg) const { return call_(arg); }

  private:
    std::function<std::optional<uint64_t>(Arguments &)> call_;
};

struct WireRow {
    std::string function;
    std::string branch = {};
    WireCall call;

    std::optional<uint16_t> code = {};
    uint16_t msg_size = 0;
    std::string request = {};
    // The exported function that makes the exchange, where it is not `function` itself.
    std::string sent_by = function;

    uint32_t reply_size = 0;
    uint32_t reply_type = accepted;
    std::string reply = {};
    // The reply is shorter than its room and leaves the rest of the buffer as it was sent.
    bool short_reply = false;

    Result result = Result::byte;
    // Where the function returns something else than the result.
    std::optional<uint32_t> returned = {};
    // What the function prints although the exchange did not fail. "<line>" stands for the number of a source line.
    std::string printed = {};
};

// Rows of one topic, known to all tests of this executable once this object exists.
class WireRows {
  public:
    WireRows(std::initializer_list<WireRow> rows);
};

const std::vector<WireRow> &all_wire_rows();

// For the names of parameterised tests.
std::string test_name(const WireRow &row);

// For GoogleTest's messages.
void PrintTo(const WireRow &row, std::ostream *stream);

}  // namespace quillon::test
