#include "compute/capacity/capacity_sweep.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <sstream>
#include <vector>

#include "support/errors.h"
#include "support/tables.h"
#include "text/runtime_error.h"

namespace tv::compute {
namespace {

// The two hand-made curves: (T, d, a) = (0.3, 0, 0), (0.4, 1, 0.4), (0.5, 2, 0.8), (0.6, 4, 1.0),
// (0.8, 6, 1.1), PFPhi 1.2; and five steps at T 0.6 whose slope stays 0 for a large m.
const std::vector<SweepStep> kHandCurve = {
    {0.3, 0, 0, 1.2}, {0.4, 1, 0.4, 1.2}, {0.5, 2, 0.8, 1.2}, {0.6, 4, 1.0, 1.2}, {0.8, 6, 1.1, 1.2}};
const std::vector<SweepStep> kFlatDamping = {
    {0.6, 1, 0.5, 1.5}, {0.6, 2, 0.8, 1.5}, {0.6, 3, 1.0, 1.5}, {0.6, 4, 1.1, 1.5}, {0.6, 5, 1.15, 1.5}};

const std::map<std::string, double SweepRow::*> kRowFields{
    {"A", &SweepRow::A},       {"A1", &SweepRow::A1},         {"ED", &SweepRow::ED},       {"Es0", &SweepRow::Es0},
    {"B0", &SweepRow::B0},     {"Lambda", &SweepRow::Lambda}, {"K", &SweepRow::K},         {"Beff", &SweepRow::Beff},
    {"SRA", &SweepRow::SRA},   {"SRV", &SweepRow::SRV},       {"dy", &SweepRow::dy},       {"ay", &SweepRow::ay},
    {"Sa", &SweepRow::Sa},     {"SaRed", &SweepRow::SaRed},   {"SdRed", &SweepRow::SdRed}, {"final", &SweepRow::final}};
const std::map<std::string, double SweepCrossing::*> kCrossingFields{
    {"targetStar", &SweepCrossing::targetStar}, {"SRA", &SweepCrossing::SRA},     {"SRV", &SweepCrossing::SRV},
    {"Beff", &SweepCrossing::Beff},             {"d", &SweepCrossing::d},         {"a", &SweepCrossing::a},
    {"dyPrev", &SweepCrossing::dyPrev},         {"ayPrev", &SweepCrossing::ayPrev},
    {"targetPrev", &SweepCrossing::targetPrev}, {"target", &SweepCrossing::target}};

using Args = test::TableArgs;
using Result = test::TableResult;

// A sweep from a row's words: the curve, the demand of each row (a comma list), kind and m.
struct Sweep {
    CapacitySweep sweep;
    std::vector<SweepRow> rows;
    explicit Sweep(const Args& a) : sweep({1000, 0.5, test::arg(a, 4), static_cast<int>(test::arg(a, 3))}) {
        const std::vector<SweepStep>& steps = a.at(1) == "hand" ? kHandCurve : kFlatDamping;
        std::stringstream demands(a.at(2));
        for (const SweepStep& step : steps) {
            std::string Sa;
            std::getline(demands, Sa, ',');
            rows.emplace_back();
            sweep.row(step, [&] { return test::number(Sa); }, rows.back());
        }
    }
    const SweepRow& operator[](const std::string& i) const {
        return rows.at(static_cast<std::size_t>(std::stoi(i) - 1));
    }
};

Result value(double x) { return std::isnan(x) ? Result(std::string("not reached")) : Result(x); }

// The sweep's rows, crossings and demand, the damping factor and the reduction factors: the cases
// are data in tests/golden/tables/capacity_sweep.txt.
TEST(CapacitySweep, WorkedRowsCrossingsAndDemand) {
    test::run_table("capacity_sweep.txt", {
        {"row", [](const Args& a) { return value(Sweep(a)[a.at(5)].*kRowFields.at(a.at(6))); }},
        {"at", [](const Args& a) { return value(Sweep(a)[a.at(5)].at.*kCrossingFields.at(a.at(6))); }},
        {"crossing", [](const Args& a) -> Result { return std::string(Sweep(a)[a.at(5)].crossing ? "yes" : "no"); }},
        {"slope", [](const Args& a) -> Result { return Sweep(a).sweep.slopeK0(); }},
        {"demand", [](const Args& a) {
             DemandRow r;
             Sweep(a).sweep.demand(test::arg(a, 5), test::arg(a, 6), r);
             return value(a.at(7) == "Sd" ? r.Sd : a.at(7) == "SaRed" ? r.SaRed : r.SdRed);
         }},
        // Lambda is B0 / 63.7.
        {"damping", [](const Args& a) -> Result {
             const double B0 = test::arg(a, 2);
             return damping_modification(static_cast<int>(test::arg(a, 1)), B0, B0 / 63.7, test::arg(a, 3));
         }},
        {"reduction", [](const Args& a) -> Result {
             const ReductionFactors f = reduction_factors(static_cast<int>(test::arg(a, 1)), test::arg(a, 2),
                                                          {test::arg(a, 3), test::arg(a, 4)});
             return a.at(5) == "SRA" ? f.SRA : f.SRV;
         }},
    });
}

SweepSettings hand(int kind = 1, double m = 2) { return {1000, 0.5, m, kind}; }

TEST(CapacitySweep, AFailingRowKeepsWhatItReached) {
    // m = 0 takes the slope from row 1, where d is 0: 0 / 0 before anything of the row.
    CapacitySweep sweep(hand(1, 0));
    SweepRow row;
    row.A = 7;
    EXPECT_EQ(test::error_of([&] { sweep.row(kHandCurve[0], [] { return 1.0; }, row); }), text::kOverflow);
    EXPECT_TRUE(std::isnan(row.A));
    EXPECT_FALSE(row.tested);
    // A demand whose reduced displacement overflows fails after the damping, before the test.
    CapacitySweep late(hand());
    for (int i = 0; i < 3; ++i) late.row(kHandCurve[static_cast<std::size_t>(i)], [] { return 1.0; }, row);
    EXPECT_THROW(late.row(kHandCurve[3], [] { return 1e308; }, row), text::RuntimeError);
    EXPECT_NEAR(row.Lambda, 0.3373, 5e-5);
    EXPECT_FALSE(row.tested);
    EXPECT_TRUE(std::isnan(row.final));
}

}  // namespace
}  // namespace tv::compute
