// What the packet path does without being asked: it puts received packets into buffers, and has the generators send.
#pragma once

#include <atomic>
#include <future>
#include <optional>
#include <thread>

#include "host/driver/alarm.h"
#include "host/driver/packet_path.h"
#include "host/platform/shared_run.h"

namespace quillon::driver {

// What the processes of a run share: the record of loans, its semaphore, and the memory of the packets.
host::SharedLayout packet_layout();
PacketMemory packet_memory(const host::SharedRun &run);

// The only one to take the semaphore of the counts, which whoever gives a buffer back holds until that has been served:
// the queues' threads never wait for it. It runs from construction to destruction.
class ReceiveTask {
  public:
    // Once it returns, the record is set up. `run` and `path` must outlive the object.
    ReceiveTask(host::SharedRun &run, PacketPath &path);
    ~ReceiveTask();
    ReceiveTask(const ReceiveTask &) = delete;
    ReceiveTask &operator=(const ReceiveTask &) = delete;

  private:
    void run(std::promise<uint32_t> &ready);
    void serve(host::TaskEvents &events);
    bool take_semaphore();

    host::SharedRun &run_;
    PacketPath &path_;
    LoanCounts loans_;
    std::atomic<bool> ends_ = false;
    uint32_t task_id_;
    std::thread thread_;
};

// What the generators have to send by now. Returns when there is more.
std::optional<Alarm::Clock::time_point> send_generated(PacketPath &path);

}  // namespace quillon::driver
