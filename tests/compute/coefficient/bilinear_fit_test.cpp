#include "compute/coefficient/bilinear_fit.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <utility>

#include "text/format.h"
#include "support/errors.h"

namespace tv::compute {
namespace {

PushoverPoints curve(std::initializer_list<std::pair<double, double>> xy) {
    PushoverPoints p;
    p.redim(static_cast<long>(xy.size()) - 1);
    long i = 0;
    for (auto [d, f] : xy) {
        p(i).Step = static_cast<std::int16_t>(i);
        p(i).Displacement = d;
        p(i).BaseForce = f;
        ++i;
    }
    return p;
}

// A softening curve in kg-cm, target point 5 at (8, 3300).
PushoverPoints softening() { return curve({{0, 0}, {1, 1500}, {2, 2600}, {3, 3000}, {5, 3200}, {8, 3300}}); }

using tv::test::error_of;

TEST(PushoverArea, Trapezoids) {
    // 1500/2 + 4100/2 + 5600/2 + 6200/2 x 2 + 6500/2 x 3 = 750 + 2050 + 2800 + 6200 + 9750.
    EXPECT_EQ(pushover_area(softening(), 5), 21550.0);
    EXPECT_EQ(pushover_area(softening(), 2), 2800.0);
    EXPECT_EQ(pushover_area(softening(), 0), 0.0);
    EXPECT_EQ(error_of([] { pushover_area(softening(), 6); }), text::kSubscript);
}

TEST(StartSlope, FirstSecantAboveTheTargetSecant) {
    // kSelected = 3300 / 8 = 412.5; point 1 has 1500.
    StartSlope s = start_slope(softening(), 5, 412.5, 0);
    EXPECT_EQ(s.point, 1);
    EXPECT_EQ(s.k_initial, 1500.0);
    // A hardening curve: no secant before the target exceeds it, kInitial is the target's own.
    PushoverPoints hard = curve({{0, 0}, {1, 1000}, {2, 2200}, {3, 3600}});
    s = start_slope(hard, 3, 1200, 77);
    EXPECT_EQ(s.point, 0);
    EXPECT_EQ(s.k_initial, 1200.0);
    // Nothing to walk: kInitial stays.
    s = start_slope(hard, 0, 1200, 77);
    EXPECT_EQ(s.k_initial, 77.0);
    // A point at displacement 0 in the walk is a failure.
    EXPECT_EQ(error_of([] { start_slope(curve({{0, 0}, {0, 5}}), 1, 1, 0); }), text::kDivisionByZero);
}

TEST(EvaluateCrossing, TheFirstSegmentIsNeverExamined) {
    // Slope 1000: the line y = 1000 x runs along segment 1, but only segment 2 (slope 1100,
    // not below K) is looked at.
    Crossing c = evaluate_crossing(softening(), 2, 1000);
    EXPECT_FALSE(c.found);
    EXPECT_EQ(c.x, 0.0);
    EXPECT_EQ(c.y, 0.0);
    EXPECT_FALSE(evaluate_crossing(softening(), 1, 1400).found);
}

TEST(EvaluateCrossing, CrossingOnTheSecondSegment) {
    // Segment 2 from (1, 1500) to (2, 2600), s = 1100; with K = 1435:
    // x = (1500 - 1100 x 1) / (1435 - 1100) = 400 / 335 = 1.19403, y = 1435 x = 1713.43.
    Crossing c = evaluate_crossing(softening(), 5, 1435);
    ASSERT_TRUE(c.found);
    EXPECT_DOUBLE_EQ(c.x, 400.0 / 335.0);
    EXPECT_DOUBLE_EQ(c.y, 400.0 / 335.0 * 1435);
}

TEST(EvaluateCrossing, LastComputationIsReportedWhenNotFound) {
    // K = 1600 is steeper than the whole curve: segment 2 gives x = 400 / 500 = 0.8, segment 3
    // 1800 / 1200 = 1.5, segment 4 2700 / 1500 = 1.8, all before their segments. The last,
    // segment 5 from (5, 3200) to (8, 3300), s = 100/3:
    // x = (3200 - 500/3) / (1600 - 100/3) = (9100/3) / (4700/3) = 1.93617.
    Crossing c = evaluate_crossing(softening(), 5, 1600);
    EXPECT_FALSE(c.found);
    EXPECT_NEAR(c.x, 9100.0 / 4700.0, 1e-12);
    EXPECT_NEAR(c.y, 9100.0 / 4700.0 * 1600, 1e-9);
}

TEST(EvaluateCrossing, VerticalSegmentDoesNotFail) {
    // Segment 2 is vertical: s = 1000 / 1e-11, never below K, skipped; segment 3 from
    // (1, 2000) to (3, 2400), s = 200, K = 1000: x = (2000 - 200) / 800 = 2.25, y = 2250.
    PushoverPoints p = curve({{0, 0}, {1, 1000}, {1, 2000}, {3, 2400}});
    Crossing c = evaluate_crossing(p, 3, 1000);
    ASSERT_TRUE(c.found);
    EXPECT_EQ(c.x, 2.25);
    EXPECT_EQ(c.y, 2250.0);
    // A slope equal to a segment's slope skips it: K = 200 examines nothing on segment 3.
    EXPECT_FALSE(evaluate_crossing(p, 3, 200).found);
}

TEST(YieldFromCrossing, RatioOfTheYieldForce) {
    YieldPoint y = yield_from_crossing(1713.4328358208954, 1435, 0.6);
    EXPECT_DOUBLE_EQ(y.Yy, 574000.0 / 201.0);  // 1713.43 / 0.6
    EXPECT_DOUBLE_EQ(y.Xy, 400.0 / 201.0);     // Yy / 1435
    EXPECT_EQ(error_of([] { yield_from_crossing(1, 1000, 0); }), text::kDivisionByZero);
}

TEST(BilinearArea, TriangleAndTrapezoid) {
    // (2, 3000) then to point 5 (8, 3300): 2 x 3000 / 2 + 6300 / 2 x 6 = 3000 + 18900.
    EXPECT_EQ(bilinear_area(softening(), 5, 2, 3000), 21900.0);
    EXPECT_EQ(error_of([] { bilinear_area(softening(), 9, 2, 3000); }), text::kSubscript);
}

// The whole scan as the window runs it, on the softening curve with Ratio 0.6 and tolerance
// 0.01. By hand: A = 21550, Ki = 1500 (point 1), D = 1, kSelected = 412.5. For K from 1500
// down to 1300 the crossing lies on segment 2, x = 400 / (K - 1100) in [1, 2], and
// B(K) = Xy Yy / 2 + (3300 + Yy) / 2 (8 - Xy), Xy = x / 0.6, Yy = K x / 0.6.
// K = 1436: x = 400/336, B = 1343350/63 = 21323.02; 1.01 B = 21536.2 < A, no match.
// K = 1435: x = 80/67, Xy = 400/201 = 1.990050, Yy = 574000/201 = 2855.721,
//           B = 4289200/201 = 21339.30; 0.99 B = 21126 <= A <= 21552.7 = 1.01 B: solved.
TEST(BilinearScan, HandWorkedSofteningCurve) {
    PushoverPoints p = softening();
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
    EXPECT_NEAR(yp.Xy, 400.0 / 201.0, 1e-12);
    EXPECT_NEAR(yp.Yy, 574000.0 / 201.0, 1e-9);
    EXPECT_NEAR(B, 4289200.0 / 201.0, 1e-8);
    EXPECT_EQ(text::format(yp.Xy, "0.0000"), "1.9900");
    EXPECT_EQ(text::format(yp.Yy, "0.0000"), "2855.7214");
    // alfa1 from the boxes as written: p = (3300 - 2855.7214) / (8 - 1.99), e = 2855.7214 / 1.99.
    double alfa = post_yield_ratio(1.99, 2855.7214, 8, 3300);
    EXPECT_NEAR(alfa, (444.2786 / 6.01) / (2855.7214 / 1.99), 1e-15);
    EXPECT_EQ(text::format(alfa, "0.00"), "0.05");
}

TEST(InitialStiffness, PointNumberRoundsToEven) {
    PushoverPoints p = softening();
    EXPECT_EQ(initial_stiffness(p, 1), 1500.0);
    EXPECT_EQ(initial_stiffness(p, 2.5), 1300.0);  // point 2
    EXPECT_EQ(error_of([&] { initial_stiffness(p, 0); }), text::kOverflow);  // 0 / 0
    EXPECT_EQ(error_of([&] { initial_stiffness(p, 6); }), text::kSubscript);
}

TEST(PostYieldRatio, FailsWhenTheTargetIsTheYieldPoint) {
    EXPECT_EQ(error_of([] { post_yield_ratio(2, 3000, 2, 3300); }), text::kDivisionByZero);
}

}  // namespace
}  // namespace tv::compute
