// The driver process's part of the record that it shares with those who receive packets.
#pragma once

#include <stdint.h>

#include "nicdrv/shared_record.h"

namespace quillon::driver {

// Buffers of a pool on loan at which receiving into it stops, and below which it goes on.
struct PoolLevels {
    uint32_t stop;
    uint32_t resume;
};

// To be used with the record's semaphore held. Any process may have written anything into the record: nothing that
// stands there says which memory is touched.
class LoanCounts {
  public:
    explicit LoanCounts(nicdrv::NicShMem &record) : record_(record) {}

    // Before packets are put into buffers. Each pool has the cookie of its own number.
    void set_up(uint32_t rx_task_id, const PoolLevels &levels);

    // `lent` is how many of the cookie's buffers are on loan, which is the most that the record can be right about: a
    // process that dies counts too many, and one that counts in the record of another run makes it wrap.

    // Whoever gives a buffer back sends no event when the pool has not been stopped, and tells nobody when it holds
    // the buffer as a fragment: a stopped pool that is below its level goes on also without one.
    void resume(uint32_t cookie, uint32_t lent);

    bool stopped(uint32_t cookie) const;
    // Counts a buffer that is lent, itself among `lent`, and stops its pool at the stop level.
    void lend(uint32_t cookie, uint32_t lent);

  private:
    uint32_t held(uint32_t pool, uint32_t lent) const;

    nicdrv::NicShMem &record_;
    PoolLevels levels_{};
};

}  // namespace quillon::driver
