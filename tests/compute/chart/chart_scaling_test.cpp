// The chart's ranges, scale factors and widths, the value axis' label step and both axes'
// ticks: the cases are data in tests/golden/tables/chart.txt.
#include "compute/chart/chart_scaling.h"

#include <gtest/gtest.h>

#include "compute/chart/chart_axes.h"
#include "support/tables.h"

namespace cc = tv::compute::chart;

namespace {

using tv::test::arg;
using Args = tv::test::TableArgs;
using Result = tv::test::TableResult;

// 100 twips a character: labels of one digit have a half width of 50.
double hundred_per_char(const std::string& s) { return 100.0 * static_cast<double>(s.size()); }

// The time axis of user_width width_twips dt scroll_value, spaced or every (second).
std::vector<cc::TimeTick> time_ticks(const Args& a) {
    const auto rule = a.at(5) == "spaced" ? cc::TimeLabels::Spaced : cc::TimeLabels::EverySecond;
    return cc::time_ticks(arg(a, 1), arg(a, 2), arg(a, 3), static_cast<int>(arg(a, 4)), rule, hundred_per_char);
}

// The value axis of scale_height step, peak or fourier.
std::vector<cc::ValueTick> value_ticks(const Args& a) {
    return cc::value_ticks(arg(a, 1), arg(a, 2), a.at(3) == "peak" ? cc::ValueSteps::PeakRule : cc::ValueSteps::Fourier);
}

TEST(ChartTables, EveryCaseGivesItsResult) {
    tv::test::run_table("chart.txt", {
        {"largest_abs", [](const Args& a) -> Result {
             std::vector<double> values;
             for (std::size_t i = 1; i < a.size(); ++i) values.push_back(arg(a, i));
             return cc::largest_abs(values);
         }},
        {"peak_field_range", [](const Args& a) -> Result { return cc::peak_field_range(arg(a, 1), arg(a, 2)); }},
        {"element_range", [](const Args& a) -> Result {
             const auto rule = a.at(2) == "largest" ? cc::RangeRule::Largest
                               : a.at(2) == "wide"  ? cc::RangeRule::LargestWide
                                                    : cc::RangeRule::PeakFields;
             return cc::element_range(arg(a, 1), rule);
         }},
        {"curve_factor", [](const Args& a) -> Result { return cc::curve_factor(arg(a, 1), arg(a, 2)); }},
        {"plot_width", [](const Args& a) -> Result { return cc::plot_width(static_cast<int>(arg(a, 1))); }},
        {"scroll_max", [](const Args& a) -> Result { return double(cc::scroll_max(static_cast<int>(arg(a, 1)))); }},
        {"scroll_left", [](const Args& a) -> Result { return cc::scroll_left(static_cast<int>(arg(a, 1))); }},
        {"time_label_step", [](const Args& a) -> Result { return cc::time_label_step(arg(a, 1), arg(a, 2)); }},
        {"time_ticks", [](const Args& a) -> Result { return double(time_ticks(a).size()); }},
        {"time_labels", [](const Args& a) -> Result {
             std::string out;
             for (const cc::TimeTick& t : time_ticks(a))
                 if (t.labelled) out += (out.empty() ? "" : " ") + tv::test::shortest(t.second);
             return out;
         }},
        {"time_tick", [](const Args& a) -> Result {
             const cc::TimeTick t = time_ticks(a).at(static_cast<std::size_t>(arg(a, 6)));
             return "x " + std::to_string(t.x) + " width " + std::to_string(t.line_width) + " label " + t.label;
         }},
        {"value_ticks", [](const Args& a) -> Result { return double(value_ticks(a).size()); }},
        {"value_labels", [](const Args& a) -> Result {
             std::string out;
             for (const cc::ValueTick& t : value_ticks(a)) out += (out.empty() ? "" : " ") + t.label;
             return out;
         }},
        {"value_tick", [](const Args& a) -> Result {
             const auto ticks = value_ticks(a);
             const cc::ValueTick& t = a.at(4) == "first" ? ticks.front() : ticks.back();
             return "j " + tv::test::shortest(t.j) + " text " + tv::test::shortest(t.text_y) + " tick " +
                    tv::test::shortest(t.tick_y) + " label " + t.label;
         }},
        {"value_label_step", [](const Args& a) -> Result { return cc::value_label_step(arg(a, 1), arg(a, 2)); }},
    });
}

TEST(TimeAxis, ScrollShiftsEveryTickByHundredTwipsAStep) {
    auto at0 = cc::time_ticks(3500, 36660, 0.005, 0, cc::TimeLabels::Spaced, hundred_per_char);
    auto at50 = cc::time_ticks(3500, 36660, 0.005, 50, cc::TimeLabels::Spaced, hundred_per_char);
    ASSERT_EQ(at0.size(), at50.size());
    for (std::size_t i = 0; i < at0.size(); ++i) EXPECT_EQ(at0[i].x - at50[i].x, 5000) << i;
}

}  // namespace
