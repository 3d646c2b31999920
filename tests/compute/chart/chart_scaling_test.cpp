// The chart's ranges, scale factors and widths, and the value axis' label step: the cases are
// data in tests/golden/tables/chart.txt.
#include "compute/chart/chart_scaling.h"

#include <gtest/gtest.h>

#include "compute/chart/chart_axes.h"
#include "support/tables.h"

namespace cc = tv::compute::chart;

namespace {

using tv::test::arg;
using Args = tv::test::TableArgs;
using Result = tv::test::TableResult;

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
        {"value_label_step", [](const Args& a) -> Result { return cc::value_label_step(arg(a, 1), arg(a, 2)); }},
    });
}

}  // namespace
