// Where the envelope of an exchange lives.
#pragma once

#include <stdlib.h>

namespace quillon::ipc {

template <class Envelope>
class StackStorage {
  public:
    static constexpr bool allocated() { return true; }
    Envelope &envelope() { return envelope_; }

  private:
    Envelope envelope_;
};

// For an envelope that is too large for the caller's stack. It is freed when the exchange is over, however it ended.
template <class Envelope>
class HeapStorage {
  public:
    HeapStorage() : envelope_(static_cast<Envelope *>(malloc(sizeof(Envelope)))) {}
    ~HeapStorage() { free(envelope_); }
    HeapStorage(const HeapStorage &) = delete;
    HeapStorage &operator=(const HeapStorage &) = delete;

    bool allocated() const { return envelope_ != nullptr; }
    Envelope &envelope() { return *envelope_; }

  private:
    Envelope *envelope_;
};

}  // namespace quillon::ipc
