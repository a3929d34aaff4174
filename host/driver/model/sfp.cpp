#include "host/driver/model/sfp.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>
#include <string_view>

namespace quillon::driver {
namespace {

constexpr size_t page_size = 256;

// Characters are filled up with spaces.
void put_text(std::vector<uint8_t> &page, size_t first, size_t last, std::string_view text)
{
    std::fill(page.begin() + static_cast<ptrdiff_t>(first), page.begin() + static_cast<ptrdiff_t>(last) + 1, ' ');
    std::ranges::copy(text, page.begin() + static_cast<ptrdiff_t>(first));
}

// In the byte behind them: the low byte of the sum of the bytes from `first` on.
void put_checksum(std::vector<uint8_t> &page, size_t first, size_t place)
{
    page[place] = static_cast<uint8_t>(std::accumulate(page.begin() + static_cast<ptrdiff_t>(first),
                                                       page.begin() + static_cast<ptrdiff_t>(place), 0U));
}

void put_word(std::vector<uint8_t> &page, size_t place, uint32_t value)
{
    page[place] = static_cast<uint8_t>(value >> 8);
    page[place + 1] = static_cast<uint8_t>(value);
}

}  // namespace

std::vector<uint8_t> sfp_identity_of(uint32_t serial_number)
{
    std::vector<uint8_t> page(page_size);
    page[0] = 0x03;   // SFP
    page[1] = 0x04;   // told apart by what stands here, not by a module number
    page[2] = 0x07;   // LC
    page[6] = 0x01;   // 1000BASE-SX
    page[11] = 0x01;  // 8B/10B
    page[12] = 13;    // in 100 megabaud
    page[16] = 55;    // over OM2 and over OM1 fibre, in 10 metres
    page[17] = 27;
    put_text(page, 20, 35, "QUILLON");
    put_text(page, 40, 55, "SFP-SX");
    put_text(page, 56, 59, "1");
    put_word(page, 60, 850);  // nanometres
    put_checksum(page, 0, 63);
    page[65] = 0x1A;  // tells loss of signal and faults, and can be switched off
    put_text(page, 68, 83, fmt::format("Q{:07}", serial_number));
    put_text(page, 84, 91, "260101");
    page[92] = 0x68;  // diagnostics, calibrated in the module, of the average power
    page[94] = 0x08;  // SFF-8472 revision 12
    put_checksum(page, 64, 95);
    return page;
}

std::vector<uint8_t> sfp_diagnostics_page()
{
    std::vector<uint8_t> page(page_size);
    put_checksum(page, 0, 95);
    put_word(page, 96, 35 * 256);  // degrees Celsius
    put_word(page, 98, 33'000);    // 3.3 V
    put_word(page, 100, 3'000);    // 6 mA
    put_word(page, 102, 3'000);    // 0.3 mW sent
    put_word(page, 104, 2'500);    // 0.25 mW received
    return page;
}

}  // namespace quillon::driver
