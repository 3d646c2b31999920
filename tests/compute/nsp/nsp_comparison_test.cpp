// The procedures side by side on worked examples (data/*.txt: inputs and the values worked by
// hand, each to the digits written), and what a column says when its method cannot run.
#include "compute/nsp/nsp_comparison.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "compute/nsp/ec8_n2.h"
#include "compute/nsp/fema440.h"

namespace tv::compute::nsp {
namespace {

namespace fs = std::filesystem;

const fs::path kData = fs::path(TV_SOURCE_DIR) / "tests" / "compute" / "nsp" / "data";

const MethodColumn& column(const NspComparison& c, const std::string& key) {
    static const std::map<std::string, Method> keys{{"window", Method::WindowCoefficient}, {"asce41", Method::Asce41},
                                                    {"atc40", Method::Atc40}, {"fema440", Method::Fema440},
                                                    {"n2", Method::Ec8N2}};
    for (const MethodColumn& m : c.columns)
        if (m.method == keys.at(key)) return m;
    throw std::runtime_error("no column " + key);
}

CurvePoint point(std::istream& s) {
    CurvePoint p;
    s >> p.d >> p.V;
    return p;
}

struct Expectation {
    std::string method, name, text;  // text: the value as written, or the reason's words
    bool none = false;
};

// An example file: `key = value` lines for the inputs, `expect METHOD NAME = VALUE` and
// `expect_none METHOD = WORDS` for what the columns must show. `curve_step = S` cuts the curve's
// segments into pieces no longer than S, as a pushover gives its steps.
NspInputs read_example(const fs::path& file, std::vector<Expectation>& expect) {
    NspInputs in;
    double step = 0;
    std::ifstream f(file);
    for (std::string line; std::getline(f, line);) {
        if (line.empty() || line[0] == '#') continue;
        const std::size_t eq = line.find(" = ");
        std::istringstream key(line.substr(0, eq)), value(line.substr(eq + 3));
        std::string k;
        key >> k;
        if (k == "expect" || k == "expect_none") {
            Expectation e;
            e.none = k == "expect_none";
            key >> e.method;
            std::getline(key >> std::ws, e.name);
            e.text = value.str();
            expect.push_back(e);
        } else if (k == "curve") {
            for (std::string p; std::getline(value, p, ';');) {
                std::istringstream ps(p);
                in.curve.push_back(point(ps));
            }
        } else if (k == "yield") {
            in.yield = point(value);
        } else if (k == "fit_end") {
            in.fit_end = point(value);
        } else if (k == "spectrum") {
            std::string kind;
            value >> kind;
            if (kind == "ec8") {
                Ec8Spectrum s;
                value >> s.type >> s.ground >> s.ag;
                in.demand = *ec8_demand(s);
            } else {
                double c, Cv = 0;
                value >> c;
                if (kind == "ca_cv") value >> Cv;
                value >> in.demand.T_min >> in.demand.T_max;
                if (kind == "constant") in.demand.Sa = [c](double) { return c; };
                if (kind == "velocity") in.demand.Sa = [c](double T) { return c / T; };
                if (kind == "ca_cv") {  // ATC-40's Ca and Cv; the velocity range from Ts = Cv / 2.5 Ca
                    in.demand.Sa = [c, Cv](double T) { return std::min(2.5 * c, Cv / T); };
                    in.csm.T0 = Cv / (2.5 * c);
                }
            }
        } else {
            double v;
            value >> v;
            std::map<std::string, double*> numbers{{"Te", &in.Te}, {"W", &in.W}, {"gamma_phi", &in.gamma_phi},
                                                   {"alpha1", &in.alpha1}, {"asce.stories", &in.asce41.stories},
                                                   {"asce.Cm", &in.asce41.Cm},
                                                   {"asce.alpha_p_delta", &in.asce41.alpha_p_delta}, {"g", &in.g},
                                                   {"csm.m", &in.csm.m}, {"curve_step", &step}};
            if (numbers.count(k)) *numbers[k] = v;
            if (k == "asce.c0_column") in.asce41.c0_column = static_cast<int>(v);
            if (k == "csm.kind") in.csm.kind = static_cast<int>(v);
            if (k == "asce.site") in.asce41.site = SiteClass(value.str().back() - 'A');
            if (k == "n2_iterate") in.n2_iterate = v != 0;
        }
    }
    if (step > 0) {
        std::vector<CurvePoint> fine{in.curve.front()};
        for (std::size_t i = 1; i < in.curve.size(); ++i) {
            const CurvePoint a = in.curve[i - 1], b = in.curve[i];
            const int n = static_cast<int>(std::ceil((b.d - a.d) / step));
            for (int j = 1; j <= n; ++j) fine.push_back({a.d + (b.d - a.d) * j / n, a.V + (b.V - a.V) * j / n});
        }
        in.curve = fine;
    }
    return in;
}

class WorkedExample : public ::testing::TestWithParam<std::string> {};

TEST_P(WorkedExample, ColumnsShowTheWorkedValues) {
    std::vector<Expectation> expect;
    const NspInputs in = read_example(kData / GetParam(), expect);
    const NspComparison c = compare_procedures(in);
    ASSERT_FALSE(expect.empty());
    for (const Expectation& e : expect) {
        const MethodColumn& m = column(c, e.method);
        if (e.none) {
            EXPECT_FALSE(m.target) << e.method;
            EXPECT_NE(m.no_result.find(e.text), std::string::npos) << m.no_result;
            continue;
        }
        std::optional<double> got = e.name == "target" ? m.target : std::nullopt;
        for (const NamedValue& v : m.values)
            if (v.name == e.name) got = v.value;
        ASSERT_TRUE(got) << e.method << ' ' << e.name << ": " << m.no_result;
        // Within half a unit of the last digit written, or within P percent of it ("VALUE ~P%").
        const std::size_t rel = e.text.find(" ~");
        const std::string written = e.text.substr(0, rel);
        const std::size_t dot = written.find('.');
        const int decimals = dot == std::string::npos ? 0 : static_cast<int>(written.size() - dot - 1);
        const double tolerance = rel == std::string::npos ? 0.5 * std::pow(10.0, -decimals)
                                                          : std::stod(e.text.substr(rel + 2)) / 100 * std::stod(written);
        EXPECT_NEAR(*got, std::stod(written), tolerance) << e.method << ' ' << e.name;
    }
}

std::vector<std::string> examples() {
    std::vector<std::string> names;
    for (const auto& f : fs::directory_iterator(kData)) names.push_back(f.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

INSTANTIATE_TEST_SUITE_P(Data, WorkedExample, ::testing::ValuesIn(examples()),
                         [](const auto& info) { return info.param.substr(0, info.param.find('.')); });

TEST(Fema440, EffectiveSystemInTheThreeRanges) {
    // General form, β0 5 %, T0 1 s, one ductility in each range.
    const double mu[] = {2.5, 5, 8}, beta[] = {12.3125, 20.28, 20.5878}, T[] = {1.32175, 1.8, 2.17522};
    for (int k = 0; k < 3; ++k) {
        const EffectiveSystem e = effective_system(mu[k], 5, 1);
        EXPECT_NEAR(e.beta, beta[k], 5e-5) << mu[k];
        EXPECT_NEAR(e.T, T[k], 5e-6) << mu[k];
    }
    EXPECT_NEAR(damping_factor(5), 1.002365, 5e-7);
}

TEST(Ec8N2, LongPeriodsFollowEqualDisplacement) {
    const N2Target t = n2_target(500, 1.2, 0.6, 100, 1);
    EXPECT_FALSE(t.short_period);
    EXPECT_EQ(t.dt, t.det);
}

NspInputs sample() {
    std::vector<Expectation> unused;
    return read_example(kData / "fema440_procedure_b.txt", unused);
}

TEST(Comparison, WithoutAYieldPointTheOthersStand) {
    NspInputs in = sample();
    in.yield.reset();
    in.demand.TC = 0.5;
    const NspComparison c = compare_procedures(in);
    EXPECT_EQ(column(c, "asce41").no_result, "no yield point");
    EXPECT_EQ(column(c, "fema440").no_result, "no yield point");
    EXPECT_TRUE(column(c, "n2").target);
    EXPECT_EQ(column(c, "window").no_result, "the coefficient window has not been run");
}

TEST(Comparison, AYieldDisplacementBelowOneIsAYieldPoint) {
    NspInputs in = sample();
    in.yield->d = 0.5;
    EXPECT_TRUE(column(compare_procedures(in), "fema440").target);
}

TEST(Comparison, APeriodOutsideTheSpectrumIsNamed) {
    NspInputs in = sample();
    in.demand.T_max = 0.3;
    const NspComparison c = compare_procedures(in);
    EXPECT_EQ(column(c, "asce41").no_result, "period 0.8 s outside the spectrum (0.05 to 0.3 s)");
    EXPECT_FALSE(column(c, "fema440").target);
}

TEST(Comparison, BadNumbersGiveReasonsNotFailures) {
    NspInputs in = sample();
    in.W = 0;
    for (const MethodColumn& m : compare_procedures(in).columns) EXPECT_FALSE(m.no_result.empty()) << m.title;
    in.curve.clear();
    EXPECT_EQ(compare_procedures(in).columns.size(), 5u);
    in = sample();
    in.demand.Sa = [](double) { return std::nan(""); };
    for (const MethodColumn& m : compare_procedures(in).columns) EXPECT_FALSE(m.target) << m.title;
}

}  // namespace
}  // namespace tv::compute::nsp
