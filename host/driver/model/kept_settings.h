// Settings that decide about frames or hardware alone. No frame flows and there is no hardware, so that all there is to
// them is that they are kept.
#pragma once

#include <stdint.h>

#include <map>
#include <utility>
#include <vector>

namespace quillon::driver {

enum class Setting : uint8_t {
    copy_inner_priority,
    cpu_port_rate,
    cpu_rate_limit,
    eapol_pass_through,
    egress_block,
    fec,
    higig_remote_loopback,
    ip_multicast,
    ip_multicast_port_check,
    ip_multicast_source_search,
    oam_aging_daemon,
    oam_aging_period,
    oam_detection,
    oam_enabled,
    oam_keepalive_command,
    oam_loopback,
    oam_opcode_command,
    oam_pdu_to_cpu,
    oam_recovery,
    pci_register,
    port_control,
    port_interface,
    port_mac_address,
    port_traffic,
    power_saving,
    protocol_group_entry,
    receive_all,
    sfp_connector,
    station_move,
    transmitter_class,
    trap_mld,
    trap_mld_kinds,
    trap_neighbour_discovery,
    trap_router_advertisements,
    trap_unknown_ipv4_multicast,
    trap_unknown_ipv6_multicast,
    trap_unknown_multicast_ip,
    trap_unknown_multicast_mac,
    trunk_hash_crc,
    trunk_hash_mode,
};

// The key says which port or table entry a value is for; it is empty where there is one for the whole switch.
class KeptSettings {
  public:
    using Words = std::vector<uint32_t>;

    void set(Setting setting, Words key, Words value) { kept_[{setting, std::move(key)}] = std::move(value); }

    // Empty when it was never set.
    Words get(Setting setting, const Words &key = {}) const
    {
        const auto found = kept_.find({setting, key});
        return found == kept_.end() ? Words{} : found->second;
    }

  private:
    std::map<std::pair<Setting, Words>, Words> kept_;
};

}  // namespace quillon::driver
