// Port status, one by one and in blocks, and link scan.
#include <string.h>

#include "host/driver/handlers.h"
#include "host/driver/request_values.h"
#include "host/driver/swdrv_encoding.h"
#include "host/driver/swdrv_running_port.h"
#include "swdrv/commands.h"

namespace quillon::driver {
namespace {

// How many ports a block has, 0 when it asks for one that does not exist.
uint32_t block_size(const Stack &stack, const LogicalPort &first, uint32_t asked_for)
{
    if (!stack.has(first)) {
        return 0;
    }
    const uint32_t up_to_last = stack.shape().ports - first.port + 1;
    if (asked_for == 0) {
        return up_to_last;
    }
    return asked_for <= up_to_last ? asked_for : 0;
}

// Answers a block request with what `encode` makes of each port's status.
template <class C, class Encode>
void on_block(Dispatcher &dispatcher, SharedSwitch &model, Encode encode)
{
    dispatcher.on<C>([&model, encode](const swdrv::BlockSelectors &request, port_state_block &reply) {
        const LogicalPort first{.unit = request.block_sel0, .port = request.block_sel1};
        PortBlock block{};
        {
            const auto access = model.lock();
            block.count = block_size(access->stack, first, request.block_sel2);
            for (uint32_t i = 0; i < block.count; ++i) {
                const auto port = access->running_port({.unit = first.unit, .port = first.port + i});
                block.entries[i] = encode(port->status());
            }
        }
        memcpy(reply.bytes, &block, sizeof block);
        return block.count != 0;
    });
}

// The same value in a request for one port and in one for a block.
template <class One, class Block, class Encode>
void add_value(Dispatcher &dispatcher, SharedSwitch &model, Encode encode)
{
    on_running_port<One>(dispatcher, model, [encode](const RunningPort &port) { return encode(port.status()); });
    on_block<Block>(dispatcher, model, encode);
}

void add_status(Dispatcher &dispatcher, SharedSwitch &model)
{
    add_value<swdrv::GetPortOperSpeedDuplex, swdrv::GetAllPortOperSpeedDuplex>(
        dispatcher, model, [](const PortStatus &status) { return encoded(status.speed_duplex); });
    add_value<swdrv::GetPortLinkStatus, swdrv::GetAllPortLinkStatus>(dispatcher, model, encoded_link);
    add_value<swdrv::GetPortFlowCtrl, swdrv::GetAllPortFlowCtrl>(
        dispatcher, model, [](const PortStatus &status) { return encoded(status.flow_control); });
    on_block<swdrv::GetAllPortStatus>(dispatcher, model, encoded_status);

    // The chips that are named by their device ids alone are those of the local unit.
    dispatcher.on<swdrv::GetPortLinkStatusByDeviceId>([&model](const swdrv::DevicePort &request, swdrv::Word &reply) {
        const auto access = model.lock();
        const Stack &stack = access->stack;
        const auto module_id = stack.module_of(Stack::local_unit, request.device_id);
        const auto port =
            module_id ? stack.to_logical(
                            {.module_id = *module_id, .device_id = request.device_id, .phy_port = request.device_port})
                      : std::nullopt;
        if (port) {
            reply.value = encoded_link(access->running_port(*port)->status());
        }
        return port.has_value();
    });
}

void add_link_scan(Dispatcher &dispatcher, SharedSwitch &model)
{
    dispatcher.on<swdrv::LinkScan_Update>([&model] {
        ++model.lock()->chips.link_scan.passes;
        return true;
    });
    dispatcher.on<swdrv::LINKSCAN_Register>([&model] {
        model.lock()->chips.link_scan.registered = true;
        return true;
    });
    dispatcher.on<swdrv::EnableHgPortAdmin>([&model](const ipc::Unused<8> & /*request*/) {
        model.lock()->chips.hg_ports_admin_up = true;
        return true;
    });
}

}  // namespace

void add_swdrv_port_status(Dispatcher &dispatcher, SharedSwitch &model)
{
    add_status(dispatcher, model);
    add_link_scan(dispatcher, model);
}

}  // namespace quillon::driver
