// Settings that no frame here meets and that no hardware here has, so that all there is to them is that they are kept.
#pragma once

#include <stdint.h>

#include <map>
#include <utility>
#include <vector>

namespace quillon::driver {

enum class Setting : uint8_t {
    copy_inner_priority,
    cos_mapping,
    cos_mapping_enabled,
    cos_to_dscp,
    cos_trust,
    cpu_port_rate,
    cpu_rate_limit,
    dos_filter,
    dscp_to_color,
    dscp_to_cos,
    dscp_to_dscp,
    dscp_to_queue,
    eapol_pass_through,
    egress_block,
    egress_rate,
    egress_rate_limited,
    fec,
    higig_remote_loopback,
    ingress_rate,
    ingress_rate_limited,
    ip_multicast,
    ip_multicast_port_check,
    ip_multicast_source_search,
    isolated_ports,
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
    port_security,
    port_security_mode,
    port_traffic,
    power_saving,
    precedence_to_dscp,
    private_vlan_trunk,
    private_vlan_uplinks_forward,
    protocol_group_entry,
    queue_weight,
    receive_all,
    scheduling_method,
    sflow_direction,
    sflow_rate,
    sfp_connector,
    station_move,
    strict_queue,
    traffic_segmentation,
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

    // False when this is not what is kept.
    bool erase(Setting setting, const Words &key, const Words &value)
    {
        const auto found = kept_.find({setting, key});
        if (found == kept_.end() || found->second != value) {
            return false;
        }
        kept_.erase(found);
        return true;
    }

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
