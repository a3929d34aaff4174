#include "host/driver/model/loan_counts.h"

namespace quillon::driver {

using nicdrv::cookie_without_pool;
using nicdrv::pools;

void LoanCounts::set_up(uint32_t rx_task_id, const PoolLevels &levels)
{
    levels_ = levels;
    record_.rx_task_id = rx_task_id;
    for (uint16_t pool = 0; pool < pools; ++pool) {
        record_.cookie_pool.at(pool) = pool;
        record_.pool_resume_level.at(pool) = levels.resume;
    }
}

void LoanCounts::resume_pools()
{
    for (uint32_t pool = 0; pool < pools; ++pool) {
        if (record_.pool_flow_held.at(pool) < levels_.resume) {
            record_.pool_stopped.at(pool) = 0;
        }
    }
}

bool LoanCounts::stopped(uint32_t cookie) const
{
    return cookie < pools && record_.pool_stopped.at(cookie) != 0;
}

void LoanCounts::lend(uint32_t cookie)
{
    if (cookie == cookie_without_pool) {
        ++record_.cookie10_held;
        return;
    }
    ++record_.cookie_usage.at(cookie).held;
    ++record_.pool_held.at(cookie);
    ++record_.total_held;
    if (++record_.pool_flow_held.at(cookie) >= levels_.stop) {
        record_.pool_stopped.at(cookie) = 1;
    }
}

}  // namespace quillon::driver
