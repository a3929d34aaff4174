// The QoS requests: code and what each carries. None brings more back than its result.
#pragma once

#include <stdint.h>

#include <array>
#include <cstddef>

#include "ipc/envelope.h"
#include "swdrvl4/family.h"

namespace quillon::swdrvl4 {

using ipc::Padded;
using ipc::Unused;

using PortList8 = std::array<uint8_t, 8>;

struct Flag {
    uint8_t value;
};

struct Word {
    uint32_t value;
};

struct Port {
    uint32_t unit;
    uint32_t port;
};

struct PortWord {
    uint32_t unit;
    uint32_t port;
    uint32_t value;
};

struct PortFlag {
    uint32_t unit;
    uint32_t port;
    Padded<uint8_t> value;
};

struct CosMapping {
    uint32_t mapping;
    uint32_t value;
    uint32_t priority;
};

struct PortCosMapping {
    uint32_t unit;
    uint32_t port;
    uint32_t mapping;
    uint32_t value;
    uint32_t priority;
};

// The method comes first, in front of the port that it is for.
struct Scheduling {
    uint32_t method;
    uint32_t unit;
    uint32_t port;
};

struct SpScheduling {
    uint32_t unit;
    uint32_t port;
    uint32_t queue;
    uint32_t mode;
};

struct QueueWeight {
    uint32_t queue;
    uint32_t weight;
};

struct PortQueueWeight {
    uint32_t unit;
    uint32_t port;
    uint32_t queue;
    uint32_t weight;
};

struct PortLists {
    uint32_t session;
    PortList8 first_ports;
    PortList8 second_ports;
};
static_assert(offsetof(PortLists, first_ports) == 4 && offsetof(PortLists, second_ports) == 12);

// Both directions of the mapping between CoS and DSCP carry the CoS in front of the DSCP.
struct CosDscp {
    uint32_t unit;
    uint32_t port;
    uint32_t cos;
    uint32_t cos_extra;
    uint32_t dscp;
    uint32_t dscp_extra;
};

struct PrecedenceDscp {
    uint32_t unit;
    uint32_t port;
    uint32_t precedence;
    uint32_t dscp;
    uint32_t dscp_extra;
};

struct DscpDscp {
    uint32_t unit;
    uint32_t port;
    uint32_t dscp;
    uint32_t new_dscp;
    uint32_t new_dscp_extra;
};

struct DscpQueue {
    uint32_t unit;
    uint32_t port;
    uint32_t dscp;
    uint32_t queue;
};

struct DscpColor {
    uint32_t unit;
    uint32_t port;
    uint32_t dscp;
    uint32_t color;
};

struct DosFilter {
    uint32_t filter;
    Padded<uint8_t> mode;
    Unused<4> unused{};
};
static_assert(offsetof(DosFilter, mode) == 4);

// Class-of-service mapping.
using EnableCosMapping = Command<1, Word>;
using EnablePortCosMapping = Command<2, PortWord>;
using DisableCosMapping = Command<3, Word>;
using DisablePortCosMapping = Command<4, PortWord>;
using SetCosMapping = Command<5, CosMapping>;
using SetPortCosMapping = Command<6, PortCosMapping>;
using DeleteCosMapping = Command<7, CosMapping>;
using DeletePortCosMapping = Command<8, PortCosMapping>;

// Rate limits.
using EnablePortIngressRateLimit = Command<9, Port>;
using DisablePortIngressRateLimit = Command<10, Port>;
using SetPortIngressRateLimit = Command<11, PortWord>;
using EnablePortEgressRateLimit = Command<12, Port>;
using DisablePortEgressRateLimit = Command<13, Port>;
using SetPortEgressRateLimit = Command<14, PortWord>;

// Egress scheduling and queue weights.
using SetEgressSchedulingMethod = Command<15, Scheduling>;
using SetPortEgressSchedulingMethod = Command<33, Scheduling>;
using SetEgressSpSchedulingQueues = Command<16, SpScheduling>;
using SetWrrQueueWeight = Command<18, QueueWeight>;
using SetStrictPriorityQueue = Command<17, Word>;
using SetPortWrrQueueWeight = Command<19, PortQueueWeight>;

// Traffic segmentation and private VLANs.
using EnableTrafficSegmatation = Command<20>;
using DisableTrafficSegmatation = Command<21>;
using ResetTrafficSegmatation = Command<23>;
using SetTrafficSegmatationByPortlist = Command<24, PortLists>;
using SetPrivateVlanPortlistBySessionId = Command<25, PortLists>;
using DeletePrivateVlanPortlistBySessionId = Command<26, PortLists>;
using SetPrivateVlanUplinkPortMode = Command<27, Flag>;
using SetPrivateVlanTrunkMode = Command<28, PortFlag>;

// Port security.
using EnablePortSecurity = Command<29, Port>;
using DisablePortSecurity = Command<30, Port>;
using SetPortSecurityMode = Command<31, PortWord>;

// Mapping tables of CoS, precedence and DSCP.
using SetCosTrustMode = Command<34, PortWord>;
using SetQosIngCos2Dscp = Command<35, CosDscp>;
using SetQosIngPre2Dscp = Command<36, PrecedenceDscp>;
using SetQosIngDscp2Dscp = Command<37, DscpDscp>;
using SetQosIngDscp2Queue = Command<38, DscpQueue>;
using SetQosIngDscp2Color = Command<39, DscpColor>;
using SetQosIngDscp2Cos = Command<40, CosDscp>;

// sFlow sampling and the DoS protection filters.
using EnablePortSflow = CommandWithSendLine<41, PortFlag>;
using SetPortSflowRate = CommandWithSendLine<42, PortWord>;
using SetDosProtectionFilter = CommandWithSendLine<43, DosFilter>;

}  // namespace quillon::swdrvl4
