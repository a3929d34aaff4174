// What the sanitizers do not look for.
#pragma once

#include <stdio.h>
#include <stdlib.h>

#include <string_view>

namespace quillon::fuzz {

inline void require(bool holds, std::string_view what)
{
    if (!holds) {
        fprintf(stderr, "%.*s\n", static_cast<int>(what.size()), what.data());
        abort();
    }
}

}  // namespace quillon::fuzz
