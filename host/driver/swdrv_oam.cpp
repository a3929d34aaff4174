// OAM, trunk hashing, and the events that clients bind themselves to and wait for.
#include <algorithm>
#include <array>
#include <chrono>
#include <optional>

#include "host/driver/handlers.h"
#include "host/driver/kept_request.h"
#include "host/driver/oam_delivery.h"
#include "host/driver/request_values.h"
#include "host/driver/swdrv_encoding.h"
#include "swdrv/commands.h"

namespace quillon::driver {
namespace {

using Kept = std::optional<KeptRequest>;

constexpr uint32_t opcode_profiles = 8;
constexpr uint32_t aging_periods = 8;
constexpr uint32_t packet_commands = 4;
constexpr uint32_t trunk_hash_modes = 4;
constexpr uint32_t trunk_hash_crc_entries = 64;

bool has_engine(uint32_t oam_sel)
{
    return oam_sel < std::tuple_size_v<decltype(ChipState::oam_entries)>;
}

// ---- Settings ----

template <class C>
void keep_engine_flag(Dispatcher &dispatcher, SharedSwitch &model, Setting setting)
{
    keep<C>(dispatcher, model, setting, [](const Stack & /*stack*/, const swdrv::OamEnable &request) -> Kept {
        if (!has_engine(request.oam_sel) || !as_bool(request.enable)) {
            return std::nullopt;
        }
        return KeptRequest{.key = {request.oam_sel}, .value = {request.enable}};
    });
}

void add_engine_settings(Dispatcher &dispatcher, SharedSwitch &model)
{
    keep_port_flag<swdrv::SetOamPduToCpu>(dispatcher, model, Setting::oam_pdu_to_cpu);
    keep_port_flag<swdrv::SetOamLoopback>(dispatcher, model, Setting::oam_loopback);
    keep_engine_flag<swdrv::SetOamEnable>(dispatcher, model, Setting::oam_enabled);
    keep_engine_flag<swdrv::SetOamAgingDaemonEnable>(dispatcher, model, Setting::oam_aging_daemon);

    keep<swdrv::SetOamOpcodeProfilePktCmdEntry>(
        dispatcher, model, Setting::oam_opcode_command,
        [](const Stack & /*stack*/, const swdrv::OamOpcodeProfile &request) -> Kept {
            if (!has_engine(request.oam_sel) || request.entry_index >= opcode_profiles || request.param1 > UINT8_MAX ||
                request.param2 > 1 || request.param3 >= packet_commands) {
                return std::nullopt;
            }
            return KeptRequest{.key = {request.oam_sel, request.entry_index, request.param1, request.param2},
                               .value = {request.param3}};
        });
    keep<swdrv::SetOamAgingPeriodEntry>(dispatcher, model, Setting::oam_aging_period,
                                        [](const Stack & /*stack*/, const swdrv::OamAgingPeriod &request) -> Kept {
                                            constexpr uint32_t nanoseconds_a_second = 1'000'000'000;
                                            if (!has_engine(request.oam_sel) || request.entry_index >= aging_periods ||
                                                request.param2 >= nanoseconds_a_second ||
                                                (request.param1 == 0 && request.param2 == 0)) {
                                                return std::nullopt;
                                            }
                                            return KeptRequest{.key = {request.oam_sel, request.entry_index},
                                                               .value = {request.param1, request.param2}};
                                        });
    keep<swdrv::SetOamKeepaliveForPacketCommandEnable>(
        dispatcher, model, Setting::oam_keepalive_command,
        [](const Stack & /*stack*/, const swdrv::OamKeepalive &request) -> Kept {
            if (!has_engine(request.oam_sel) || request.entry_index >= packet_commands || !as_bool(request.enable)) {
                return std::nullopt;
            }
            return KeptRequest{.key = {request.oam_sel, request.entry_index}, .value = {request.enable}};
        });
    keep<swdrv::SetOamExceptionConfig>(dispatcher, model, Setting::oam_detection,
                                       [](const Stack & /*stack*/, const swdrv::OamException &request) -> Kept {
                                           if (!has_engine(request.oam_sel) ||
                                               !decoded<OamEvent>(request.entry_index) ||
                                               request.param1 >= packet_commands || !as_bool(request.enable)) {
                                               return std::nullopt;
                                           }
                                           return KeptRequest{.key = {request.oam_sel, request.entry_index},
                                                              .value = {request.param1, request.enable}};
                                       });
    keep<swdrv::SetOamExceptionRecoveryConfig>(
        dispatcher, model, Setting::oam_recovery,
        [](const Stack & /*stack*/, const swdrv::OamExceptionRecovery &request) -> Kept {
            if (!has_engine(request.oam_sel) || !decoded<OamEvent>(request.entry_index) ||
                request.param1 >= packet_commands) {
                return std::nullopt;
            }
            return KeptRequest{.key = {request.oam_sel, request.entry_index}, .value = {request.param1}};
        });
}

void add_other_settings(Dispatcher &dispatcher, SharedSwitch &model)
{
    keep<swdrv::Receive_All>(dispatcher, model, Setting::receive_all,
                             [](const Stack & /*stack*/, const swdrv::Word &request) -> Kept {
                                 return request.value <= 1 ? Kept({.value = {request.value}}) : std::nullopt;
                             });
    keep<swdrv::SetTrunkHashGlobalMode>(
        dispatcher, model, Setting::trunk_hash_mode, [](const Stack & /*stack*/, const swdrv::Word &request) -> Kept {
            return request.value < trunk_hash_modes ? Kept({.value = {request.value}}) : std::nullopt;
        });
    keep<swdrv::SetTrunkHashCrcEntry>(
        dispatcher, model, Setting::trunk_hash_crc, [](const Stack &stack, const swdrv::TrunkHashCrc &request) -> Kept {
            if (!stack.has_module(request.value) || request.entry_index >= trunk_hash_crc_entries) {
                return std::nullopt;
            }
            return KeptRequest{.key = {request.value, request.entry_index},
                               .value = {std::begin(request.record.bytes), std::end(request.record.bytes)}};
        });
}

// ---- Entries and what was found at them ----

// Answers C with what `read` finds on one chip.
template <class C, class Read>
void on_exceptions(Dispatcher &dispatcher, SharedSwitch &model, Read read)
{
    dispatcher.on<C>([&model, read](const typename C::Request &request, typename C::Reply &reply) {
        const auto event = decoded<OamEvent>(request.entry_index);
        const auto access = model.lock();
        return has_engine(request.oam_sel) && event && access->stack.has_module(request.value) &&
               read(access->chips.oam_entries[request.oam_sel], *event, request, reply);
    });
}

void add_entries(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::SetOamEntry>([&model](const swdrv::OamEntry &request) {
        OamEntry::Settings settings;
        std::ranges::copy(request.record.bytes, settings.begin());
        const auto access = model.lock();
        const auto module_id = access->stack.module_of(request.param1, request.param2);
        return has_engine(request.oam_sel) && module_id &&
               access->chips.oam_entries[request.oam_sel].set(request.entry_index, *module_id, settings);
    });

    on_exceptions<swdrv::GetOamExceptionGroupStatus>(
        dispatcher, model,
        [](const OamEntries &entries, OamEvent event, const swdrv::OamExceptionGroup &request,
           swdrv::DoubleWord &reply) {
            reply.value = entries.groups_with(event, request.value);
            return true;
        });
    on_exceptions<swdrv::GetOamExceptionStatus>(
        dispatcher, model,
        [](const OamEntries &entries, OamEvent event, const swdrv::OamExceptionEntry &request, swdrv::Word &reply) {
            const bool has_group = request.param1 < OamEntries::groups;
            reply.value = has_group ? entries.entries_with(event, request.value, request.param1) : 0;
            return has_group;
        });
}

// ---- Events ----

constexpr uint32_t every_event = 0;

std::optional<OamEvents> decoded_events(uint32_t value)
{
    if (value == every_event) {
        return OamEvents::all();
    }
    const auto event = decoded<OamEvent>(value);
    return event ? std::optional<OamEvents>(*event) : std::nullopt;
}

void add_events(Dispatcher &dispatcher, OamDelivery &delivery)
{
    dispatcher.on_parkable<swdrv::EventBindUnbindOam>(
        [&delivery](const swdrv::OamBinding &request, swdrv::DoubleWord &reply,
                    const Call<swdrv::EventBindUnbindOam> &call) -> std::optional<bool> {
            constexpr uint8_t unbind = 0;
            const auto events = decoded_events(request.param1);
            if (!events) {
                return false;
            }
            const OamSubscription subscription{.client = call.client(), .events = *events, .tag = request.param2};
            if (request.operation == unbind) {
                return delivery.unbind(subscription);
            }
            const auto handle =
                request.operation == swdrv::OamBinding::bind ? delivery.bind(subscription) : std::nullopt;
            reply.value = handle.value_or(0);
            return handle.has_value();
        });
    dispatcher.on_parkable<swdrv::WaitAndReceiveOam>(
        [&delivery](const swdrv::OamWait &request, Call<swdrv::WaitAndReceiveOam> &call) -> std::optional<bool> {
            const auto events = decoded_events(request.event);
            const auto wait_forever = as_bool(request.wait_forever);
            if (!events || !wait_forever) {
                return false;
            }
            OamWait wait{.events = *events, .deadline = std::nullopt};
            if (!*wait_forever) {
                wait.deadline = OamWait::Clock::now() + std::chrono::milliseconds(request.timeout);
            }
            return delivery.wait(call, request.event_handle, wait);
        });
}

}  // namespace

void add_swdrv_oam(Dispatcher &dispatcher, SharedSwitch &model, OamDelivery &delivery)
{
    add_engine_settings(dispatcher, model);
    add_other_settings(dispatcher, model);
    add_entries(dispatcher, model);
    add_events(dispatcher, delivery);
}

}  // namespace quillon::driver
