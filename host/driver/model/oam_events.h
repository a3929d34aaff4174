// OAM events: who is bound to them, who waits for them, and what came between two waits.
#pragma once

#include <stddef.h>
#include <stdint.h>
#include <sys/types.h>

#include <array>
#include <bitset>
#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace quillon::driver {

// The defects of ITU-T G.8021 that show in continuity checks.
enum class OamEvent : uint8_t {
    loss_of_continuity,
    unexpected_mep,
    mismerge,
    unexpected_period,
    unexpected_level,
    remote_defect,
};

class OamEvents {
  public:
    static constexpr size_t count = 6;

    static OamEvents all() { return OamEvents(std::bitset<count>().set()); }
    // NOLINTNEXTLINE(google-explicit-constructor): one event is a set of one
    OamEvents(OamEvent event) { set_.set(static_cast<size_t>(event)); }

    bool operator==(const OamEvents &) const = default;
    bool contains(OamEvent event) const { return set_.test(static_cast<size_t>(event)); }
    bool has_one_of(const OamEvents &others) const { return (others.set_ & set_).any(); }

  private:
    explicit OamEvents(const std::bitset<count> &set) : set_(set) {}

    std::bitset<count> set_;
};

// What a binding is made with, and taken back with.
struct OamSubscription {
    pid_t client;
    OamEvents events;
    uint32_t tag;  // the client's own, to tell its bindings apart

    bool operator==(const OamSubscription &) const = default;
};

struct OamWait {
    using Clock = std::chrono::steady_clock;

    OamEvents events;
    std::optional<Clock::time_point> deadline;  // none: for ever
};

// Every binding gets each event that it is for: the event ends the binding's waits for it, and when there is none, it
// is kept for the next one.
class OamBindings {
  public:
    using Clock = OamWait::Clock;
    using Handle = uint64_t;  // of a binding; never given twice
    using WaitId = uint64_t;

    static constexpr size_t most = 1024;

    // A binding goes with its client. `runs` is asked, now and then, whether a client is still there.
    explicit OamBindings(std::function<bool(pid_t)> runs) : runs_(std::move(runs)) {}

    // Nothing when there are too many.
    std::optional<Handle> bind(const OamSubscription &subscription);

    // Takes all bindings back that the client made so, with what was kept for them. Returns the waits that end with
    // them; nothing when there is no such binding.
    std::optional<std::vector<WaitId>> unbind(const OamSubscription &subscription);

    // True when what is waited for had come already; false for a binding that is not there, another client's, or for
    // none of these events. Nothing when the wait is on: it ends by what returns its id, or by cancel().
    std::optional<bool> wait(pid_t client, Handle handle, WaitId id, const OamWait &wait);
    void cancel(WaitId id);

    struct Raised {
        size_t bindings = 0;             // that the event is for
        std::vector<WaitId> waits = {};  // that it ends
    };
    Raised raise(OamEvent event);
    // The same for one binding, if it is there (still). Returns the waits that end.
    std::vector<WaitId> deliver(OamEvent event, Handle handle);

    // The waits that end because their time is over.
    std::vector<WaitId> expire(Clock::time_point now);
    std::optional<Clock::time_point> next_deadline() const;

  private:
    struct Binding {
        OamSubscription subscription;
        std::array<uint64_t, OamEvents::count> kept = {};  // how many of each event
        std::map<WaitId, OamWait> waits = {};
    };

    static std::vector<WaitId> deliver(OamEvent event, Binding &binding);
    void forget_clients_that_ended();

    std::function<bool(pid_t)> runs_;
    Handle last_handle_ = 0;
    std::map<Handle, Binding> bindings_;
};

}  // namespace quillon::driver
