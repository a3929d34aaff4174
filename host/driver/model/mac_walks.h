// Walks of the MAC address table by batches. Their requests bring no record that would tell where a walk stands, so
// that it is kept for each client.
#pragma once

#include <stddef.h>
#include <stdint.h>
#include <sys/types.h>

#include <algorithm>
#include <map>

#include "host/driver/model/mac_table.h"

namespace quillon::driver {

class MacWalks {
  public:
    // Of one more, the walk that has rested longest is back at the beginning.
    static constexpr size_t most = 1024;

    void restart(pid_t client) { walks_.erase(client); }

    // The last entry that the client was given; in front of all entries in the beginning.
    MacKey &position(pid_t client)
    {
        Walk &walk = walks_[client];
        walk.used = ++uses_;
        if (walks_.size() > most) {
            walks_.erase(
                std::ranges::min_element(walks_, {}, [](const auto &client_walk) { return client_walk.second.used; }));
        }
        return walk.last;
    }

  private:
    struct Walk {
        MacKey last;
        uint64_t used = 0;
    };

    std::map<pid_t, Walk> walks_;
    uint64_t uses_ = 0;
};

}  // namespace quillon::driver
