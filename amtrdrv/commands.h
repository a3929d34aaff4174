// The MAC address table's requests: code, what each carries, what comes back.
#pragma once

#include <stdint.h>

#include <array>
#include <cstddef>

#include "amtrdrv/family.h"
#include "ipc/envelope.h"
#include "quillon/amtrdrv.h"

namespace quillon::amtrdrv {

using ipc::Empty;
using ipc::Padded;
using ipc::Unused;

using Mac = std::array<uint8_t, 6>;
using PortList8 = std::array<uint8_t, 8>;

struct Word {
    uint32_t value;
};

struct Flag {
    uint8_t value;
};

struct Entry {
    AddrTblEntry value;
};

struct EntryAttribute {
    AddrTblEntry entry;
    uint32_t attribute;
    Padded<uint8_t> mode;
};
static_assert(offsetof(EntryAttribute, attribute) == 16);

// The entry stands at an even offset, right behind the device.
struct DeviceEntry {
    uint8_t device;
    Unused<1> unused{};
    AddrTblEntry entry;
};
static_assert(offsetof(DeviceEntry, entry) == 2);

// The entries that follow the current one in the table's order.
struct AddrTblBatch {
    static constexpr uint32_t max_entries = QUILLON_ADDR_TBL_BATCH_ENTRIES;

    std::array<AddrTblEntry, max_entries> entries;
    uint32_t count;
};
static_assert(offsetof(AddrTblBatch, count) == 2400);

// What an entry is found by.
struct VlanMac {
    uint32_t vlan;
    Mac mac;
    Unused<2> unused{};
};

struct DeviceVlanMac {
    Padded<uint8_t> device;
    uint32_t vlan;
    Mac mac;
    Unused<2> unused{};
};
static_assert(offsetof(DeviceVlanMac, vlan) == 4);

struct Intervention {
    uint32_t vlan;
    Mac mac;
    uint8_t mode;
    Unused<1> unused{};
    uint32_t value;
};
static_assert(offsetof(Intervention, mode) == 10 && offsetof(Intervention, value) == 12);

struct PortSelector {
    uint32_t unit;
    uint32_t port;
    uint32_t selector;
};

struct PortSelectorVlan {
    uint32_t unit;
    uint32_t port;
    uint32_t selector;
    uint32_t vlan;
};

struct NewMulticastMember {
    uint32_t vlan;
    Mac mac;
    Unused<2> unused{};
    uint32_t unit;
    uint32_t port;
    Padded<uint8_t> mode;
};
static_assert(offsetof(NewMulticastMember, unit) == 12);

// The address comes last, unlike where a member is added.
struct MulticastMember {
    uint32_t vlan;
    uint32_t unit;
    uint32_t port;
    Mac mac;
    Unused<2> unused{};
};

struct MulticastPortLists {
    uint32_t vlan;
    Mac mac;
    PortList8 first_ports;
    PortList8 second_ports;
    Unused<2> unused{};
};
static_assert(offsetof(MulticastPortLists, first_ports) == 10 && offsetof(MulticastPortLists, second_ports) == 18);

// What the chips hold of an address.
struct Lookup {
    uint32_t first_value;
    uint32_t second_value;
    Padded<uint8_t> flag;
};

struct FirstChipLookup {
    uint32_t first_value;
    uint32_t second_value;
    uint32_t third_value;
    Padded<uint8_t> flag;
};

// The address comes first, unlike in all other members.
struct HitBitKey {
    Mac mac;
    Unused<2> unused{};
    uint32_t vlan;
    uint32_t selector;
    std::array<uint8_t, 32> block;
    uint32_t mode;
};
static_assert(offsetof(HitBitKey, vlan) == 8 && offsetof(HitBitKey, mode) == 48);

struct InterfaceConfig {
    uint32_t first_value;
    uint32_t second_value;
    uint32_t third_value;
};

// Walking the table.
using ResetToFirstAddrTblEntry = Command<1, Word>;
using GetNextAddrTblEntry = Command<2, Entry, Entry, uint32_t>;
using GetNextNAddrTblEntry = Command<3, Word, AddrTblBatch, uint32_t>;

// Setting entries.
using SetAddrTblEntry = Command<6, Entry>;
using SetInterventionEntry = Command<10, Intervention, Empty, uint32_t>;
using DeleteInterventionEntry = Command<11, VlanMac>;
using AddVlanMac = Command<12, VlanMac>;
using DeleteVlanMac = Command<13, VlanMac>;
using SetMacEntryWithAttribute = Command<21, EntryAttribute>;
using SetAddrTblEntryByDevice = Command<28, DeviceEntry, Empty, uint32_t>;

// Deleting entries.
using DeleteAddr = Command<7, VlanMac>;
using DeleteAllDynamicAddr = Command<8>;
using DeleteAllAddr = Command<9>;
using DeleteAddrByPort = Command<22, PortSelector>;
using DeleteDynamicAddrByPort = Command<23, PortSelector>;
using DeleteDynamicAddrByVlan = Command<24, PortSelectorVlan>;
using DeleteDynamicAddrByPortAndVlan = Command<25, PortSelectorVlan>;
using DeleteAddrByDevice = Command<29, DeviceVlanMac>;

// Multicast entries.
using CreateMulticastAddrTblEntry = Command<14, VlanMac>;
using DestroyMulticastAddrTblEntry = Command<15, VlanMac>;
using AddMulticastPortMember = Command<16, NewMulticastMember>;
using DeleteMulticastPortMember = Command<17, MulticastMember>;
using SetMulticastPortList = Command<18, MulticastPortLists>;
using SetMCastEntryForInternalPacket = Command<33, Empty, Empty, void>;

// Looking addresses up in the chips.
using ARLLookUp = Command<19, VlanMac, Lookup>;
using ShowValidNullMac = Command<20, Empty, Empty, void>;
using ARLFirstChipLookUp = Command<26, VlanMac, FirstChipLookup>;
using ReadAndClearLocalHitBit = Command<27, HitBitKey, Flag>;
using GetHashLookupDepth = Command<35, Empty, Word>;

// Ageing, learning and the service itself.
using SetAgeingTime = Command<0, Word>;
using DisableHardwareLearning = Command<30, Unused<4>>;
using Disable = Command<31, Word>;
using SetInterfaceConfig = Command<32, InterfaceConfig>;

}  // namespace quillon::amtrdrv
