// Devices on the TWSI buses, the PoE controller, and two LED requests.
#include <stdint.h>
#include <string.h>

#include "ipc/exchange.h"
#include "quillon/swdrv.h"
#include "swdrv/commands.h"

namespace swdrv = quillon::swdrv;
using quillon::ipc::call;
using quillon::ipc::Exchange;
using quillon::ipc::into;

namespace {

constexpr uint8_t default_bus = 0;

// Without bytes to copy the caller's pointer is not looked at.
void copy(void *destination, const void *source, size_t len)
{
    if (len != 0) {
        memcpy(destination, source, len);
    }
}

}  // namespace

uint8_t DEV_SWDRV_PMGR_PhyLightPortLedNormal(void)
{
    return call<swdrv::PhyLightPortLedNormal>();
}

uint8_t DEV_SWDRV_PMGR_TwsiInit(void)
{
    return call<swdrv::TwsiInit>();
}

uint8_t DEV_SWDRV_PMGR_TwsiRegisterWrite(uint32_t value1, uint32_t value2, uint32_t value3)
{
    return call<swdrv::TwsiRegisterWrite>({.values = {value1, value2, value3}});
}

uint8_t DEV_SWDRV_PMGR_TwsiRegisterRead(uint32_t value1, uint32_t value2, uint32_t *out)
{
    return call<swdrv::TwsiRegisterRead>({.values = {value1, value2}}, into(out));
}

// A length cannot exceed the data area: it has one byte.
uint8_t DEV_SWDRV_PMGR_TwsiDataWriteWithBusIdx(uint8_t bus_idx, uint8_t dev_id, uint8_t sel_a, uint8_t sel_b,
                                               uint32_t word, uint8_t sel_c, const uint8_t *data, uint8_t len)
{
    Exchange<swdrv::TwsiDataWriteWithBusIdx> exchange;
    swdrv::TwsiDataToWrite &request = exchange.request();
    request.bus_idx = bus_idx;
    request.dev_id = dev_id;
    request.sel_a = sel_a;
    request.sel_b = sel_b;
    request.word = word;
    request.sel_c = sel_c;
    copy(request.data.data(), data, len);
    request.len = len;
    return exchange.run();
}

// Irregular: a call of another request function. Each argument keeps the low bits that the other's parameter holds.
uint8_t DEV_SWDRV_PMGR_TwsiDataWrite(uint32_t dev_id, uint32_t sel_a, uint32_t sel_b, uint32_t word, uint32_t sel_c,
                                     const uint8_t *data, uint32_t len)
{
    return DEV_SWDRV_PMGR_TwsiDataWriteWithBusIdx(default_bus, static_cast<uint8_t>(dev_id),
                                                  static_cast<uint8_t>(sel_a), static_cast<uint8_t>(sel_b), word,
                                                  static_cast<uint8_t>(sel_c), data, static_cast<uint8_t>(len));
}

uint8_t DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx(uint8_t bus_idx, uint8_t dev_id, uint8_t sel_a, uint8_t sel_b,
                                              uint32_t word, uint8_t sel_c, uint8_t len, uint8_t *out)
{
    return call<swdrv::TwsiDataReadWithBusIdx>({.bus_idx = bus_idx,
                                                .dev_id = dev_id,
                                                .sel_a = sel_a,
                                                .sel_b = sel_b,
                                                .word = word,
                                                .sel_c = sel_c,
                                                .len = len},
                                               [=](const auto &reply) { copy(out, reply.data.data(), len); });
}

// Irregular: as DEV_SWDRV_PMGR_TwsiDataWrite.
uint8_t DEV_SWDRV_PMGR_TwsiDataRead(uint32_t dev_id, uint32_t sel_a, uint32_t sel_b, uint32_t word, uint32_t sel_c,
                                    uint32_t len, uint8_t *out)
{
    return DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx(default_bus, static_cast<uint8_t>(dev_id), static_cast<uint8_t>(sel_a),
                                                 static_cast<uint8_t>(sel_b), word, static_cast<uint8_t>(sel_c),
                                                 static_cast<uint8_t>(len), out);
}

// Irregular, as the three below: a length beyond the data area is refused without a request or a report.
uint8_t DEV_SWDRV_PMGR_TwsiWrite(uint8_t dev_id, uint16_t offset16, const void *data, uint16_t len)
{
    if (len > sizeof(swdrv::TwsiBytesToWrite::data)) {
        return swdrv::TwsiWrite::failure;
    }
    Exchange<swdrv::TwsiWrite> exchange;
    swdrv::TwsiBytesToWrite &request = exchange.request();
    request.dev_id = dev_id;
    request.offset16 = offset16;
    copy(request.data.data(), data, len);
    request.len = len;
    return exchange.run();
}

uint8_t DEV_SWDRV_PMGR_TwsiRead(uint8_t dev_id, uint16_t offset16, void *out, uint16_t len)
{
    if (len > sizeof(swdrv::TwsiRead::Reply::data)) {
        return swdrv::TwsiRead::failure;
    }
    return call<swdrv::TwsiRead>({.dev_id = dev_id, .offset16 = offset16, .len = len},
                                 [=](const auto &reply) { copy(out, reply.data.data(), len); });
}

uint8_t DEV_SWDRV_PMGR_MSCC_POE_Init(void)
{
    return call<swdrv::MSCC_POE_Init>();
}

uint8_t DEV_SWDRV_PMGR_MSCC_POE_Write(const void *data, uint16_t len, uint32_t *poe_status)
{
    if (len > sizeof(swdrv::PoeCommand::data)) {
        return swdrv::MSCC_POE_Write::failure;
    }
    Exchange<swdrv::MSCC_POE_Write> exchange;
    swdrv::PoeCommand &request = exchange.request();
    copy(request.data.data(), data, len);
    request.len = len;
    return exchange.run(into(poe_status));
}

uint8_t DEV_SWDRV_PMGR_MSCC_POE_Read(void *out, uint16_t len, uint32_t *poe_status)
{
    if (len > sizeof(swdrv::PoeAnswer::data)) {
        return swdrv::MSCC_POE_Read::failure;
    }
    return call<swdrv::MSCC_POE_Read>({.value = len}, [=](const swdrv::PoeAnswer &reply) {
        copy(out, reply.data.data(), len);
        *poe_status = reply.poe_status;
    });
}

uint8_t DEV_SWDRV_PMGR_MSCC_POE_Exit(void)
{
    return call<swdrv::MSCC_POE_Exit>();
}

uint8_t DEV_SWDRV_PMGR_SetSysPoeLEDStatus(uint32_t value1, uint32_t value2)
{
    return call<swdrv::SetSysPoeLEDStatus>({.values = {value1, value2}});
}
