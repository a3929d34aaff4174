// An application process for the tests: `eeprom_user BUS OFFSET PATTERN ROUNDS` writes to the EEPROM on a TWSI bus and
// reads it back: 255 bytes at OFFSET that are its own, and 255 bytes that all such processes write and that have to be
// of one of them. It begins when it has read a line, prints a line for everything that is not as it should be, and
// "done" at the end.
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>

#include <algorithm>
#include <array>

#include "quillon/swdrv.h"

namespace {

constexpr uint8_t eeprom = 0x57;
constexpr uint32_t shared_block = 0;

struct Block {
    std::array<uint8_t, 255> bytes{};

    explicit Block(uint8_t pattern = 0) { bytes.fill(pattern); }
    bool operator==(const Block &) const = default;
    bool is_of_one() const { return std::ranges::count(bytes, bytes[0]) == static_cast<ptrdiff_t>(bytes.size()); }
};

bool write(uint8_t bus, uint32_t offset, const Block &block)
{
    return DEV_SWDRV_PMGR_TwsiDataWriteWithBusIdx(bus, eeprom, 0, 1, offset, 1, block.bytes.data(),
                                                  static_cast<uint8_t>(block.bytes.size())) == 1;
}

bool read(uint8_t bus, uint32_t offset, Block *block)
{
    return DEV_SWDRV_PMGR_TwsiDataReadWithBusIdx(bus, eeprom, 0, 1, offset, 1,
                                                 static_cast<uint8_t>(block->bytes.size()), block->bytes.data()) == 1;
}

}  // namespace

int main(int argc, char **argv)
{
    if (argc != 5) {
        fputs("usage: eeprom_user BUS OFFSET PATTERN ROUNDS\n", stderr);
        return 2;
    }
    const auto bus = static_cast<uint8_t>(atoi(argv[1]));
    const auto offset = static_cast<uint32_t>(atoi(argv[2]));
    const auto pattern = static_cast<uint8_t>(atoi(argv[3]));
    const int rounds = atoi(argv[4]);

    DEV_SWDRV_PMGR_InitiateProcessResource();
    if (getchar() == EOF) {
        return 2;
    }
    for (int round = 0; round < rounds; ++round) {
        Block own(static_cast<uint8_t>(pattern + round));
        own.bytes[0] = pattern;
        Block found;
        if (!write(bus, offset, own) || !read(bus, offset, &found) || found != own) {
            printf("round %d: not what was written\n", round);
        }
        if (!write(bus, shared_block, Block(pattern)) || !read(bus, shared_block, &found) || !found.is_of_one()) {
            printf("round %d: a write in pieces\n", round);
        }
    }
    puts("done");
    return 0;
}
