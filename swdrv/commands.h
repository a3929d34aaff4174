// The switch driver's requests: code, what each carries, what comes back.
#pragma once

#include <stdint.h>

#include <array>
#include <cstddef>

#include "ipc/envelope.h"
#include "quillon/swdrv.h"
#include "swdrv/family.h"

namespace quillon::swdrv {

using ipc::Empty;
using ipc::Padded;
using ipc::Unused;
using ipc::UnusedWord;

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

struct PortFlag {
    uint32_t unit;
    uint32_t port;
    Padded<uint8_t> value;
};

struct PortWord {
    uint32_t unit;
    uint32_t port;
    uint32_t value;
};

// Values whose meaning is the driver process's, in the order of the function's arguments.
template <size_t Count>
struct Words {
    std::array<uint32_t, Count> values;
};

template <size_t Count>
struct Flags {
    std::array<uint8_t, Count> values;
};

// ---- Unit, device and port mapping ----

// A port as the chips number it.
struct PhysicalPort {
    uint32_t module_id;
    uint32_t device_id;
    uint32_t phy_port;
};

struct UnitModule {
    uint32_t unit;
    uint32_t module_id;
};

struct UnitDevice {
    uint32_t unit;
    uint32_t device_id;
};

struct ForcedLed {
    // The driver process accepts fewer bytes than the member holds.
    static constexpr uint32_t max_pattern = 30;

    uint32_t unit;
    uint32_t port;
    std::array<uint8_t, 32> pattern;
    uint32_t pattern_len;
    uint32_t led_mode;
};
static_assert(offsetof(ForcedLed, pattern_len) == 40);

using ResetOnDemand = Command<2, Flag>;
using GetLocalUnitChipsetNumber = Command<4>;
using Logical2PhyDevicePortID = Command<5, Port, PhysicalPort>;
using Logical2PhyDeviceID = Command<6, Port, PhysicalPort>;
using Physical2LogicalPort = Command<7, PhysicalPort, Port>;
using GetLocalDeviceIDFromModuleID = Command<8, UnitModule, Word>;
using GetModuleIdFromLocalDeviceId = Command<9, UnitDevice, Word>;
using PortSerdesAutoTuneDfeClear = Command<296, Port>;
using SetPortForceLinkDownStatus = Command<295, PortFlag>;
using SetPortForceLEDStatus = Command<297, ForcedLed>;

// ---- Port configuration and negotiation ----

using EnablePortAdmin = Command<12, Port>;
using DisablePortAdmin = Command<13, Port>;
using DisableAllPortAdmin = Command<14>;
using SetPortCfgSpeedDuplex = Command<15, PortWord>;
using EnablePortAutoNeg = Command<16, Port>;
using DisablePortAutoNeg = Command<17, Port>;
using EnablePortCfgFlowCtrl = Command<18, Port>;
using DisablePortCfgFlowCtrl = Command<19, Port>;
using SetPortCfgFlowCtrl = Command<20, PortWord>;
using SetPortAutoNegCapability = Command<21, PortWord>;
using SetMiniGbicPortLEDStatus = Command<22, PortFlag>;
using GetPortType = Command<23, Port, Word>;
using SetPortRestartAutoNego = Command<24, Port>;
using SetPortAutoNegoRemoteFaultAdvertisement = Command<25, PortWord>;
using GetPortAutoNegoRemoteFaultAdvertisement = Command<26, Port, Word>;
using GetPortLinkPartnerAutoNegoSignalingState = Command<27, Port, Word>;
using GetPortAutoNegoProcessState = Command<28, Port, Word>;
using GetPortLinkPartnerAutoNegoCapa = Command<29, Port, Word>;
using GetPortLinkPartnerAutoNegoRemoteFault = Command<30, Port, Word>;
using GetPortJabberState = Command<31, Port, Word>;
using GetPortFalseCarrierSenseCounter = Command<32, Port, Word>;

// ---- Spanning tree ----

struct PortStaState {
    static constexpr uint32_t max_entries = 4094;

    uint32_t value1;
    uint32_t entry_count;
    std::array<uint16_t, max_entries> entries;
    uint32_t value2;
    uint32_t value3;
    uint32_t value4;
};
static_assert(offsetof(PortStaState, value2) == 8196);

using SetSTAMode = Command<33, Word>;
using SetPortSTAState = Command<34, PortStaState>;
using SetPortSTAStateWithMstidx = Command<35, Words<4>>;
using AddVlanToSTAWithMstidx = Command<36, Words<2>>;
using DeleteVlanFromSTAWithMstidx = Command<37, Words<2>>;

// ---- VLANs, their member ports and what ports admit ----

struct Vlan {
    uint32_t vlan_id;
};

struct PortVlan {
    uint32_t unit;
    uint32_t port;
    uint32_t vlan_id;
};

// Ports in one word, whatever the length of the caller's bitmap.
struct VlanPorts {
    uint32_t value1;
    uint32_t value2;
    uint32_t port_bitmap;
};

struct VlanPortsAndUnusedWord {
    uint32_t value1;
    uint32_t value2;
    uint32_t port_bitmap;
    UnusedWord unused{};
};

using SetPortPVID = Command<38, PortVlan>;
using CreateVlan = Command<39, Vlan>;
using DestroyVlan = Command<40, Vlan>;
using SetGlobalDefaultVlan = Command<41, Vlan>;
using DeletePortUntaggedVlanSet = Command<42, PortVlan>;
using DeletePortDoubleVlanMemberSet = Command<43, PortVlan>;
using AddPortUntaggedVlanSet = Command<44, PortVlan>;
using AddPortDoubleVlanMemberSet = Command<45, PortVlan>;
using DeletePortVlanSet = Command<46, PortVlan>;
using AddPortVlanSet = Command<47, PortVlan>;
using SetPortToVlanMemberSet = Command<48, VlanPortsAndUnusedWord>;
using SetPortToVlanUntaggedSet = Command<49, VlanPorts>;
using SetPortToDoubleVlanSet = Command<50, VlanPortsAndUnusedWord>;
using EnableIngressFilter = Command<61, Port>;
using DisableIngressFilter = Command<62, Port>;
using AdmitOnlyVlanTaggedFrames = Command<63, Port>;
using AdmitOnlyVlanUntaggedFrames = Command<64, Port>;
using AdmitAllFrames = Command<65, Port>;
using EnableTrapUnspecifiedTagFrame = Command<66>;
using DisableTrapUnspecifiedTagFrame = Command<67>;
using AddCpuToVlan = Command<68, Vlan>;
using DeleteCpuFromVlan = Command<69, Vlan>;

// ---- Frame sizes ----

using SetSystemMTU = Command<51, Words<2>>;
using SetPortMTU = Command<52, PortWord>;
using GetPortMaxFrameSize = Command<53, Port, Words<2>>;
using EnableJumboFrame = Command<106>;
using DisableJumboFrame = Command<107>;

// ---- 802.1Q tunnels ----

struct TunnelDoubleTag {
    uint32_t unit;
    uint32_t port;
    uint32_t value1;
    Padded<uint8_t> value2;
    uint32_t value3;
    uint32_t value4;
};
static_assert(offsetof(TunnelDoubleTag, value3) == 16);

struct TunnelReplaceVlan {
    uint32_t unit;
    uint32_t port;
    uint32_t value1;
    uint32_t value2;
    uint32_t value3;
    Padded<uint8_t> value4;
};

using SetPortDot1qTunnelMTU = Command<54, Word>;
using SetPortDot1qTunnelMode = Command<56, PortFlag>;
using GetPortDot1qTunnelModeofLocalPort = Command<57, Port, Flag>;
using SetPortDot1qTunnelTPID = Command<58, PortWord>;
using GetPortDot1qTunnelTPIDofLocalPort = Command<59, Port, Word>;
using SetPortDot1qTunnelVlanDoubleTag = Command<60, TunnelDoubleTag>;
using SetPortDot1qTunnelModeForReplaceVlan = Command<222, PortWord>;
using SetPortDot1qTunnelReplaceVlan = Command<223, TunnelReplaceVlan>;

// ---- Mirroring ----

using SetPortMirroring = Command<70, Words<3>>;
using DeletePortMirroring = Command<71, Words<2>>;
using EnablePortMirroring = Command<72, Word>;
using DisablePortMirroring = Command<73, Word>;
using AddVlanMirror = Command<74, Words<3>>;
using DeleteVlanMirror = Command<75, Words<3>>;
using SetDestPortForMacMirror = Command<76, PortFlag>;
using SetDestPortForAclMirror = Command<77, PortFlag>;

// ---- Trunks ----

struct Trunk {
    uint32_t trunk_id;
};

struct TrunkMode {
    uint32_t trunk_id;
    Padded<uint8_t> mode;
};

struct TrunkPortMembers {
    uint32_t value1;
    uint32_t value2;
    std::array<uint8_t, 32> port_bitmap;
};

struct TrunkBalanceMode {
    uint32_t selector;
    Padded<uint8_t> mode;
};

struct TrunkMulticastAddr {
    std::array<uint8_t, 6> mac;
    Unused<2> unused{};
    uint32_t value1;
    uint32_t value2;
    uint32_t value3;
};
static_assert(offsetof(TrunkMulticastAddr, value1) == 8);

using CreateTrunk = Command<78, Trunk>;
using CreateTrunkwithMode = Command<79, TrunkMode>;
using SetTrunkLoadBalanceMode = Command<80, Word>;
using DestroyTrunk = Command<81, Trunk>;
using SetTrunkPortMembers = Command<82, TrunkPortMembers>;
using SetTrunkBalanceMode = Command<83, TrunkBalanceMode>;
using GetTrunkBalanceModeofLocalUnit = Command<84, Word, Flag>;
using AddMulticastAddrToTrunkMember = Command<85, TrunkMulticastAddr>;
using DeleteMulticastAddrToTrunkMember = Command<86, TrunkMulticastAddr>;

// ---- IGMP trap ----

using EnableIgmpTrap = Command<87>;
using DisableIgmpTrap = Command<88>;
using TrapIGMPToCPU = Command<89, Flags<2>>;

// ---- Storm control ----

using SetBroadcastStormControlThreshold = Command<90, Words<4>>;
using SetMulticastStormControlThreshold = Command<91, Words<4>>;
using SetUnknownUnicastStormControlThreshold = Command<92, Words<4>>;
using EnableBroadcastStormControl = Command<93, Port>;
using DisableBroadcastStormControl = Command<94, Port>;
using EnableMulticastStormControl = Command<95, Port>;
using DisableMulticastStormControl = Command<96, Port>;
using EnableUnknownUnicastStormControl = Command<97, Port>;
using DisableUnknownUnicastStormControl = Command<98, Port>;
using GetPortStormGranularity = Command<99, PortWord, Word>;

// ---- Priorities and traffic classes ----

// One byte for each of the eight priorities.
struct PriorityMapping {
    std::array<uint8_t, 8> mapping;
};

struct PortPriorityMapping {
    uint32_t unit;
    uint32_t port;
    std::array<uint8_t, 8> mapping;
};

using SetPortUserDefaultPriority = Command<100, PortWord>;
using SetPriorityMapping = Command<101, PortPriorityMapping>;
using SetPriorityMappingPerSystem = Command<102, PriorityMapping>;
using SetNumberOfTrafficClassByPort = Command<103, PortWord>;
using SetNumberOfTrafficClass = Command<104, Word>;
using SetStackingPortPriorityMapping = Command<105, PortPriorityMapping>;

// ---- Port status and link scan ----

struct DevicePort {
    uint32_t device_id;
    uint32_t device_port;
};

struct BlockSelectors {
    uint32_t block_sel0;
    uint32_t block_sel1;
    uint32_t block_sel2;
};

using GetPortOperSpeedDuplex = Command<108, Port, Word>;
using GetAllPortOperSpeedDuplex = Command<109, BlockSelectors, port_state_block>;
using GetAllPortLinkStatus = Command<110, BlockSelectors, port_state_block>;
using GetPortLinkStatus = Command<111, Port, Word>;
using GetAllPortStatus = Command<112, BlockSelectors, port_state_block>;
using GetPortLinkStatusByDeviceId = Command<113, DevicePort, Word>;
using GetPortFlowCtrl = Command<114, Port, Word>;
using GetAllPortFlowCtrl = Command<115, BlockSelectors, port_state_block>;
using LinkScan_Update = Command<116, Empty, Empty, void>;
using EnableHgPortAdmin = Command<10, Unused<8>>;  // counts 8 bytes that nobody fills
using LINKSCAN_Register = Command<11>;

// ---- Multicast, learning and CPU traps ----

struct PortLearning {
    uint32_t unit;
    uint32_t port;
    std::array<uint8_t, 3> flags;
    Unused<1> unused{};
};

struct MulticastMac {
    std::array<uint8_t, 6> mac;
    Unused<2> unused{};
    uint32_t value;
};
static_assert(offsetof(MulticastMac, value) == 8);

struct IpMulticastTrap {
    std::array<uint8_t, 2> flags;
    Unused<2> unused{};
    uint32_t value;
};
static_assert(offsetof(IpMulticastTrap, value) == 4);

using EnableIPMC = Command<117, Word>;
using DisableIPMC = Command<118, Word>;
using IPMC_EnableSourcePortCheck = Command<119, Word>;
using IPMC_DisableSourcePortCheck = Command<120, Word>;
using IPMC_EnableSourceIPSearch = Command<121, Word>;
using IPMC_DisableSourceIPSearch = Command<122, Word>;
using EnablePortLearning = Command<123, Port>;
using DisablePortLearning = Command<124, Port>;
using SetPortLearningStatus = Command<125, PortLearning>;
using EnableUMCASTIpTrap = Command<142>;
using DisableUMCASTIpTrap = Command<143>;
using EnableUMCASTMacTrap = Command<144>;
using DisableUMCASTMacTrap = Command<145>;
using AddIPv6MulticastAddress = Command<156, MulticastMac>;
using DelIPv6MulticastAddress = Command<157, MulticastMac>;
using EnableMLDTrap2CPU = Command<158, Unused<1>>;   // counts a byte that nobody fills; kept
using DisableMLDTrap2CPU = Command<159, Unused<1>>;  // likewise
using TrapMLDToCPU = Command<160, Flags<2>>;
using EnableNDTrap2CPU = Command<162, Flag>;
using DisableNDTrap2CPU = Command<163, Flag>;
using SetRaAndRrTrap2CPU = Command<246, Flag>;
using SetEapolFramePassThrough = Command<195, Flag>;
using ModifyMaxFrameSize = Command<199, Flags<2>>;
using GetPortMediaActive = Command<200, Port, Word>;
using TrapUnknownIpMcastToCPU = Command<204, IpMulticastTrap>;
using TrapUnknownIpv6McastToCPU = Command<205, Flags<2>>;

// ---- VLAN rules, VLAN trunking and RSPAN ----

struct ProtocolPortEntry {
    static constexpr uint32_t max_templates = 11;

    uint32_t unit;
    uint32_t port;
    uint32_t value1;
    uint32_t value2;
    uint32_t count;
    ProtocolGroupKey key;
    std::array<ProtocolTemplate, max_templates> templates;
    Unused<5> unused{};
};
static_assert(offsetof(ProtocolPortEntry, key) == 20 && offsetof(ProtocolPortEntry, templates) == 32);

struct AddedProtocolPortEntry {
    ProtocolPortEntry entry;
    Padded<uint8_t> value;
};
static_assert(offsetof(AddedProtocolPortEntry, value) == 92);

struct ProtocolGroup {
    uint32_t value1;
    ProtocolTemplate protocol;
    Unused<3> unused{};
    uint32_t value2;
};
static_assert(offsetof(ProtocolGroup, value2) == 12);

struct MacAddress {
    std::array<uint8_t, 6> mac;
};

struct MacVlan {
    std::array<uint8_t, 6> mac;
    uint16_t vid;
    uint8_t value;
    Unused<1> unused{};
};
static_assert(offsetof(MacVlan, vid) == 6 && offsetof(MacVlan, value) == 8);

struct IpSubnet {
    uint32_t ip;
    uint32_t mask;
};

struct IpSubnetVlan {
    IpSubnet subnet;
    uint16_t vid;
    uint8_t value;
    Unused<1> unused{};
};
static_assert(offsetof(IpSubnetVlan, value) == 10);

struct VlanTrunking {
    uint32_t value1;
    uint32_t value2;
    Padded<uint8_t> flag;
};

struct VlanListTrunking {
    std::array<uint8_t, 512> vlan_list;
    uint32_t value;
    Padded<uint8_t> flag;
};
static_assert(offsetof(VlanListTrunking, value) == 512 && offsetof(VlanListTrunking, flag) == 516);

struct RspanVlanTag {
    uint32_t value1;
    uint16_t value2;
    uint16_t value3;
};
static_assert(offsetof(RspanVlanTag, value3) == 6);

using AddDot1vProtocolPortEntry = Command<128, AddedProtocolPortEntry>;
using DelDot1vProtocolPortEntry = Command<129, ProtocolPortEntry>;
using SetDot1vProtocolGroupEntry = Command<130, ProtocolGroup>;
using SetMacVlanEntry = Command<190, MacVlan>;
using DeleteMacVlanEntry = Command<191, MacAddress>;
using SetIpSubnetVlanEntry = Command<192, IpSubnetVlan>;
using DeleteIpSubnetVlanEntry = Command<193, IpSubnet>;
using SetDefaultVlanTrunking = Command<186>;
using CreateVlanForVlanTrunking = Command<187, Words<2>>;
using SetPortVlanTunkingByVLAN = Command<188, VlanTrunking>;
using SetPortVlanTunkingByVlanList = Command<189, VlanListTrunking>;
using SetCopyInnerPri2OuterPri = Command<194, Words<3>>;
using SetRspanVlanTag = Command<196, RspanVlanTag>;
using DisableRspanPortLearning = Command<197, Port>;
using EnableRspanPortLearning = Command<198, Port>;

// ---- Stacking and topology ----

struct ComboForcedMode {
    uint32_t unit;
    uint32_t port;
    uint32_t value1;
    uint32_t value2;
};

struct WordFlag {
    uint32_t word;
    Padded<uint8_t> flag;
};

struct UnitId {
    uint32_t value;
    UnusedWord unused{};
};

using SetPortComboForcedMode = Command<131, ComboForcedMode>;
using SetPortIfmode = Command<300, PortWord>;
using ShutdownSwitch = Command<132, Empty, Empty, void>;
using UpdateHerculesUCTable = Command<133, TopologyRecord>;
using ConfigTopologyInfo = Command<134, TopologyRecord>;
using Physical2LogicalPortByUnitID_DeviceID = Command<135, Words<3>, Port>;
using GetUnitId = Command<136, Unused<12>, UnitId>;  // counts 12 bytes that nobody fills; kept
using GetStackChipDeviceID = Command<137, Empty, Word>;
using GetDstUnitInfo = Command<138, Words<2>, Words<2>, void>;
using HiGigRemoteLoopbackSet = Command<139, Words<3>, Empty, void>;
using Get5670linkport = Command<140, Word, Word>;
using GetCopperEnergyDetect = Command<141, Port, Word>;
using SetFiberPortAutoNeg = Command<146, PortWord>;
using GetFabricportByUnitPosition = Command<148, Word, Word, void>;
using GetFabricPortToDstUnit = Command<149, Word, Word, void>;
using GetMasterModuleID = Command<150, Empty, Word>;
using GetModuleInfoByUnit = Command<151, WordFlag, Word>;
using GetLocalCrossBarDeviceId = Command<152, Empty, Word>;
using VID_BREAK = Command<154, Empty, Empty, void>;
using GetNextSwitchChipId = Command<155, Word, Word>;
using GetForwardingStackingPortBitMap = Command<164, Empty, Word, void>;

// ---- PHY, cable and port diagnostics ----

struct HalfWord {
    uint16_t value;
};

struct PortHalfWord {
    uint32_t unit;
    uint32_t port;
    Padded<uint16_t> value;
};

struct PortFlagPair {
    uint32_t unit;
    uint32_t port;
    std::array<uint8_t, 2> flags;
    Unused<2> unused{};
};

struct PortMac {
    uint32_t unit;
    uint32_t port;
    std::array<uint8_t, 6> mac;
    Unused<2> unused{};
};

struct PhyRegOps {
    static constexpr size_t op_size = 6;
    static constexpr size_t max_ops = 10;

    uint32_t unit;
    uint32_t port;
    std::array<uint8_t, max_ops * op_size> ops;
    uint32_t num_of_ops;
};
static_assert(offsetof(PhyRegOps, num_of_ops) == 68);

struct EgressBlock {
    uint32_t unit;
    uint32_t port;
    std::array<uint64_t, 2> egress_bitmap;
};
static_assert(offsetof(EgressBlock, egress_bitmap) == 8);

struct CpldVersion {
    uint8_t first;
    Unused<1> unused1{};
    uint8_t second;
    Unused<1> unused2{};
};
static_assert(offsetof(CpldVersion, second) == 2);

using Set1000BaseTPortTestMode = Command<167, PortHalfWord>;
using Get1000BaseTPortTestMode = Command<168, Port, HalfWord>;
using Set1000BaseTTransmitterType = Command<169, PortHalfWord>;
using Get1000BaseTTransmitterType = Command<170, Port, HalfWord>;
using GetAutoMDIXmode = Command<172, Port, Word>;
using SocPciWrite = Command<175, Words<3>, Empty, uint32_t>;
using SetPortPowerSave = Command<176, PortFlagPair>;
using GetCableDiag = Command<177, Port, CableDiagRecord>;
using GetCableDiagResult = Command<178, Port, CableDiagResultRecord>;
using EnableInternalLoopback = Command<179, Word>;
using DisableInternalLoopback = Command<180, Word>;
using IsPortLoopbacking = Command<181, Word>;
using SetPortAuthMode = Command<184, PortWord>;
using UpdatePortMapping = Command<185, Flag>;
using SetPortMacAddr = Command<256, PortMac>;
using SetCpuRateLimit = Command<262, Words<2>>;
using GetPortAbility = Command<263, Port, Word>;
using DoPHYRegsTransactions = Command<255, PhyRegOps>;
using GetMIIPhyRegByPage = Command<245, Words<7>, HalfWord>;
using GetAllPortAverageTemperature = Command<264, Empty, Word>;
using SetCpuPortRate = Command<265, WordFlag>;
using SetPortEgressBlock = Command<266, EgressBlock>;
using SetPortTrafficTxRx = Command<289, PortFlag>;
using SetPortStationMoveAction = Command<292, PortFlagPair>;
using GetCPLDSoftwareVersion = Command<293, Word, CpldVersion>;
using SetPortSfpConnector = Command<294, PortFlag>;
using SetPortFec = Command<298, PortWord>;
using GetPortFecStatus = Command<299, Port, Word>;
using GetDeviceTemperature = Command<301, Empty, Word>;

// ---- OAM, trunk hashing and event delivery ----

struct DoubleWord {
    uint64_t value;
};

struct OamEnable {
    uint8_t oam_sel;
    uint8_t enable;
    Unused<6> unused{};
};

struct OamEntry {
    Padded<uint8_t> oam_sel;
    uint32_t entry_index;
    uint32_t param1;
    uint32_t param2;
    OamEntryRecord record;
};
static_assert(offsetof(OamEntry, entry_index) == 4 && offsetof(OamEntry, record) == 16);

struct OamOpcodeProfile {
    Padded<uint8_t> oam_sel;
    uint32_t entry_index;
    uint32_t param1;
    uint32_t param2;
    uint32_t param3;
};
static_assert(offsetof(OamOpcodeProfile, entry_index) == 4);

struct OamAgingPeriod {
    Padded<uint8_t> oam_sel;
    uint32_t entry_index;
    uint32_t param1;
    uint32_t param2;
};
static_assert(offsetof(OamAgingPeriod, entry_index) == 4);

struct OamKeepalive {
    uint8_t oam_sel;
    uint8_t enable;
    Unused<2> unused{};
    uint32_t entry_index;
};
static_assert(offsetof(OamKeepalive, entry_index) == 4);

struct OamException {
    Padded<uint8_t> oam_sel;
    uint32_t entry_index;
    uint32_t param1;
    Padded<uint8_t> enable;
};
static_assert(offsetof(OamException, entry_index) == 4);

struct OamExceptionRecovery {
    Padded<uint8_t> oam_sel;
    uint32_t entry_index;
    uint32_t param1;
    UnusedWord unused{};
};
static_assert(offsetof(OamExceptionRecovery, entry_index) == 4);

struct OamExceptionGroup {
    uint32_t value;
    Padded<uint8_t> oam_sel;
    uint32_t entry_index;
};
static_assert(offsetof(OamExceptionGroup, entry_index) == 8);

struct OamExceptionEntry {
    uint32_t value;
    Padded<uint8_t> oam_sel;
    uint32_t entry_index;
    uint32_t param1;
};
static_assert(offsetof(OamExceptionEntry, entry_index) == 8);

struct TrunkHashCrc {
    uint32_t value;
    uint32_t entry_index;
    TrunkHashCrcRecord record;
};

struct OamBinding {
    static constexpr int8_t bind = 1;

    Padded<uint8_t> operation;
    uint32_t param1;
    uint32_t param2;
};
static_assert(offsetof(OamBinding, param1) == 4);

struct OamWait {
    uint32_t event;
    UnusedWord unused{};
    uint64_t event_handle;
    Padded<uint8_t> wait_forever;
    uint32_t timeout;
};
static_assert(offsetof(OamWait, event_handle) == 8 && offsetof(OamWait, wait_forever) == 16 &&
              offsetof(OamWait, timeout) == 20);

using Receive_All = Command<165, Word, Empty, void>;
using SetOamPduToCpu = Command<220, PortFlag>;
using SetOamLoopback = Command<221, PortFlag>;
using SetOamEnable = Command<224, OamEnable>;
using SetOamEntry = Command<225, OamEntry>;
using SetOamOpcodeProfilePktCmdEntry = Command<226, OamOpcodeProfile>;
using SetOamAgingDaemonEnable = Command<227, OamEnable>;
using SetOamAgingPeriodEntry = Command<228, OamAgingPeriod>;
using SetOamKeepaliveForPacketCommandEnable = Command<229, OamKeepalive>;
using SetOamExceptionConfig = Command<230, OamException>;
using SetOamExceptionRecoveryConfig = Command<231, OamExceptionRecovery>;
using GetOamExceptionGroupStatus = Command<232, OamExceptionGroup, DoubleWord>;
using GetOamExceptionStatus = Command<233, OamExceptionEntry, Word>;
using SetTrunkHashGlobalMode = Command<234, Word>;
using SetTrunkHashCrcEntry = Command<235, TrunkHashCrc>;
using EventBindUnbindOam = Command<236, OamBinding, DoubleWord>;
using WaitAndReceiveOam = Command<237, OamWait>;

// ---- TWSI buses and PoE controller ----

struct TwsiDataToWrite {
    uint8_t bus_idx;
    uint8_t dev_id;
    uint8_t sel_a;
    uint8_t sel_b;
    uint32_t word;
    uint8_t sel_c;
    std::array<uint8_t, 255> data;
    uint8_t len;
    Unused<3> unused{};
};
static_assert(offsetof(TwsiDataToWrite, word) == 4 && offsetof(TwsiDataToWrite, data) == 9 &&
              offsetof(TwsiDataToWrite, len) == 264);

// Not the layout of the write: the device has a word of its own here.
struct TwsiDataToRead {
    Padded<uint8_t> bus_idx;
    uint32_t dev_id;
    uint8_t sel_a;
    uint8_t sel_b;
    Unused<2> unused1{};
    uint32_t word;
    uint8_t sel_c;
    uint8_t len;
    Unused<6> unused2{};
};
static_assert(offsetof(TwsiDataToRead, dev_id) == 4 && offsetof(TwsiDataToRead, word) == 12 &&
              offsetof(TwsiDataToRead, len) == 17);

struct TwsiBytesToWrite {
    uint8_t dev_id;
    Unused<1> unused1{};
    uint16_t offset16;
    std::array<uint8_t, 256> data;
    Padded<uint16_t> len;
    Unused<8> unused2{};
};
static_assert(offsetof(TwsiBytesToWrite, offset16) == 2 && offsetof(TwsiBytesToWrite, data) == 4 &&
              offsetof(TwsiBytesToWrite, len) == 260);

struct TwsiBytesToRead {
    uint8_t dev_id;
    Unused<1> unused1{};
    uint16_t offset16;
    Padded<uint16_t> len;
    Unused<8> unused2{};
};
static_assert(offsetof(TwsiBytesToRead, offset16) == 2 && offsetof(TwsiBytesToRead, len) == 4);

template <size_t Capacity>
struct ReadBytes {
    std::array<uint8_t, Capacity> data;
};

struct PoeCommand {
    std::array<uint8_t, 256> data;
    uint16_t len;
};
static_assert(offsetof(PoeCommand, len) == 256);

struct PoeAnswer {
    std::array<uint8_t, 256> data;
    uint32_t poe_status;
};
static_assert(offsetof(PoeAnswer, poe_status) == 256);

using PhyLightPortLedNormal = Command<206>;
using TwsiInit = TwsiCommand<207>;
using TwsiRegisterWrite = TwsiCommand<208, Words<3>>;
using TwsiRegisterRead = TwsiCommand<209, Words<2>, Word>;
using TwsiDataWriteWithBusIdx =
    TwsiCommand<210, TwsiDataToWrite, Unused<1>>;  // asks for a byte that nobody reads; kept
using TwsiDataReadWithBusIdx = TwsiCommand<211, TwsiDataToRead, ReadBytes<256>>;
using TwsiWrite = TwsiCommand<212, TwsiBytesToWrite>;
using TwsiRead = TwsiCommand<213, TwsiBytesToRead, ReadBytes<255>>;  // a byte less than TwsiWrite carries; kept
using MSCC_POE_Init = Command<216>;
using MSCC_POE_Write = Command<217, PoeCommand, Word>;
using MSCC_POE_Read = Command<218, HalfWord, PoeAnswer>;
using MSCC_POE_Exit = Command<219>;
using SetSysPoeLEDStatus = Command<302, Words<2>>;

}  // namespace quillon::swdrv
