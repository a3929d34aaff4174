// What callers and the driver process rely on beyond the bytes of one request: the facts of its family.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillon::test {

// How much of an envelope has defined bytes besides those that its command fills.
enum class Clearing {
    all,
    // Only the eight bytes in front of `cmd`.
    msg_type,
    none,
};

enum class Failure {
    value,
    // What then stands in `type`.
    type,
    // The status of the exchange; the output gets what then stands in `type`.
    status,
};

struct RequestFacts {
    uint16_t module;
    uint32_t queue_key;
    size_t data_offset;
    bool send_line;
    Clearing clearing = Clearing::all;
    Failure failure = Failure::value;
    uint32_t failure_value = 0;
    bool named_in_report = true;
};

// By the name of the function that makes the exchange. Throws std::invalid_argument for a name of no family.
RequestFacts request_facts(std::string_view function);

}  // namespace quillon::test
