#include "host/platform/shared_run.h"

#include <errno.h>
#include <fcntl.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <thread>
#include <unordered_map>
#include <utility>

#include "host/platform/descriptor.h"
#include "host/platform/descriptor_limit.h"
#include "host/platform/error_text.h"
#include "host/platform/listening_socket.h"
#include "host/platform/run_offer.h"
#include "host/platform/runtime_path.h"
#include "host/platform/shared_memory.h"
#include "host/platform/signals_blocked.h"

namespace quillon::host {
namespace {

constexpr size_t kAreaUnit = 4096;

[[noreturn]] void refuse(std::string_view why)
{
    throw QueueError("cannot share memory: " + std::string(why));
}

uint64_t rounded_up(uint64_t size, uint64_t unit)
{
    return (size + unit - 1) / unit * unit;
}

template <class Range, class Projection = std::identity>
bool has_twins(const Range &range, Projection projection = {})
{
    for (auto one = range.begin(); one != range.end(); ++one) {
        if (std::any_of(range.begin(), one, [&](const auto &other) {
                return std::invoke(projection, other) == std::invoke(projection, *one);
            })) {
            return true;
        }
    }
    return false;
}

void check(const SharedLayout &layout)
{
    if (layout.segments.size() > kMostSegments || layout.semaphores.size() > kMostSemaphores) {
        refuse("more than 16 segments or semaphores");
    }
    if (has_twins(layout.segments, &SharedLayout::Segment::id) || has_twins(layout.semaphores)) {
        refuse("two segments or semaphores are named the same");
    }
    if (layout.receive_area % kAreaUnit != 0 || layout.transmit_area % kAreaUnit != 0) {
        refuse("an area of the IPC memory is no multiple of 4096 bytes");
    }
    const auto too_large = [](size_t size) { return size > kMostSharedMemory; };
    if (too_large(layout.receive_area) || too_large(layout.transmit_area) ||
        std::ranges::any_of(layout.segments, too_large, &SharedLayout::Segment::size)) {
        refuse("more than 64 MiB");
    }
}

MemoryMap mapped(const SharedLayout &layout)
{
    check(layout);
    MemoryMap map = {.size = sizeof(RunRecord),
                     .receive_area = static_cast<uint32_t>(layout.receive_area),
                     .transmit_area = static_cast<uint32_t>(layout.transmit_area),
                     .segment_count = static_cast<uint32_t>(layout.segments.size()),
                     .semaphore_count = static_cast<uint32_t>(layout.semaphores.size())};
    std::ranges::copy(layout.semaphores, map.semaphores.begin());
    std::ranges::transform(layout.segments, map.segments.begin(), [&map](const SharedLayout::Segment &segment) {
        const uint64_t offset = std::exchange(map.size, map.size + rounded_up(segment.size, alignof(RunRecord)));
        return MemoryMap::Segment{.id = segment.id, .size = static_cast<uint32_t>(segment.size), .offset = offset};
    });
    map.ipc_memory = rounded_up(map.size, kAreaUnit);
    map.size = map.ipc_memory + layout.receive_area + layout.transmit_area;
    if (!map.is_sound()) {
        refuse("more than 64 MiB");
    }
    return map;
}

// With all of its pages: whoever writes to one that cannot be had any more is killed.
Descriptor memory_file(uint64_t size)
{
    Descriptor file(memfd_create("quillon-run", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    if (!file || fallocate(file.number(), 0, 0, static_cast<off_t>(size)) != 0 ||
        fcntl(file.number(), F_ADD_SEALS, kSizeSeals | F_SEAL_SEAL) != 0) {
        refuse(error_text());
    }
    return file;
}

// No longer open than it takes.
class Mapping {
  public:
    Mapping(int file, size_t size)
        : start_(mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0)), size_(size)
    {
        if (start_ == MAP_FAILED) {
            refuse(error_text());
        }
    }
    ~Mapping() { munmap(start_, size_); }
    Mapping(const Mapping &) = delete;
    Mapping &operator=(const Mapping &) = delete;

    std::byte *start() const { return static_cast<std::byte *>(start_); }

  private:
    void *start_;
    size_t size_;
};

uint64_t new_run_number()
{
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<uint64_t>(now.tv_sec) * 1'000'000'000 + static_cast<uint64_t>(now.tv_nsec);
}

}  // namespace

struct SharedRun::Run {
    Run(const RuntimeFolder &folder, const SharedLayout &layout, LossReport loss_report);
    ~Run();
    Run(const Run &) = delete;
    Run &operator=(const Run &) = delete;

    RunRecord &record() const { return *reinterpret_cast<RunRecord *>(memory.start()); }

    bool listen_for(int descriptor, uint32_t events, int operation) const
    {
        epoll_event event = {.events = events, .data = {.fd = descriptor}};
        return epoll_ctl(epoll.number(), operation, descriptor, &event) == 0;
    }

    void serve();
    void accept_client();
    void accept_again();
    void attach(Descriptor client);
    void report_losses();

    const LossReport report;
    const MemoryMap map;
    const Descriptor file;
    const Mapping memory;
    const uint64_t number = new_run_number();
    const std::string path;

    Descriptor listener;
    const Descriptor stop{eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)};
    const Descriptor epoll{epoll_create1(EPOLL_CLOEXEC)};
    std::unordered_map<int, Descriptor> clients;
    bool starving = false;  // of descriptors: clients wait in the backlog for a beat, or until one is closed
    std::array<uint32_t, kMostSemaphores> losses_reported = {};
    std::thread thread;
};

SharedRun::Run::Run(const RuntimeFolder &folder, const SharedLayout &layout, LossReport loss_report)
    : report(std::move(loss_report)),
      map(mapped(layout)),
      file(memory_file(map.size)),
      memory(file.number(), map.size),
      path(memory_address(folder.path().c_str()).sun_path)
{
    record().beat.store(beat_clock());
    listener = listening_socket(memory_address(folder.path().c_str(), SocketName::unready),
                                memory_address(folder.path().c_str()));
    if (!listener || !stop || !epoll || !listen_for(stop.number(), EPOLLIN, EPOLL_CTL_ADD) ||
        !listen_for(listener.number(), EPOLLIN, EPOLL_CTL_ADD)) {
        refuse(error_text());
    }
    const SignalsBlocked blocked;
    thread = std::thread([this] { serve(); });
}

SharedRun::Run::~Run()
{
    unlink(path.c_str());
    eventfd_write(stop.number(), 1);
    thread.join();
    record().beat.store(0);
}

void SharedRun::Run::serve()
{
    constexpr int kBeatMs = kBeatNs / 1'000'000;
    for (;;) {
        record().beat.store(beat_clock(), std::memory_order_relaxed);
        report_losses();
        std::array<epoll_event, 16> events;
        const int count = epoll_wait(epoll.number(), events.data(), static_cast<int>(events.size()), kBeatMs);
        if (count == 0) {
            accept_again();
        }
        for (const epoll_event &event : std::span(events).first(static_cast<size_t>(std::max(count, 0)))) {
            if (event.data.fd == stop.number()) {
                return;
            }
            if (event.data.fd == listener.number()) {
                accept_client();
            } else {
                clients.erase(event.data.fd);  // it has ended: it sends nothing
                accept_again();
            }
        }
    }
}

void SharedRun::Run::accept_client()
{
    Descriptor client(accept4(listener.number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    if (client) {
        attach(std::move(client));
    } else if (errno != EAGAIN && errno != ECONNABORTED && !(errno == EMFILE && raise_descriptor_limit())) {
        starving = listen_for(listener.number(), 0, EPOLL_CTL_MOD);
    }
}

void SharedRun::Run::accept_again()
{
    if (std::exchange(starving, false)) {
        listen_for(listener.number(), EPOLLIN, EPOLL_CTL_MOD);
    }
}

void SharedRun::Run::attach(Descriptor client)
{
    ucred peer;
    socklen_t size = sizeof peer;
    if (getsockopt(client.number(), SOL_SOCKET, SO_PEERCRED, &peer, &size) != 0 || peer.uid != geteuid()) {
        return;
    }
    const RunOffer offer = {.run = number, .client = peer.pid, .map = map};
    const int descriptor = client.number();
    if (send_offer(descriptor, offer, file.number()) && listen_for(descriptor, EPOLLIN | EPOLLRDHUP, EPOLL_CTL_ADD)) {
        clients.emplace(descriptor, std::move(client));
    }
}

void SharedRun::Run::report_losses()
{
    for (size_t i = 0; i < map.semaphore_count; ++i) {
        const SharedSemaphore &semaphore = record().semaphores[i];
        const uint32_t losses = semaphore.losses.load(std::memory_order_acquire);
        const uint32_t times = losses - std::exchange(losses_reported[i], losses);
        if (times != 0 && report) {
            report({.key = map.semaphores[i],
                    .holder = static_cast<pid_t>(semaphore.last_lost.load(std::memory_order_relaxed)),
                    .times = times});
        }
    }
}

SharedRun::SharedRun(const RuntimeFolder &folder, const SharedLayout &layout, LossReport report)
    : run_(std::make_unique<Run>(folder, layout, std::move(report)))
{
}

SharedRun::~SharedRun() = default;

std::span<std::byte> SharedRun::segment(uint32_t id) const noexcept
{
    const MemoryMap::Segment *const segment = run_->map.segment(id);
    return segment == nullptr ? std::span<std::byte>{}
                              : std::span(run_->memory.start() + segment->offset, segment->size);
}

std::span<std::byte> SharedRun::ipc_memory() const noexcept
{
    return {run_->memory.start() + run_->map.ipc_memory, size_t{run_->map.receive_area} + run_->map.transmit_area};
}

std::span<std::byte> SharedRun::receive_area() const noexcept
{
    return ipc_memory().first(run_->map.receive_area);
}

std::span<std::byte> SharedRun::transmit_area() const noexcept
{
    return ipc_memory().last(run_->map.transmit_area);
}

uint32_t SharedRun::take(uint32_t key, uint32_t timeout_ms) noexcept
{
    SharedSemaphore *const semaphore = run_->map.semaphore(run_->memory.start(), key);
    if (semaphore == nullptr) {
        return QUILLON_STATUS_NO_SUCH_SEMAPHORE;
    }
    const Deadline deadline(timeout_ms);
    uint32_t status;
    do {
        status = take_within_a_moment(*semaphore, deadline);
    } while (status == QUILLON_STATUS_TIMED_OUT && !deadline.passed());
    return status;
}

uint32_t SharedRun::give(uint32_t key) noexcept
{
    SharedSemaphore *const semaphore = run_->map.semaphore(run_->memory.start(), key);
    return semaphore == nullptr ? QUILLON_STATUS_NO_SUCH_SEMAPHORE : host::give(*semaphore);
}

uint32_t SharedRun::send_event(uint32_t task_id, uint32_t events) noexcept
{
    return post(run_->record().mailboxes, task_id, events);
}

TaskEvents::TaskEvents(SharedRun &run) : run_(*run.run_), task_id_(own_identity().id)
{
    auto &mailboxes = run_.record().mailboxes;
    if (post(mailboxes, task_id_, 0) == QUILLON_STATUS_OK) {
        throw QueueError("this thread has its events already");
    }
    const uint64_t empty = uint64_t{task_id_} << 32;
    auto *const mine = std::ranges::find_if(mailboxes, [empty](TaskMailbox &mailbox) {
        uint64_t nobody = 0;
        return mailbox.mail.compare_exchange_strong(nobody, empty);
    });
    if (mine == mailboxes.end()) {
        throw QueueError("16 threads have events already");
    }
    mailbox_ = static_cast<size_t>(mine - mailboxes.begin());
}

TaskEvents::~TaskEvents()
{
    run_.record().mailboxes[mailbox_].mail.store(0);
}

uint32_t TaskEvents::wait(uint32_t mask, uint32_t timeout_ms) noexcept
{
    SharedWord &mail = run_.record().mailboxes[mailbox_].mail;
    const Deadline deadline(timeout_ms);
    for (;;) {
        const uint64_t seen = mail.load(std::memory_order_relaxed);
        const uint32_t pending = lower_half(seen) & mask;
        if (pending != 0) {
            mail.fetch_and(~uint64_t{pending}, std::memory_order_acquire);
            return pending;
        }
        if (deadline.passed()) {
            return 0;
        }
        const timespec left = deadline.limited() ? deadline.left() : timespec{};
        wait_for_change(mail, seen, deadline.limited() ? &left : nullptr);
    }
}

}  // namespace quillon::host
