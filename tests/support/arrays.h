#pragma once
// An old-style array as one line, so that a test compares a whole array at once.
#include <string>

#include "support/tables.h"
#include "text/checked.h"

namespace tv::test {

/// Elements 0..ubound as their shortest texts, one blank between; empty when never made.
inline std::string listed(const text::DoubleArray& a) {
    std::string out;
    for (long i = 0; a.allocated() && i <= a.ubound(); ++i) out += (i ? " " : "") + shortest(a(i));
    return out;
}

}  // namespace tv::test
