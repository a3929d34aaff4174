#include "host/driver/packet_tasks.h"

#include <exception>

#include "nicdrv/shared_record.h"
#include "quillon/platform.h"
#include "quillon/receive.h"

namespace quillon::driver {
namespace {

using nicdrv::shared_record_segment;
using nicdrv::shared_record_semaphore_key;

enum Event : uint32_t {
    look_again = 1,       // there may be packets to put into buffers, or somebody to offer them to
    pool_may_resume = 8,  // from whoever gives buffers back
    end = 16,
};

}  // namespace

host::SharedLayout packet_layout()
{
    return {.segments = {{.id = shared_record_segment, .size = sizeof(nicdrv::NicShMem)}},
            .semaphores = {shared_record_semaphore_key},
            .receive_area = QUILLON_RECEIVE_AREA_SIZE,
            .transmit_area = QUILLON_TRANSMIT_AREA_SIZE};
}

PacketMemory packet_memory(const host::SharedRun &run)
{
    return {run.ipc_memory(), run.transmit_area(), run.receive_area()};
}

ReceiveTask::ReceiveTask(host::SharedRun &run, PacketPath &path)
    : run_(run), path_(path), loans_(*reinterpret_cast<nicdrv::NicShMem *>(run.segment(shared_record_segment).data()))
{
    std::promise<uint32_t> ready;
    thread_ = std::thread([this, &ready] { this->run(ready); });
    task_id_ = ready.get_future().get();
    path_.wake_receive_task = [this] { run_.send_event(task_id_, look_again); };
}

ReceiveTask::~ReceiveTask()
{
    ends_ = true;
    run_.send_event(task_id_, end);
    thread_.join();
}

void ReceiveTask::run(std::promise<uint32_t> &ready)
{
    std::optional<host::TaskEvents> events;
    try {
        events.emplace(run_);
    } catch (...) {
        ready.set_exception(std::current_exception());
        return;
    }
    loans_.set_up(events->task_id(), path_.reception.lock()->packets.levels());
    ready.set_value(events->task_id());
    serve(*events);
}

// Events come by way of memory that any process may write: one that is lost there delays, and holds nothing up for
// ever.
void ReceiveTask::serve(host::TaskEvents &events)
{
    constexpr uint32_t look_anyway_milliseconds = 1000;
    while (!ends_) {
        events.wait(look_again | pool_may_resume | end, look_anyway_milliseconds);
        if (!take_semaphore()) {
            return;
        }
        path_.reception.lock()->packets.fill(loans_);
        run_.give(shared_record_semaphore_key);
        path_.answer_receivers();
    }
}

// A process that is stopped may hold it for ever, which must not keep the driver process from ending.
bool ReceiveTask::take_semaphore()
{
    constexpr uint32_t look_up_milliseconds = 100;
    while (!ends_) {
        const uint32_t status = run_.take(shared_record_semaphore_key, look_up_milliseconds);
        // Held already it is when somebody has written that into it.
        if (status == QUILLON_STATUS_OK || status == QUILLON_STATUS_RECOVERED ||
            status == QUILLON_STATUS_ALREADY_HELD) {
            return true;
        }
    }
    return false;
}

std::optional<Alarm::Clock::time_point> send_generated(PacketPath &path)
{
    const auto now = Alarm::Clock::now();
    while (const auto packet = path.generators.lock()->take_due(now)) {
        path.send(*packet);
    }
    return path.generators.lock()->next_due();
}

}  // namespace quillon::driver
