#include "support/request_facts.h"

#include <set>
#include <stdexcept>

namespace quillon::test {
namespace {

using Names = std::set<std::string_view>;

struct FamilyFacts {
    std::string_view prefix;
    RequestFacts facts;
};

constexpr FamilyFacts families[] = {
    // One of its functions has no underscore behind the prefix.
    {"DEV_SWDRV_PMGR", {.module = 120, .queue_key = 24, .data_offset = 24, .send_line = false}},
    {"DEV_AMTRDRV_PMGR_", {.module = 121, .queue_key = 24, .data_offset = 20, .send_line = true}},
    {"DEV_SWDRVL4_PMGR_", {.module = 122, .queue_key = 24, .data_offset = 20, .send_line = false}},
    {"DEV_NMTRDRV_PMGR_", {.module = 126, .queue_key = 24, .data_offset = 24, .send_line = true}},
    {"DEVRM_PMGR_", {.module = 127, .queue_key = 24, .data_offset = 24, .send_line = true, .named_in_report = false}},
    {"DEV_SWDRVL3_PMGR_", {.module = 128, .queue_key = 24, .data_offset = 24, .send_line = true}},
    {"DEV_NICDRV_PMGR_",
     {.module = 37, .queue_key = 25, .data_offset = 24, .send_line = false, .clearing = Clearing::none}},
};

const Names on_twsi_queue = {
    "DEV_SWDRV_PMGR_TwsiInit",
    "DEV_SWDRV_PMGR_TwsiRegisterWrite",
    "DEV_SWDRV_PMGR_TwsiRegisterRead",
    "DEV_SWDRV_PMGR_TwsiDataWriteWithBusIdx",
    "DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx",
    "DEV_SWDRV_PMGR_TwsiWrite",
    "DEV_SWDRV_PMGR_TwsiRead",
};

const Names with_send_line = {
    "DEV_SWDRVL4_PMGR_EnablePortSflow",
    "DEV_SWDRVL4_PMGR_SetPortSflowRate",
    "DEV_SWDRVL4_PMGR_SetDosProtectionFilter",
};

const Names in_heap_envelope = {
    "DEV_NMTRDRV_PMGR_GetRmonStats",
    "DEV_NMTRDRV_PMGR_GetEtherLikeStats",
    "DEV_NMTRDRV_PMGR_GetEtherLikePause",
};

const Names failing_with_7 = {
    "DEV_SWDRVL3_PMGR_CreateL3Interface",       "DEV_SWDRVL3_PMGR_AddL3Mac",
    "DEV_SWDRVL3_PMGR_SetInetHostRoute",        "DEV_SWDRVL3_PMGR_AddInetNetRoute",
    "DEV_SWDRVL3_PMGR_DeleteInetNetRoute",      "DEV_SWDRVL3_PMGR_AddInetMyIpHostRoute",
    "DEV_SWDRVL3_PMGR_DeleteInetMyIpHostRoute", "DEV_SWDRVL3_PMGR_AddInetECMPRouteMultiPath",
    "DEV_SWDRVL3_PMGR_AddInetECMPRouteOnePath",
};

bool is_ip_multicast(std::string_view function)
{
    return function.starts_with("DEV_SWDRVL3_PMGR_ipmc_") || function.starts_with("DEV_SWDRVL3_PMGR_l2mc_") ||
           function.starts_with("DEV_SWDRVL3_PMGR_l3mc_");
}

RequestFacts family_facts(std::string_view function)
{
    for (const FamilyFacts &family : families) {
        if (function.starts_with(family.prefix)) {
            return family.facts;
        }
    }
    throw std::invalid_argument("no family has a request function " + std::string(function));
}

}  // namespace

RequestFacts request_facts(std::string_view function)
{
    RequestFacts facts = family_facts(function);
    if (on_twsi_queue.contains(function)) {
        facts.queue_key = 59;
    } else if (function == "DEV_NICDRV_PMGR_FreeRxPacket") {
        facts.queue_key = 52;
    } else if (with_send_line.contains(function)) {
        facts.send_line = true;
    } else if (in_heap_envelope.contains(function)) {
        facts.clearing = Clearing::msg_type;
    } else if (failing_with_7.contains(function)) {
        facts.failure_value = 7;
    } else if (function == "DEV_SWDRVL3_PMGR_l3mc_entry_stat") {
        facts.failure = Failure::status;
    } else if (is_ip_multicast(function)) {
        facts.failure = Failure::type;
    }
    return facts;
}

}  // namespace quillon::test
