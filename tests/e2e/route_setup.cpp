// An application process for the tests: `route_setup NUMBER COUNT` has an L3 interface and a neighbour of its own,
// whose number as a next hop it prints. For each line `add` or `remove` it adds, or removes, as many networks as it is
// told through that neighbour, 10.0.0.0/24 first, and prints how many it could, how many it could not because they were
// there, or not there, and how many for any other reason.
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <string>

#include "quillon/swdrvl3.h"
#include "support/route_entries.h"

namespace {

using quillon::test::host_entry;
using quillon::test::HostInformation;
using quillon::test::net_entry;

constexpr uint32_t done = 0;
constexpr uint32_t exists = 1;

uint64_t new_next_hop(uint8_t number)
{
    const uint8_t mac[6] = {2, 0, 0, 0, 0, number};
    uint32_t interface = 0;
    if (DEV_SWDRVL3_PMGR_CreateL3Interface(1, 0, mac, &interface) != done) {
        fputs("no interface\n", stdout);
    }
    HostRouteEntry neighbour = host_entry("192.168." + std::to_string(number) + ".1", interface);
    if (DEV_SWDRVL3_PMGR_SetInetHostRoute(&neighbour) != done) {
        fputs("no neighbour\n", stdout);
    }
    return HostInformation(neighbour).number;
}

struct Outcome {
    unsigned done = 0;
    unsigned in_the_way = 0;
    unsigned other = 0;
};

Outcome change(const std::string &action, unsigned count, uint64_t next_hop)
{
    Outcome outcome;
    for (unsigned network = 0; network < count; ++network) {
        NetRouteEntry entry =
            net_entry("10." + std::to_string(network / 256) + "." + std::to_string(network % 256) + ".0", 24);
        if (action == "add") {
            const uint32_t status = DEV_SWDRVL3_PMGR_AddInetNetRoute(&entry, next_hop);
            outcome.done += status == done;
            outcome.in_the_way += status == exists;
            outcome.other += status != done && status != exists;
        } else {
            const uint8_t removed = DEV_SWDRVL3_PMGR_DeleteInetNetRoute(&entry, next_hop);
            outcome.done += removed == 1;
            outcome.in_the_way += removed == 0;
            outcome.other += removed > 1;
        }
    }
    return outcome;
}

}  // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        fputs("usage: route_setup NUMBER COUNT\n", stderr);
        return 2;
    }
    setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    DEV_SWDRVL3_PMGR_InitiateProcessResource();
    const uint64_t next_hop = new_next_hop(static_cast<uint8_t>(atoi(argv[1])));
    printf("%u\n", static_cast<unsigned>(next_hop));
    char line[16];
    while (fgets(line, sizeof line, stdin) != nullptr) {
        const std::string action(line, strcspn(line, "\n"));
        const Outcome outcome = change(action, static_cast<unsigned>(atoi(argv[2])), next_hop);
        printf("%u %u %u\n", outcome.done, outcome.in_the_way, outcome.other);
    }
    return 0;
}
