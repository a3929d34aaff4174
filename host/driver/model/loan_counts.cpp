#include "host/driver/model/loan_counts.h"

#include <algorithm>

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

uint32_t LoanCounts::held(uint32_t pool, uint32_t lent) const
{
    return std::min(record_.pool_flow_held.at(pool), lent);
}

void LoanCounts::resume(uint32_t cookie, uint32_t lent)
{
    if (cookie < pools && held(cookie, lent) < levels_.resume) {
        record_.pool_stopped.at(cookie) = 0;
    }
}

bool LoanCounts::stopped(uint32_t cookie) const
{
    return cookie < pools && record_.pool_stopped.at(cookie) != 0;
}

void LoanCounts::lend(uint32_t cookie, uint32_t lent)
{
    if (cookie == cookie_without_pool) {
        ++record_.cookie10_held;
        return;
    }
    ++record_.cookie_usage.at(cookie).held;
    ++record_.pool_held.at(cookie);
    ++record_.total_held;
    ++record_.pool_flow_held.at(cookie);
    if (held(cookie, lent) >= levels_.stop) {
        record_.pool_stopped.at(cookie) = 1;
    }
}

}  // namespace quillon::driver
