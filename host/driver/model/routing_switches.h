// What routing is switched on for.
#pragma once

#include <stdint.h>

#include <vector>

#include "host/driver/model/ip_address.h"
#include "host/driver/model/stack.h"

namespace quillon::driver {

struct UnitRouting {
    bool ipv4 = false;
    bool ipv6 = false;
    bool unicast_storm_protection = false;

    bool operator==(const UnitRouting &) const = default;
    bool routes(IpVersion version) const { return version == IpVersion::v4 ? ipv4 : ipv6; }
};

class RoutingSwitches {
  public:
    static constexpr uint32_t all_units = 0;

    explicit RoutingSwitches(const Stack &stack) : units_(stack.shape().units) {}

    // Of a unit that exists.
    const UnitRouting &of_unit(uint32_t unit) const { return units_.at(unit - 1); }

    // Changes one unit or all of them. False for a unit that does not exist.
    template <class Change>
    bool change(uint32_t unit, Change change_one)
    {
        if (unit > units_.size()) {
            return false;
        }
        for (uint32_t number = 1; number <= units_.size(); ++number) {
            if (unit == all_units || unit == number) {
                change_one(units_[number - 1]);
            }
        }
        return true;
    }

  private:
    std::vector<UnitRouting> units_;
};

}  // namespace quillon::driver
