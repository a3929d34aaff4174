// QoS requests through the client library.
#include "quillon/swdrvl4.h"

#include <gtest/gtest.h>
#include <stdint.h>

#include "driver/swdrv_client.h"

namespace quillon::test {
namespace {

using enum driver::Setting;

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
    expect_kept(DEV_SWDRVL4_PMGR_EnableCosMapping, {3}, {4}, cos_mapping_enabled, {3}, {1});
    expect_kept(DEV_SWDRVL4_PMGR_DisableCosMapping, {3}, {0}, cos_mapping_enabled, {3}, {0});
    expect_kept(DEV_SWDRVL4_PMGR_EnablePortCosMapping, {2, 28, 1}, {3, 29, 4}, cos_mapping_enabled, {2, 28, 1}, {1});
    expect_kept(DEV_SWDRVL4_PMGR_DisablePortCosMapping, {2, 28, 1}, {0, 0, 0}, cos_mapping_enabled, {2, 28, 1}, {0});
    expect_kept(DEV_SWDRVL4_PMGR_SetCosMapping, {1, 7, 0}, {4, 8, 8}, cos_mapping, {1, 7}, {0});
    expect_kept(DEV_SWDRVL4_PMGR_SetCosMapping, {2, 7, 0}, {0, 8, 8}, cos_mapping, {2, 7}, {0});
    expect_kept(DEV_SWDRVL4_PMGR_SetCosMapping, {3, 63, 7}, {1, 64, 8}, cos_mapping, {3, 63}, {7});
    expect_kept(DEV_SWDRVL4_PMGR_SetPortCosMapping, {2, 28, 3, 63, 7}, {3, 29, 1, 64, 8}, cos_mapping, {2, 28, 3, 63},
                {7});
    expect_refused({
        {"to another", [] { return DEV_SWDRVL4_PMGR_DeleteCosMapping(3, 63, 6); }},
        {"of another port", [] { return DEV_SWDRVL4_PMGR_DeletePortCosMapping(2, 27, 3, 63, 7); }},
    });
    expect_kept(DEV_SWDRVL4_PMGR_DeletePortCosMapping, {2, 28, 3, 63, 7}, {2, 28, 3, 63, 7}, cos_mapping,
                {2, 28, 3, 63}, {});
    EXPECT_TRUE(kept(cos_mapping, {3, 63}, {7})(model.lock()->chips));
    expect_kept(DEV_SWDRVL4_PMGR_DeleteCosMapping, {3, 63, 7}, {3, 63, 7}, cos_mapping, {3, 63}, {});

    expect_kept(DEV_SWDRVL4_PMGR_SetCosTrustMode, {2, 28, 3}, {3, 0, 4}, cos_trust, {2, 28}, {3});
    expect_kept(DEV_SWDRVL4_PMGR_SetQosIngCos2Dscp, {2, 28, 7, 1, 63, 2}, {3, 29, 8, 2, 64, 3}, cos_to_dscp,
                {2, 28, 7, 1}, {63, 2});
    expect_kept(DEV_SWDRVL4_PMGR_SetQosIngPre2Dscp, {2, 28, 7, 63, 2}, {3, 29, 8, 64, 3}, precedence_to_dscp,
                {2, 28, 7}, {63, 2});
    expect_kept(DEV_SWDRVL4_PMGR_SetQosIngDscp2Dscp, {2, 28, 63, 62, 2}, {3, 29, 64, 64, 3}, dscp_to_dscp, {2, 28, 63},
                {62, 2});
    expect_kept(DEV_SWDRVL4_PMGR_SetQosIngDscp2Queue, {2, 28, 63, 7}, {3, 29, 64, 8}, dscp_to_queue, {2, 28, 63}, {7});
    expect_kept(DEV_SWDRVL4_PMGR_SetQosIngDscp2Color, {2, 28, 63, 2}, {3, 29, 64, 3}, dscp_to_color, {2, 28, 63}, {2});
    expect_kept(DEV_SWDRVL4_PMGR_SetQosIngDscp2Cos, {2, 28, 63, 2, 7, 1}, {3, 29, 64, 3, 8, 2}, dscp_to_cos,
                {2, 28, 63, 2}, {7, 1});
}

TEST_F(Swdrvl4Test, KeepsRatesAndScheduling)
{
    expect_kept(DEV_SWDRVL4_PMGR_EnablePortIngressRateLimit, {2, 28}, {0, 29}, ingress_rate_limited, {2, 28}, {1});
    expect_kept(DEV_SWDRVL4_PMGR_DisablePortIngressRateLimit, {2, 28}, {3, 0}, ingress_rate_limited, {2, 28}, {0});
    expect_kept(DEV_SWDRVL4_PMGR_EnablePortEgressRateLimit, {2, 3}, {0, 29}, egress_rate_limited, {2, 3}, {1});
    expect_kept(DEV_SWDRVL4_PMGR_DisablePortEgressRateLimit, {2, 3}, {3, 29}, egress_rate_limited, {2, 3}, {0});
    expect_kept(DEV_SWDRVL4_PMGR_SetPortIngressRateLimit, {2, 28, 10'000'000}, {3, 29, 10'000'064}, ingress_rate,
                {2, 28}, {10'000'000});
    expect_kept(DEV_SWDRVL4_PMGR_SetPortIngressRateLimit, {2, 24, 1'000'000}, {3, 29, 1'000'064}, ingress_rate, {2, 24},
                {1'000'000});
    expect_kept(DEV_SWDRVL4_PMGR_SetPortEgressRateLimit, {2, 3, 64}, {3, 29, 65}, egress_rate, {2, 3}, {64});
    EXPECT_EQ(DEV_SWDRVL4_PMGR_SetPortEgressRateLimit(2, 3, 0), 0);

    expect_kept(DEV_SWDRVL4_PMGR_SetEgressSchedulingMethod, {3}, {0}, scheduling_method, {}, {3});
    expect_kept(DEV_SWDRVL4_PMGR_SetPortEgressSchedulingMethod, {2, 28, 1}, {3, 29, 4}, scheduling_method, {2, 28},
                {1});
    expect_kept(DEV_SWDRVL4_PMGR_SetEgressSpSchedulingQueues, {2, 28, 7, 1}, {3, 29, 8, 2}, strict_queue, {2, 28, 7},
                {1});
    expect_kept(DEV_SWDRVL4_PMGR_SetStrictPriorityQueue, {7}, {8}, strict_queue, {7}, {1});
    expect_kept(DEV_SWDRVL4_PMGR_SetWrrQueueWeight, {7, 255}, {8, 256}, queue_weight, {7}, {255});
    expect_kept(DEV_SWDRVL4_PMGR_SetPortWrrQueueWeight, {2, 28, 7, 1}, {3, 29, 8, 0}, queue_weight, {2, 28, 7}, {1});
}

TEST_F(Swdrvl4Test, KeepsIsolation)
{
    constexpr uint32_t port_28 = 0x0800'0000;
    const auto one = DEV_SWDRVL4_PMGR_DeletePrivateVlanPortlistBySessionId;
    expect_kept(DEV_SWDRVL4_PMGR_EnableTrafficSegmatation, {}, {}, traffic_segmentation, {}, {1});
    expect_kept(DEV_SWDRVL4_PMGR_SetTrafficSegmatationByPortlist, {ports_1_and_28, port_2}, {port_29, port_1},
                isolated_ports, {0}, {port_28 | 1, 0, 2, 0});
    expect_kept(DEV_SWDRVL4_PMGR_SetPrivateVlanPortlistBySessionId, {15, ports_1_and_28, port_2}, {16, port_2, port_29},
                isolated_ports, {15}, {port_28 | 1, 0, 2, 0});
    EXPECT_EQ(DEV_SWDRVL4_PMGR_SetPrivateVlanPortlistBySessionId(0, port_1, port_2), 0);
    expect_kept(one, {15, port_1, port_2}, {2, port_2, port_1}, isolated_ports, {15}, {port_28, 0, 0, 0});
    EXPECT_EQ(one(15, port_1, no_ports), 0) << "it has left";
    EXPECT_EQ(one(3, no_ports, no_ports), 0) << "no lists";
    expect_kept(DEV_SWDRVL4_PMGR_DisableTrafficSegmatation, {}, {}, traffic_segmentation, {}, {0});
    expect_kept(DEV_SWDRVL4_PMGR_EnableTrafficSegmatation, {}, {}, traffic_segmentation, {}, {1});
    expect_kept(DEV_SWDRVL4_PMGR_ResetTrafficSegmatation, {}, {}, isolated_ports, {0}, {0, 0, 0, 0});
    EXPECT_TRUE(kept(traffic_segmentation, {}, {0})(model.lock()->chips));
    EXPECT_TRUE(kept(isolated_ports, {15}, {port_28, 0, 0, 0})(model.lock()->chips)) << "a session of its own";
    expect_kept(DEV_SWDRVL4_PMGR_SetPrivateVlanUplinkPortMode, {1}, {2}, private_vlan_uplinks_forward, {}, {1});
    expect_kept(DEV_SWDRVL4_PMGR_SetPrivateVlanTrunkMode, {2, 28, 1}, {3, 29, 2}, private_vlan_trunk, {2, 28}, {1});
}

TEST_F(Swdrvl4Test, KeepsSecurityAndSampling)
{
    expect_kept(DEV_SWDRVL4_PMGR_EnablePortSecurity, {2, 28}, {3, 29}, port_security, {2, 28}, {1});
    expect_kept(DEV_SWDRVL4_PMGR_DisablePortSecurity, {2, 28}, {3, 29}, port_security, {2, 28}, {0});
    expect_kept(DEV_SWDRVL4_PMGR_SetPortSecurityMode, {2, 28, 3}, {3, 29, 4}, port_security_mode, {2, 28}, {3});
    EXPECT_EQ(DEV_SWDRVL4_PMGR_SetPortSecurityMode(2, 28, 0), 0);

    // These say on the console that they were refused.
    testing::internal::CaptureStdout();
    expect_kept(DEV_SWDRVL4_PMGR_EnablePortSflow, {2, 28, 3}, {3, 29, 4}, sflow_direction, {2, 28}, {3});
    expect_kept(DEV_SWDRVL4_PMGR_SetPortSflowRate, {2, 28, 0xFF'FFFF}, {3, 29, 0x100'0000}, sflow_rate, {2, 28},
                {0xFF'FFFF});
    expect_kept(DEV_SWDRVL4_PMGR_SetDosProtectionFilter, {8, 1}, {9, 2}, dos_filter, {8}, {1});
    EXPECT_EQ(DEV_SWDRVL4_PMGR_SetDosProtectionFilter(0, 1), 0);
    testing::internal::GetCapturedStdout();
}

}  // namespace
}  // namespace quillon::test
