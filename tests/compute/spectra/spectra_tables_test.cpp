// The spectra area's small rules, kept as data in tests/golden/tables/spectra.txt: the period
// grid, the oscillator's coefficients, the measure the ticks choose, and the comparison's steps
// on short spectra.
#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "compute/spectra/comparison.h"
#include "compute/spectra/period_grid.h"
#include "compute/spectra/response_integrator.h"
#include "support/arrays.h"
#include "support/errors.h"
#include "support/tables.h"

namespace tv::compute {
namespace {

using text::DoubleArray;
using Args = test::TableArgs;
using Result = test::TableResult;
using test::arg;

// An array from a word: "v1,v2,..." from index 1 (index 0 holds 0), or "n:fill" with
// ",i=v" for single elements.
DoubleArray array(const std::string& word) {
    std::vector<std::string> parts;
    std::stringstream s(word);
    for (std::string p; std::getline(s, p, ',');) parts.push_back(p);
    const std::size_t colon = parts[0].find(':');
    DoubleArray a(colon == std::string::npos ? static_cast<long>(parts.size()) : std::stol(parts[0]));
    for (long i = 1; i <= a.ubound(); ++i)
        a(i) = colon == std::string::npos ? test::number(parts[static_cast<std::size_t>(i - 1)])
                                          : test::number(parts[0].substr(colon + 1));
    for (std::size_t k = 1; colon != std::string::npos && k < parts.size(); ++k)
        a(std::stol(parts[k])) = test::number(parts[k].substr(parts[k].find('=') + 1));
    return a;
}

// What a step leaves in its arrays, and the run-time error it raised on the way.
template <typename F>
Result leaves(F&& step, const std::vector<const DoubleArray*>& arrays) {
    const int error = test::error_of(step);
    std::string out;
    for (const DoubleArray* a : arrays) out += (out.empty() ? "" : " / ") + test::listed(*a);
    return out + (error ? " | error " + std::to_string(error) : "");
}

const std::map<std::string, double OscillatorCoefficients::*> kCoefficients{
    {"A11", &OscillatorCoefficients::A11}, {"A12", &OscillatorCoefficients::A12}, {"A21", &OscillatorCoefficients::A21},
    {"A22", &OscillatorCoefficients::A22}, {"B11", &OscillatorCoefficients::B11}, {"B12", &OscillatorCoefficients::B12},
    {"B21", &OscillatorCoefficients::B21}, {"B22", &OscillatorCoefficients::B22}, {"wd", &OscillatorCoefficients::wd}};

Result passes(const Args& a) {
    std::string out, last;
    PeriodGrid{arg(a, 1), arg(a, 2), arg(a, 3), 0, a.at(4) == "upward"}.each([&](long k, double T) {
        last = std::to_string(k) + ":" + test::shortest(T);
        out += (out.empty() ? "" : " ") + last;
    });
    return a.at(0) == "passes" ? out : last;
}

TEST(SpectraTables, EveryCaseGivesItsResult) {
    test::run_table("spectra.txt", {
        {"period_count", [](const Args& a) -> Result { return double(period_count(arg(a, 1), arg(a, 2))); }},
        {"period_of_index", [](const Args& a) -> Result { return period_of_index(long(arg(a, 1)), arg(a, 2)); }},
        {"index_of_period", [](const Args& a) -> Result { return double(index_of_period(arg(a, 1), arg(a, 2))); }},
        // The passes "k:T ..." of tStart tEnd step, counted or upward; passes_count: the last.
        {"passes", passes},
        {"passes_count", passes},
        {"oscillator", [](const Args& a) -> Result {
             return oscillator_coefficients(arg(a, 1), arg(a, 2), arg(a, 3)).*kCoefficients.at(a.at(4));
         }},
        {"measure", [](const Args& a) -> Result {
             static const char* names[] = {"pseudo-acceleration", "displacement", "pseudo-velocity", "velocity"};
             const SpectrumMeasure m = measure_from_ticks(arg(a, 1) != 0, arg(a, 2) != 0, arg(a, 3) != 0);
             return std::string(names[static_cast<int>(m)]);
         }},
        {"combine", [](const Args& a) {
             DoubleArray c;
             const auto rule = a.at(1) == "srss" ? CombinationRule::Srss : CombinationRule::LargerComponent;
             return leaves([&] {
                 combine_record(array(a.at(2)), array(a.at(3)), std::stoi(a.at(4)), rule, arg(a, 5), arg(a, 6), c);
             }, {&c});
         }},
        // The average of the arrays after the count.
        {"average", [](const Args& a) {
             std::vector<DoubleArray> spectra;
             for (std::size_t k = 2; k < a.size(); ++k) spectra.push_back(array(a[k]));
             std::vector<const DoubleArray*> given;
             for (const DoubleArray& s : spectra) given.push_back(&s);
             DoubleArray avg;
             return leaves([&] { average_spectrum(given, std::stoi(a.at(1)), avg); }, {&avg});
         }},
        {"target", [](const Args& a) {
             DoubleArray t;
             return leaves([&] { target_spectrum(array(a.at(1)), arg(a, 2), std::stoi(a.at(3)), t); }, {&t});
         }},
        {"shortfall", [](const Args& a) -> Result {
             return largest_shortfall_ratio(array(a.at(1)), array(a.at(2)), arg(a, 3), arg(a, 4), arg(a, 5));
         }},
        {"round_factor", [](const Args& a) -> Result { return round_factor(arg(a, 1)); }},
        {"scale", [](const Args& a) {
             DoubleArray x = array(a.at(3)), y = array(a.at(4));
             return leaves([&] {
                 scale_record(array(a.at(1)), array(a.at(2)), x, y, std::stoi(a.at(5)), std::stoi(a.at(6)), arg(a, 7));
             }, {&x, &y});
         }},
    });
}

}  // namespace
}  // namespace tv::compute
