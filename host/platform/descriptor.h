// A descriptor that is closed with its owner.
#ifndef QUILLON_HOST_PLATFORM_DESCRIPTOR_H
#define QUILLON_HOST_PLATFORM_DESCRIPTOR_H

#include <unistd.h>

#include <utility>

namespace quillon::host {

class Descriptor {
  public:
    Descriptor() = default;
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor &&other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        if (this != &other) {
            reset();
            number_ = std::exchange(other.number_, -1);
        }
        return *this;
    }
    ~Descriptor() { reset(); }

    explicit operator bool() const { return number_ >= 0; }
    int number() const { return number_; }
    void reset()
    {
        if (number_ >= 0) {
            close(std::exchange(number_, -1));
        }
    }

  private:
    int number_ = -1;
};

}  // namespace quillon::host

#endif
