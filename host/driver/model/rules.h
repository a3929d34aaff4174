// Rules for the packets that ports receive, in policy control lists (PCLs) that are bound to ports and trunks.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <vector>

#include "host/driver/model/meter.h"
#include "host/driver/model/parsed_packet.h"
#include "host/driver/model/pattern_match.h"
#include "host/driver/model/port_set.h"
#include "host/driver/model/stack.h"
#include "host/driver/model/trunks.h"

namespace quillon::driver {

// What becomes of a packet.
struct Treatment {
    bool drop = false;
    bool copy_to_cpu = false;
    bool mirror = false;  // to the destination of access-control mirroring
    std::optional<uint8_t> priority = std::nullopt;
    std::optional<uint8_t> dscp = std::nullopt;
    std::optional<LogicalPort> redirect = std::nullopt;

    bool operator==(const Treatment &) const = default;
};

struct RuleAction {
    Treatment treatment;
    bool drop_red = false;  // what the rule's meter finds red
};

// The packets that a rule matched. Without a meter, all are green.
struct RuleCounter {
    uint32_t green = 0;
    uint32_t yellow = 0;
    uint32_t red = 0;

    bool operator==(const RuleCounter &) const = default;
};

// Every unit has tables of its own. A rule's number is the only one of its unit, whatever PCL it is in.
struct PclName {
    uint32_t unit;
    uint32_t pcl;
};

struct RuleName {
    uint32_t unit;
    uint32_t pcl;
    uint32_t rule;
};

struct PclSettings {
    bool deny;          // drops the packets that none of its rules decides about
    uint32_t priority;  // of several PCLs of a port: the larger one comes first
    uint32_t size;      // the rules that it has room for
};

class Rules {
  public:
    static constexpr uint32_t most_rules = 1024;  // of a unit

    explicit Rules(const Stack &stack) : stack_(stack), units_(stack.shape().units) {}

    // What follows returns false, and changes nothing, for units, ports, trunks, PCLs and rules that do not exist, and
    // for a rule that is not in the PCL.

    // Keeps room in the unit's table. False also when the PCL is there, and when there is not that much room.
    bool create_pcl(const PclName &name, const PclSettings &settings);
    // Of the PCL's unit. False also for what is bound already, or is not bound.
    bool bind_port(const PclName &name, uint32_t port, bool bound);
    bool bind_trunk(const Trunks &trunks, const PclName &name, uint32_t trunk);
    bool unbind_trunk(const PclName &name, uint32_t trunk);
    void forget_trunk(uint32_t trunk);

    // Matches nothing before it is set. False also when the unit has a rule of that number, and when the PCL is full.
    bool allocate(const RuleName &name, uint32_t priority, const UserBytesPlace &user_bytes);
    // False also for a pattern that is not valid.
    bool set(const RuleName &name, const RulePattern &pattern, const RuleAction &action);
    bool destroy(const RuleName &name);
    // The rule goes on matching and counting, and decides nothing.
    bool destroy_action(const RuleName &name);

    // Gives the rule a meter, or changes the one that it has, also for those that share it. False also for a rate whose
    // bursts are both 0.
    bool update_meter(const RuleName &name, const MeterRate &rate);
    // Lets a rule use the meter of another one. False also when that has none.
    bool share_meter(uint32_t unit, uint32_t rule, uint32_t other);

    RuleCounter *counter(const RuleName &name);  // null when there is no such rule

    // Counts a packet that a port, one that exists, receives on all rules that match it. In each PCL the first of them
    // that has an action decides what becomes of it; rules of a larger priority come first, then those with smaller
    // numbers. Where PCLs differ, a packet that one of them drops is dropped.
    Treatment receive(const Trunks &trunks, const LogicalPort &port, std::span<const std::byte> bytes, Time now);

  private:
    struct Rule {
        uint32_t priority = 0;
        UserBytesPlace user_bytes;
        std::optional<RulePattern> pattern;
        std::optional<RuleAction> action;
        std::shared_ptr<Meter> meter;
        RuleCounter counter;
    };

    struct Pcl : PclSettings {
        PortMask ports;
        std::set<uint32_t> trunks;
        std::map<uint32_t, Rule> rules;

        bool is_bound_to(uint32_t port) const { return (ports & port_bit(port)) != 0; }
        Treatment receive(const ParsedPacket &packet, Time now);
    };

    using Unit = std::map<uint32_t, Pcl>;

    Pcl *find(const PclName &name);
    Rule *find(const RuleName &name);
    Rule *find_in_unit(uint32_t unit, uint32_t number);

    Stack stack_;
    std::vector<Unit> units_;
};

}  // namespace quillon::driver
