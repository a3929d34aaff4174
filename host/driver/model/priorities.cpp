#include "host/driver/model/priorities.h"

#include <algorithm>

namespace quillon::driver {
namespace {

constexpr PriorityMapping recommended[priority_count] = {
    {0, 0, 0, 0, 0, 0, 0, 0}, {0, 0, 0, 0, 1, 1, 1, 1}, {0, 0, 0, 0, 1, 1, 2, 2}, {0, 0, 1, 1, 2, 2, 3, 3},
    {0, 0, 1, 1, 2, 2, 3, 4}, {1, 0, 2, 2, 3, 3, 4, 5}, {1, 0, 2, 3, 4, 4, 5, 6}, {1, 0, 2, 3, 4, 5, 6, 7},
};

constexpr bool is_class_count(uint32_t value)
{
    return value >= 1 && value <= priority_count;
}

bool fits(const PriorityMapping &mapping, uint32_t classes)
{
    return std::ranges::all_of(mapping, [classes](uint8_t traffic_class) { return traffic_class < classes; });
}

void change_classes(PortPriorities &port, uint32_t classes)
{
    port.classes = classes;
    port.mapping = recommended_mapping(classes);
}

}  // namespace

const PriorityMapping &recommended_mapping(uint32_t classes)
{
    return recommended[classes - 1];
}

bool Priorities::set_default_priority(const LogicalPort &port, uint32_t priority)
{
    PortPriorities *const own = ports_.find(port);
    if (own == nullptr || !is_priority(priority)) {
        return false;
    }
    own->default_priority = priority;
    return true;
}

bool Priorities::set_classes(const LogicalPort &port, uint32_t classes)
{
    PortPriorities *const own = ports_.find(port);
    if (own == nullptr || !is_class_count(classes)) {
        return false;
    }
    change_classes(*own, classes);
    return true;
}

bool Priorities::set_system_classes(uint32_t classes)
{
    if (!is_class_count(classes)) {
        return false;
    }
    for (PortPriorities &port : ports_) {
        change_classes(port, classes);
    }
    return true;
}

bool Priorities::set_mapping(const LogicalPort &port, const PriorityMapping &mapping)
{
    PortPriorities *const own = ports_.find(port);
    if (own == nullptr || !fits(mapping, own->classes)) {
        return false;
    }
    own->mapping = mapping;
    return true;
}

bool Priorities::set_system_mapping(const PriorityMapping &mapping)
{
    if (!std::ranges::all_of(ports_, [&](const PortPriorities &port) { return fits(mapping, port.classes); })) {
        return false;
    }
    for (PortPriorities &port : ports_) {
        port.mapping = mapping;
    }
    return true;
}

bool Priorities::set_stacking_mapping(const LogicalPort &port, const PriorityMapping &mapping)
{
    PortPriorities *const own = ports_.find(port);
    if (own == nullptr || !fits(mapping, priority_count)) {
        return false;
    }
    own->stacking_mapping = mapping;
    return true;
}

}  // namespace quillon::driver
