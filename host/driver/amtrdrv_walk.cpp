// Walking the MAC address table, one entry or one batch at a time.
#include <algorithm>
#include <optional>

#include "amtrdrv/commands.h"
#include "host/driver/amtrdrv_encoding.h"
#include "host/driver/handlers.h"
#include "host/driver/on_switch.h"

namespace quillon::driver {

void add_amtrdrv_walk(Dispatcher &dispatcher, SharedSwitch &model)
{
    // It is the client's walk that is put back.
    dispatcher.on_parkable<amtrdrv::ResetToFirstAddrTblEntry>(
        [&model](const amtrdrv::Word &request, auto &call) -> std::optional<bool> {
            const auto access = model.lock();
            const bool known = access->stack.has_unit(request.value);
            if (known) {
                access->mac_walks.restart(call.client());
            }
            return known;
        });
    on_switch<amtrdrv::GetNextAddrTblEntry>(dispatcher, model,
                                            [](Switch &chips, const amtrdrv::Entry &request, amtrdrv::Entry &reply) {
                                                reply = request;
                                                const MacTable &macs = chips.macs();
                                                const auto next = macs.after(decoded_key(request.value));
                                                if (next == macs.end()) {
                                                    return false;
                                                }
                                                reply.value = encoded(next->first, next->second);
                                                return true;
                                            });
    dispatcher.on_parkable<amtrdrv::GetNextNAddrTblEntry>(
        [&model](const amtrdrv::Word &request, amtrdrv::AddrTblBatch &reply, auto &call) -> std::optional<uint32_t> {
            const uint32_t wanted = std::min(request.value, amtrdrv::AddrTblBatch::max_entries);
            const auto access = model.lock();
            const MacTable &macs = access->macs();
            MacKey &last = access->mac_walks.position(call.client());
            for (auto next = macs.after(last); reply.count < wanted && next != macs.end(); ++next) {
                reply.entries[reply.count++] = encoded(next->first, next->second);
                last = next->first;
            }
            return reply.count == 0 ? 0 : 1;
        });
}

}  // namespace quillon::driver
