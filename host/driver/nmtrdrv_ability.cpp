// What a port can count.
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include <initializer_list>

#include "host/driver/handlers.h"
#include "host/driver/on_switch.h"
#include "host/driver/request_values.h"
#include "nmtrdrv/commands.h"

namespace quillon::driver {
namespace {

// So many columns of a record, each with a bit, but those that are never counted.
constexpr uint64_t counted(unsigned columns, std::initializer_list<unsigned> never)
{
    uint64_t bits = (uint64_t{1} << columns) - 1;
    for (const unsigned column : never) {
        bits &= ~(uint64_t{1} << column);
    }
    return bits;
}

// The columns of all records, one record behind the other.
constexpr uint64_t counted_columns = counted(12, {5, 9, 10, 11})                                // interface table
                                     | counted(13, {}) << 12                                    // its extension
                                     | counted(17, {0, 10}) << 25                               // RMON
                                     | counted(15, {2, 3, 4, 5, 6, 7, 8, 9, 11, 12, 14}) << 42  // Ethernet-like
                                     | counted(4, {}) << 57;                                    // pauses
constexpr uint16_t counter_bits = 64;

}  // namespace

void add_nmtrdrv_ability(Dispatcher &dispatcher, SharedSwitch &model)
{
    on_switch<nmtrdrv::GetStatsAbility>(
        dispatcher, model, [](const Switch &chips, const nmtrdrv::Port &request, nmtrdrv::Ability &reply) {
            if (!chips.stack.has(logical(request))) {
                return false;
            }
            memcpy(reply.value.bytes, &counted_columns, sizeof counted_columns);
            memcpy(reply.value.bytes + sizeof counted_columns, &counter_bits, sizeof counter_bits);
            return true;
        });
}

}  // namespace quillon::driver
