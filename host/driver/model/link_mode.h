// The ways in which a link can run.
#pragma once

#include <stdint.h>

#include <bit>
#include <initializer_list>

namespace quillon::driver {

enum class SpeedDuplex : uint8_t { ten_half, ten_full, hundred_half, hundred_full, gigabit_full, ten_gigabit_full };

constexpr bool is_full_duplex(SpeedDuplex speed_duplex)
{
    return speed_duplex != SpeedDuplex::ten_half && speed_duplex != SpeedDuplex::hundred_half;
}

constexpr uint32_t megabits_per_second(SpeedDuplex speed_duplex)
{
    switch (speed_duplex) {
        case SpeedDuplex::ten_half:
        case SpeedDuplex::ten_full:
            return 10;
        case SpeedDuplex::hundred_half:
        case SpeedDuplex::hundred_full:
            return 100;
        case SpeedDuplex::gigabit_full:
            return 1000;
        case SpeedDuplex::ten_gigabit_full:
            break;
    }
    return 10'000;
}

// Speed and duplex on a medium. Negotiation prefers the last one that both ends have.
enum class LinkMode : uint8_t {
    base10_t_half,
    base10_t_full,
    base100_tx_half,
    base100_tx_full,
    base1000_t_full,
    base1000_x_full,
    base10g_r_full,
};

constexpr SpeedDuplex speed_duplex_of(LinkMode mode)
{
    switch (mode) {
        case LinkMode::base10_t_half:
            return SpeedDuplex::ten_half;
        case LinkMode::base10_t_full:
            return SpeedDuplex::ten_full;
        case LinkMode::base100_tx_half:
            return SpeedDuplex::hundred_half;
        case LinkMode::base100_tx_full:
            return SpeedDuplex::hundred_full;
        case LinkMode::base1000_t_full:
        case LinkMode::base1000_x_full:
            return SpeedDuplex::gigabit_full;
        case LinkMode::base10g_r_full:
            break;
    }
    return SpeedDuplex::ten_gigabit_full;
}

// A set of link modes.
class LinkModes {
  public:
    constexpr LinkModes() = default;
    constexpr LinkModes(std::initializer_list<LinkMode> modes)
    {
        for (const LinkMode mode : modes) {
            insert(mode);
        }
    }

    constexpr bool operator==(const LinkModes &) const = default;
    constexpr bool empty() const { return bits_ == 0; }
    constexpr bool contains(LinkMode mode) const { return (bits_ & bit(mode)) != 0; }
    constexpr bool contains_all(const LinkModes &others) const { return (others.bits_ & ~bits_) == 0; }
    constexpr void insert(LinkMode mode) { bits_ |= bit(mode); }
    constexpr LinkModes in_common(const LinkModes &others) const
    {
        LinkModes common;
        common.bits_ = bits_ & others.bits_;
        return common;
    }

    // Of a set that is not empty.
    constexpr LinkMode best() const { return static_cast<LinkMode>(std::bit_width(bits_) - 1); }

    constexpr bool can_run_at(SpeedDuplex speed_duplex) const
    {
        for (uint32_t left = bits_; left != 0; left &= left - 1) {
            if (speed_duplex_of(static_cast<LinkMode>(std::countr_zero(left))) == speed_duplex) {
                return true;
            }
        }
        return false;
    }

  private:
    static constexpr uint32_t bit(LinkMode mode) { return uint32_t{1} << static_cast<uint32_t>(mode); }

    uint32_t bits_ = 0;
};

}  // namespace quillon::driver
