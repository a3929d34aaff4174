#include "support/wire_row.h"

#include <ostream>

namespace quillon::test {
namespace {

std::vector<WireRow> &registry()
{
    static std::vector<WireRow> rows;
    return rows;
}

}  // namespace

WireRows::WireRows(std::initializer_list<WireRow> rows)
{
    registry().insert(registry().end(), rows);
}

const std::vector<WireRow> &all_wire_rows()
{
    return registry();
}

std::string test_name(const WireRow &row)
{
    return row.branch.empty() ? row.function : row.function + "__" + row.branch;
}

void PrintTo(const WireRow &row, std::ostream *stream)
{
    *stream << test_name(row);
}

}  // namespace quillon::test
