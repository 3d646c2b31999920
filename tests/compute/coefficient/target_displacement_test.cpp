// The coefficient method's formulas, the yield scan's small rules, the bilinear fit's steps and
// the response modification factors, worked by hand: the cases are data in
// tests/golden/tables/coefficient.txt.
#include "compute/coefficient/target_displacement.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "compute/coefficient/bilinear_fit.h"
#include "compute/coefficient/effective_period.h"
#include "compute/coefficient/response_modification.h"
#include "support/tables.h"
#include "text/format.h"
#include "text/number_text.h"
#include "text/rounding.h"

namespace tv::compute {
namespace {

using test::arg;
using Args = test::TableArgs;
using Result = test::TableResult;

// A pushover curve "d:V,d:V,..." from point 0, or "softening": (0, 0), (1, 1500), (2, 2600),
// (3, 3000), (5, 3200), (8, 3300) in kg-cm.
PushoverPoints curve(const std::string& word) {
    std::stringstream points(word == "softening" ? "0:0,1:1500,2:2600,3:3000,5:3200,8:3300" : word);
    std::vector<std::string> all;
    for (std::string p; std::getline(points, p, ',');) all.push_back(p);
    PushoverPoints c;
    c.redim(static_cast<long>(all.size()) - 1);
    for (long i = 0; i < static_cast<long>(all.size()); ++i) {
        const std::string& p = all[static_cast<std::size_t>(i)];
        c(i).Step = static_cast<std::int16_t>(i);
        c(i).Displacement = test::number(p.substr(0, p.find(':')));
        c(i).BaseForce = test::number(p.substr(p.find(':') + 1));
    }
    return c;
}

// The response modification factors of Vs T du Xy Yy A Ke: one factor, or its box text.
Result response(const Args& a) {
    const auto r = response_modification({arg(a, 1), arg(a, 2), arg(a, 3), arg(a, 4), arg(a, 5), arg(a, 6), arg(a, 7)});
    if (!r) return std::monostate();
    const std::map<std::string, double> f{{"miu", r->miu}, {"Rs", r->Rs}, {"Rm1", r->Rm1}, {"Rm2", r->Rm2}, {"Ru", r->Ru}};
    const double x = f.at(a.at(8));
    return a.at(0) == "response_shown" ? Result(text::to_text(text::round_to(x, 1))) : Result(x);
}

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
        {"pushover_area", [](const Args& a) -> Result { return pushover_area(curve(a.at(1)), long(arg(a, 2))); }},
        // The first secant above kSelected: its point and kInitial.
        {"start_slope", [](const Args& a) -> Result {
             const StartSlope s = start_slope(curve(a.at(1)), long(arg(a, 2)), arg(a, 3), arg(a, 4));
             return std::to_string(s.point) + " " + test::shortest(s.k_initial);
         }},
        {"crossing", [](const Args& a) -> Result {
             const Crossing c = evaluate_crossing(curve(a.at(1)), long(arg(a, 2)), arg(a, 3));
             return std::string(c.found ? "found " : "none ") + test::shortest(c.x) + " " + test::shortest(c.y);
         }},
        {"yield_from_crossing", [](const Args& a) -> Result {
             const YieldPoint y = yield_from_crossing(arg(a, 1), arg(a, 2), arg(a, 3));
             return test::shortest(y.Xy) + " " + test::shortest(y.Yy);
         }},
        {"bilinear_area",
         [](const Args& a) -> Result { return bilinear_area(curve(a.at(1)), long(arg(a, 2)), arg(a, 3), arg(a, 4)); }},
        {"initial_stiffness", [](const Args& a) -> Result { return initial_stiffness(curve(a.at(1)), arg(a, 2)); }},
        {"post_yield_ratio",
         [](const Args& a) -> Result { return post_yield_ratio(arg(a, 1), arg(a, 2), arg(a, 3), arg(a, 4)); }},
        {"response", response},
        {"response_shown", response},
        {"rmax_ratio",
         [](const Args& a) -> Result { return rmax_ratio(arg(a, 1), arg(a, 2), arg(a, 3) != 0, arg(a, 4), arg(a, 5)); }},
    });
}

// The whole scan as the window runs it (its steps' values are in the table), on the softening
// curve with Ratio 0.6 and tolerance 0.01. By hand: A = 21550, Ki = 1500 (point 1), D = 1,
// kSelected = 412.5. For K from 1500 down to 1300 the crossing lies on segment 2,
// x = 400 / (K - 1100) in [1, 2], and
// B(K) = Xy Yy / 2 + (3300 + Yy) / 2 (8 - Xy), Xy = x / 0.6, Yy = K x / 0.6.
// K = 1436: x = 400/336, B = 1343350/63 = 21323.02; 1.01 B = 21536.2 < A, no match.
// K = 1435: x = 80/67, Xy = 400/201 = 1.990050, Yy = 574000/201 = 2855.721,
//           B = 4289200/201 = 21339.30; 0.99 B = 21126 <= A <= 21552.7 = 1.01 B: solved.
TEST(BilinearScan, HandWorkedSofteningCurve) {
    PushoverPoints p = curve("softening");
    const long sel = 5;
    const double A = pushover_area(p, sel);
    const double k_selected = 3300.0 / 8.0;
    StartSlope start = start_slope(p, sel, k_selected, initial_stiffness(p, 1));
    const double D = slope_step(start.k_initial);
    ASSERT_EQ(D, 1.0);
    double found_K = -1, B = 0;
    YieldPoint yp;
    for (double K = start.k_initial; K >= k_selected; K += -D) {
        Crossing c = evaluate_crossing(p, sel, K);
        if (!c.found) continue;
        yp = yield_from_crossing(c.y, K, 0.6);
        B = bilinear_area(p, sel, yp.Xy, yp.Yy);
        if (area_matches(A, B, 0.01)) {
            found_K = K;
            break;
        }
    }
    EXPECT_EQ(found_K, 1435.0);
    EXPECT_NEAR(B, 4289200.0 / 201.0, 1e-8);
    EXPECT_EQ(text::format(yp.Xy, "0.0000"), "1.9900");
    EXPECT_EQ(text::format(yp.Yy, "0.0000"), "2855.7214");
    // alfa1 from the boxes as written (its value is in the table).
    EXPECT_EQ(text::format(post_yield_ratio(1.99, 2855.7214, 8, 3300), "0.00"), "0.05");
}

}  // namespace
}  // namespace tv::compute
