// QoS requests through the client library.
#include "quillon/swdrvl4.h"

#include <gtest/gtest.h>
#include <stdint.h>

#include "driver/swdrv_client.h"

namespace quillon::test {
namespace {

using driver::ChipState;
using driver::Setting;

struct Swdrvl4Test : SwdrvClientTest {
    Swdrvl4Test() { DEV_SWDRVL4_PMGR_InitiateProcessResource(); }
};

// Port lists: bit 0 is port 1.
constexpr uint8_t no_ports[8] = {};
constexpr uint8_t ports_1_and_28[8] = {1, 0, 0, 8};
constexpr uint8_t port_1[8] = {1};
constexpr uint8_t port_2[8] = {2};
constexpr uint8_t port_29[8] = {0, 0, 0, 0x10};

TEST_F(Swdrvl4Test, KeepsMappings)
{
    expect_changes({
        {"enabled", [] { return DEV_SWDRVL4_PMGR_EnableCosMapping(3); }, kept(Setting::cos_mapping_enabled, {3}, {1})},
        {"disabled", [] { return DEV_SWDRVL4_PMGR_DisableCosMapping(3); },
         kept(Setting::cos_mapping_enabled, {3}, {0})},
        {"enabled at a port", [] { return DEV_SWDRVL4_PMGR_EnablePortCosMapping(2, 28, 1); },
         kept(Setting::cos_mapping_enabled, {2, 28, 1}, {1})},
        {"disabled at a port", [] { return DEV_SWDRVL4_PMGR_DisablePortCosMapping(2, 28, 1); },
         kept(Setting::cos_mapping_enabled, {2, 28, 1}, {0})},
        {"mapped", [] { return DEV_SWDRVL4_PMGR_SetCosMapping(3, 63, 7); }, kept(Setting::cos_mapping, {3, 63}, {7})},
        {"not mapped", [] { return DEV_SWDRVL4_PMGR_DeleteCosMapping(3, 63, 7); },
         kept(Setting::cos_mapping, {3, 63}, {})},
        {"mapped at a port", [] { return DEV_SWDRVL4_PMGR_SetPortCosMapping(2, 28, 1, 7, 6); },
         kept(Setting::cos_mapping, {2, 28, 1, 7}, {6})},
        {"not mapped at a port", [] { return DEV_SWDRVL4_PMGR_DeletePortCosMapping(2, 28, 1, 7, 6); },
         kept(Setting::cos_mapping, {2, 28, 1, 7}, {})},
        {"trust", [] { return DEV_SWDRVL4_PMGR_SetCosTrustMode(2, 28, 3); }, kept(Setting::cos_trust, {2, 28}, {3})},
        {"CoS", [] { return DEV_SWDRVL4_PMGR_SetQosIngCos2Dscp(2, 28, 7, 1, 63, 2); },
         kept(Setting::cos_to_dscp, {2, 28, 7, 1}, {63, 2})},
        {"precedence", [] { return DEV_SWDRVL4_PMGR_SetQosIngPre2Dscp(2, 28, 7, 63, 2); },
         kept(Setting::precedence_to_dscp, {2, 28, 7}, {63, 2})},
        {"DSCP", [] { return DEV_SWDRVL4_PMGR_SetQosIngDscp2Dscp(2, 28, 63, 62, 2); },
         kept(Setting::dscp_to_dscp, {2, 28, 63}, {62, 2})},
        {"queue", [] { return DEV_SWDRVL4_PMGR_SetQosIngDscp2Queue(2, 28, 63, 7); },
         kept(Setting::dscp_to_queue, {2, 28, 63}, {7})},
        {"colour", [] { return DEV_SWDRVL4_PMGR_SetQosIngDscp2Color(2, 28, 63, 2); },
         kept(Setting::dscp_to_color, {2, 28, 63}, {2})},
        {"to CoS", [] { return DEV_SWDRVL4_PMGR_SetQosIngDscp2Cos(2, 28, 63, 2, 7, 1); },
         kept(Setting::dscp_to_cos, {2, 28, 63, 2}, {7, 1})},
    });
}

TEST_F(Swdrvl4Test, KeepsRatesAndScheduling)
{
    expect_changes({
        {"received", [] { return DEV_SWDRVL4_PMGR_EnablePortIngressRateLimit(2, 28); },
         kept(Setting::ingress_rate_limited, {2, 28}, {1})},
        {"received freely", [] { return DEV_SWDRVL4_PMGR_DisablePortIngressRateLimit(2, 28); },
         kept(Setting::ingress_rate_limited, {2, 28}, {0})},
        {"receiving rate", [] { return DEV_SWDRVL4_PMGR_SetPortIngressRateLimit(2, 28, 10'000'000); },
         kept(Setting::ingress_rate, {2, 28}, {10'000'000})},
        {"sent", [] { return DEV_SWDRVL4_PMGR_EnablePortEgressRateLimit(2, 3); },
         kept(Setting::egress_rate_limited, {2, 3}, {1})},
        {"sent freely", [] { return DEV_SWDRVL4_PMGR_DisablePortEgressRateLimit(2, 3); },
         kept(Setting::egress_rate_limited, {2, 3}, {0})},
        {"sending rate", [] { return DEV_SWDRVL4_PMGR_SetPortEgressRateLimit(2, 3, 64); },
         kept(Setting::egress_rate, {2, 3}, {64})},
        {"method", [] { return DEV_SWDRVL4_PMGR_SetEgressSchedulingMethod(3); },
         kept(Setting::scheduling_method, {}, {3})},
        {"method of a port", [] { return DEV_SWDRVL4_PMGR_SetPortEgressSchedulingMethod(2, 28, 1); },
         kept(Setting::scheduling_method, {2, 28}, {1})},
        {"strict at a port", [] { return DEV_SWDRVL4_PMGR_SetEgressSpSchedulingQueues(2, 28, 7, 1); },
         kept(Setting::strict_queue, {2, 28, 7}, {1})},
        {"strict", [] { return DEV_SWDRVL4_PMGR_SetStrictPriorityQueue(7); }, kept(Setting::strict_queue, {7}, {1})},
        {"weight", [] { return DEV_SWDRVL4_PMGR_SetWrrQueueWeight(7, 255); }, kept(Setting::queue_weight, {7}, {255})},
        {"weight at a port", [] { return DEV_SWDRVL4_PMGR_SetPortWrrQueueWeight(2, 28, 7, 1); },
         kept(Setting::queue_weight, {2, 28, 7}, {1})},
    });
}

TEST_F(Swdrvl4Test, KeepsIsolationAndProtection)
{
    constexpr uint32_t port_28 = 0x0800'0000;
    expect_changes({
        {"segmentation", [] { return DEV_SWDRVL4_PMGR_EnableTrafficSegmatation(); },
         kept(Setting::traffic_segmentation, {}, {1})},
        {"segments", [] { return DEV_SWDRVL4_PMGR_SetTrafficSegmatationByPortlist(ports_1_and_28, port_2); },
         kept(Setting::isolated_ports, {0}, {port_28 | 1, 0, 2, 0})},
        {"session", [] { return DEV_SWDRVL4_PMGR_SetPrivateVlanPortlistBySessionId(15, ports_1_and_28, port_2); },
         kept(Setting::isolated_ports, {15}, {port_28 | 1, 0, 2, 0})},
        {"without a port", [] { return DEV_SWDRVL4_PMGR_DeletePrivateVlanPortlistBySessionId(15, port_1, port_2); },
         kept(Setting::isolated_ports, {15}, {port_28, 0, 0, 0})},
        {"no segmentation", [] { return DEV_SWDRVL4_PMGR_DisableTrafficSegmatation(); },
         kept(Setting::traffic_segmentation, {}, {0})},
        {"segments again", [] { return DEV_SWDRVL4_PMGR_EnableTrafficSegmatation(); },
         kept(Setting::traffic_segmentation, {}, {1})},
        {"reset", [] { return DEV_SWDRVL4_PMGR_ResetTrafficSegmatation(); },
         [](const ChipState &chips) {
             return kept(Setting::isolated_ports, {0}, {0, 0, 0, 0})(chips) &&
                    kept(Setting::isolated_ports, {15}, {port_28, 0, 0, 0})(chips) &&
                    kept(Setting::traffic_segmentation, {}, {0})(chips);
         }},
        {"uplinks", [] { return DEV_SWDRVL4_PMGR_SetPrivateVlanUplinkPortMode(1); },
         kept(Setting::private_vlan_uplinks_forward, {}, {1})},
        {"trunk", [] { return DEV_SWDRVL4_PMGR_SetPrivateVlanTrunkMode(2, 28, 1); },
         kept(Setting::private_vlan_trunk, {2, 28}, {1})},
        {"security", [] { return DEV_SWDRVL4_PMGR_EnablePortSecurity(2, 28); },
         kept(Setting::port_security, {2, 28}, {1})},
        {"no security", [] { return DEV_SWDRVL4_PMGR_DisablePortSecurity(2, 28); },
         kept(Setting::port_security, {2, 28}, {0})},
        {"security mode", [] { return DEV_SWDRVL4_PMGR_SetPortSecurityMode(2, 28, 3); },
         kept(Setting::port_security_mode, {2, 28}, {3})},
        {"sFlow", [] { return DEV_SWDRVL4_PMGR_EnablePortSflow(2, 28, 3); },
         kept(Setting::sflow_direction, {2, 28}, {3})},
        {"sFlow rate", [] { return DEV_SWDRVL4_PMGR_SetPortSflowRate(2, 28, 0xFF'FFFF); },
         kept(Setting::sflow_rate, {2, 28}, {0xFF'FFFF})},
        {"DoS", [] { return DEV_SWDRVL4_PMGR_SetDosProtectionFilter(8, 1); }, kept(Setting::dos_filter, {8}, {1})},
    });
}

TEST_F(Swdrvl4Test, RefusesWhatIsOutOfRange)
{
    EXPECT_EQ(DEV_SWDRVL4_PMGR_SetCosMapping(3, 63, 7), 1);
    EXPECT_EQ(DEV_SWDRVL4_PMGR_SetPortCosMapping(2, 28, 3, 63, 7), 1);
    EXPECT_EQ(DEV_SWDRVL4_PMGR_SetPrivateVlanPortlistBySessionId(1, port_1, no_ports), 1);
    expect_refused({
        {"mapping 0", [] { return DEV_SWDRVL4_PMGR_EnableCosMapping(0); }},
        {"mapping 4", [] { return DEV_SWDRVL4_PMGR_DisableCosMapping(4); }},
        {"mapping at no port", [] { return DEV_SWDRVL4_PMGR_EnablePortCosMapping(2, 29, 1); }},
        {"mapping 4 at a port", [] { return DEV_SWDRVL4_PMGR_DisablePortCosMapping(2, 28, 4); }},
        {"user priority 8", [] { return DEV_SWDRVL4_PMGR_SetCosMapping(1, 8, 0); }},
        {"precedence 8", [] { return DEV_SWDRVL4_PMGR_SetCosMapping(2, 8, 0); }},
        {"DSCP 64", [] { return DEV_SWDRVL4_PMGR_SetCosMapping(3, 64, 0); }},
        {"to priority 8", [] { return DEV_SWDRVL4_PMGR_SetCosMapping(3, 0, 8); }},
        {"at unit 3", [] { return DEV_SWDRVL4_PMGR_SetPortCosMapping(3, 1, 1, 0, 0); }},
        {"to another", [] { return DEV_SWDRVL4_PMGR_DeleteCosMapping(3, 63, 6); }},
        {"of another port", [] { return DEV_SWDRVL4_PMGR_DeletePortCosMapping(2, 27, 3, 63, 7); }},
        {"trust mode 4", [] { return DEV_SWDRVL4_PMGR_SetCosTrustMode(1, 1, 4); }},
        {"trust at no port", [] { return DEV_SWDRVL4_PMGR_SetCosTrustMode(1, 0, 1); }},
        {"CoS 8", [] { return DEV_SWDRVL4_PMGR_SetQosIngCos2Dscp(1, 1, 8, 0, 0, 0); }},
        {"CoS indicator 2", [] { return DEV_SWDRVL4_PMGR_SetQosIngCos2Dscp(1, 1, 0, 2, 0, 0); }},
        {"CoS to DSCP 64", [] { return DEV_SWDRVL4_PMGR_SetQosIngCos2Dscp(1, 1, 0, 0, 64, 0); }},
        {"CoS to colour 3", [] { return DEV_SWDRVL4_PMGR_SetQosIngCos2Dscp(1, 1, 0, 0, 0, 3); }},
        {"CoS at no port", [] { return DEV_SWDRVL4_PMGR_SetQosIngCos2Dscp(1, 29, 0, 0, 0, 0); }},
        {"precedence 8 of a port", [] { return DEV_SWDRVL4_PMGR_SetQosIngPre2Dscp(1, 1, 8, 0, 0); }},
        {"precedence to DSCP 64", [] { return DEV_SWDRVL4_PMGR_SetQosIngPre2Dscp(1, 1, 0, 64, 0); }},
        {"precedence to colour 3", [] { return DEV_SWDRVL4_PMGR_SetQosIngPre2Dscp(1, 1, 0, 0, 3); }},
        {"DSCP 64 of a port", [] { return DEV_SWDRVL4_PMGR_SetQosIngDscp2Dscp(1, 1, 64, 0, 0); }},
        {"DSCP to DSCP 64", [] { return DEV_SWDRVL4_PMGR_SetQosIngDscp2Dscp(1, 1, 0, 64, 0); }},
        {"DSCP to DSCP and colour 3", [] { return DEV_SWDRVL4_PMGR_SetQosIngDscp2Dscp(1, 1, 0, 0, 3); }},
        {"DSCP 64 to a queue", [] { return DEV_SWDRVL4_PMGR_SetQosIngDscp2Queue(1, 1, 64, 0); }},
        {"queue 8", [] { return DEV_SWDRVL4_PMGR_SetQosIngDscp2Queue(1, 1, 0, 8); }},
        {"DSCP 64 to a colour", [] { return DEV_SWDRVL4_PMGR_SetQosIngDscp2Color(1, 1, 64, 0); }},
        {"colour 3", [] { return DEV_SWDRVL4_PMGR_SetQosIngDscp2Color(1, 1, 0, 3); }},
        {"DSCP 64 to a CoS", [] { return DEV_SWDRVL4_PMGR_SetQosIngDscp2Cos(1, 1, 64, 0, 0, 0); }},
        {"to CoS 8", [] { return DEV_SWDRVL4_PMGR_SetQosIngDscp2Cos(1, 1, 0, 0, 8, 0); }},
        {"limit at no port", [] { return DEV_SWDRVL4_PMGR_EnablePortIngressRateLimit(0, 1); }},
        {"no limit at no port", [] { return DEV_SWDRVL4_PMGR_DisablePortEgressRateLimit(1, 29); }},
        {"rate 0", [] { return DEV_SWDRVL4_PMGR_SetPortIngressRateLimit(1, 1, 0); }},
        {"rate 65", [] { return DEV_SWDRVL4_PMGR_SetPortEgressRateLimit(1, 1, 65); }},
        {"more than a gigabit", [] { return DEV_SWDRVL4_PMGR_SetPortIngressRateLimit(1, 24, 1'000'064); }},
        {"rate at no port", [] { return DEV_SWDRVL4_PMGR_SetPortEgressRateLimit(1, 29, 64); }},
        {"method 0", [] { return DEV_SWDRVL4_PMGR_SetEgressSchedulingMethod(0); }},
        {"method 4", [] { return DEV_SWDRVL4_PMGR_SetPortEgressSchedulingMethod(1, 1, 4); }},
        {"method at no port", [] { return DEV_SWDRVL4_PMGR_SetPortEgressSchedulingMethod(1, 29, 1); }},
        {"strict queue 8 of a port", [] { return DEV_SWDRVL4_PMGR_SetEgressSpSchedulingQueues(1, 1, 8, 1); }},
        {"strict 2", [] { return DEV_SWDRVL4_PMGR_SetEgressSpSchedulingQueues(1, 1, 7, 2); }},
        {"strict queue 8", [] { return DEV_SWDRVL4_PMGR_SetStrictPriorityQueue(8); }},
        {"weight of queue 8", [] { return DEV_SWDRVL4_PMGR_SetWrrQueueWeight(8, 1); }},
        {"weight 0", [] { return DEV_SWDRVL4_PMGR_SetWrrQueueWeight(0, 0); }},
        {"weight 256", [] { return DEV_SWDRVL4_PMGR_SetPortWrrQueueWeight(1, 1, 0, 256); }},
        {"weight at no port", [] { return DEV_SWDRVL4_PMGR_SetPortWrrQueueWeight(1, 29, 0, 1); }},
        {"segment with port 29", [] { return DEV_SWDRVL4_PMGR_SetTrafficSegmatationByPortlist(port_1, port_29); }},
        {"port in both", [] { return DEV_SWDRVL4_PMGR_SetTrafficSegmatationByPortlist(port_1, ports_1_and_28); }},
        {"session 0", [] { return DEV_SWDRVL4_PMGR_SetPrivateVlanPortlistBySessionId(0, port_1, port_2); }},
        {"session 16", [] { return DEV_SWDRVL4_PMGR_SetPrivateVlanPortlistBySessionId(16, port_1, port_2); }},
        {"session without it", [] { return DEV_SWDRVL4_PMGR_DeletePrivateVlanPortlistBySessionId(1, port_1, port_2); }},
        {"no session", [] { return DEV_SWDRVL4_PMGR_DeletePrivateVlanPortlistBySessionId(2, port_1, no_ports); }},
        {"uplink mode 2", [] { return DEV_SWDRVL4_PMGR_SetPrivateVlanUplinkPortMode(2); }},
        {"trunk mode 2", [] { return DEV_SWDRVL4_PMGR_SetPrivateVlanTrunkMode(1, 1, 2); }},
        {"security at no port", [] { return DEV_SWDRVL4_PMGR_EnablePortSecurity(1, 29); }},
        {"security mode 0", [] { return DEV_SWDRVL4_PMGR_SetPortSecurityMode(1, 1, 0); }},
        {"security mode 4", [] { return DEV_SWDRVL4_PMGR_SetPortSecurityMode(1, 1, 4); }},
    });
    EXPECT_TRUE(kept(Setting::cos_mapping, {3, 63}, {7})(model.lock()->chips));
    EXPECT_TRUE(kept(Setting::isolated_ports, {1}, {1, 0, 0, 0})(model.lock()->chips));
}

// These say on the console that they were refused.
TEST_F(Swdrvl4Test, RefusesSamplesAndFilters)
{
    testing::internal::CaptureStdout();
    expect_refused({
        {"sFlow 4", [] { return DEV_SWDRVL4_PMGR_EnablePortSflow(1, 1, 4); }},
        {"sFlow at no port", [] { return DEV_SWDRVL4_PMGR_EnablePortSflow(1, 29, 1); }},
        {"sFlow rate", [] { return DEV_SWDRVL4_PMGR_SetPortSflowRate(1, 1, 0x100'0000); }},
        {"filter 0", [] { return DEV_SWDRVL4_PMGR_SetDosProtectionFilter(0, 1); }},
        {"filter 9", [] { return DEV_SWDRVL4_PMGR_SetDosProtectionFilter(9, 1); }},
        {"filter on 2", [] { return DEV_SWDRVL4_PMGR_SetDosProtectionFilter(1, 2); }},
    });
    testing::internal::GetCapturedStdout();
}

}  // namespace
}  // namespace quillon::test
