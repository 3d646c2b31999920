// The coefficient method's formulas and the yield scan's small rules, worked by hand: the cases
// are data in tests/golden/tables/coefficient.txt.
#include "compute/coefficient/target_displacement.h"

#include <gtest/gtest.h>

#include "compute/coefficient/bilinear_fit.h"
#include "compute/coefficient/effective_period.h"
#include "support/tables.h"

namespace tv::compute {
namespace {

using test::arg;
using Args = test::TableArgs;
using Result = test::TableResult;

TEST(CoefficientTables, EveryCaseGivesItsResult) {
    test::run_table("coefficient.txt", {
        {"effective_stiffness", [](const Args& a) -> Result { return effective_stiffness(arg(a, 1), arg(a, 2)); }},
        {"effective_period", [](const Args& a) -> Result { return effective_period(arg(a, 1), arg(a, 2), arg(a, 3)); }},
        {"c0", [](const Args& a) -> Result {
             const auto c0 = c0_coefficient(arg(a, 1), static_cast<int>(arg(a, 2)));
             return c0 ? Result(*c0) : Result(std::monostate());
         }},
        {"cm", [](const Args& a) -> Result { return cm_factor(arg(a, 1), static_cast<int>(arg(a, 2))); }},
        {"soil", [](const Args& a) -> Result { return soil_constant(arg(a, 1) != 0, arg(a, 2) != 0, arg(a, 3) != 0); }},
        {"strength_ratio", [](const Args& a) -> Result { return strength_ratio(arg(a, 1), arg(a, 2), arg(a, 3), arg(a, 4)); }},
        {"post_yield_alpha",
         [](const Args& a) -> Result { return post_yield_alpha(arg(a, 1), arg(a, 2), arg(a, 3), arg(a, 4), arg(a, 5)); }},
        {"c1", [](const Args& a) -> Result { return c1_coefficient(arg(a, 1), arg(a, 2), arg(a, 3)); }},
        {"c2", [](const Args& a) -> Result { return c2_coefficient(arg(a, 1), arg(a, 2)); }},
        {"c3", [](const Args& a) -> Result { return c3_coefficient(arg(a, 1), arg(a, 2), arg(a, 3)); }},
        {"target_displacement",
         [](const Args& a) -> Result { return target_displacement(arg(a, 1), arg(a, 2), arg(a, 3), arg(a, 4), arg(a, 5)); }},
        {"governing_displacement", [](const Args& a) -> Result { return governing_displacement(arg(a, 1), arg(a, 2)); }},
        {"rmax_exponent", [](const Args& a) -> Result { return rmax_exponent(arg(a, 1)); }},
        {"slope_step", [](const Args& a) -> Result { return slope_step(arg(a, 1)); }},
        {"scan_progress_maximum",
         [](const Args& a) -> Result { return double(scan_progress_maximum(arg(a, 1), arg(a, 2), arg(a, 3))); }},
        {"between_rounded", [](const Args& a) -> Result { return IsBetweenRounded(arg(a, 1), arg(a, 2), arg(a, 3)) ? 1.0 : 0.0; }},
        {"area_matches", [](const Args& a) -> Result { return area_matches(arg(a, 1), arg(a, 2), arg(a, 3)) ? 1.0 : 0.0; }},
        {"rmax_ratio",
         [](const Args& a) -> Result { return rmax_ratio(arg(a, 1), arg(a, 2), arg(a, 3) != 0, arg(a, 4), arg(a, 5)); }},
    });
}

}  // namespace
}  // namespace tv::compute
