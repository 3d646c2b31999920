// Ground-motion measures, processing and rotated spectra on records whose answers are known:
// a sine burst in closed form, a constant record, a sine at a filter's corner, and Boore's own
// RotD values for a real pair. The processing's summaries are the golden cases' (measures_*,
// spectra_processed_export).
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <sstream>

#include "compute/import/record_import.h"
#include "compute/measures/ground_motion_measures.h"
#include "compute/measures/record_processing.h"
#include "compute/measures/rotd_spectra.h"
#include "support/fake_platform.h"

namespace tv::compute {
namespace {

constexpr double kPi = 3.141592653589793;

std::vector<double> sine(double amplitude, double hz, double dt, double seconds) {
    std::vector<double> a(static_cast<std::size_t>(std::llround(seconds / dt)) + 1);
    for (std::size_t i = 0; i < a.size(); ++i) a[i] = amplitude * std::sin(2 * kPi * hz * static_cast<double>(i) * dt);
    return a;
}

// Steady amplitude: the peak over the third quarter, away from both ends' transients.
double steady_peak(const std::vector<double>& a) {
    double p = 0;
    for (std::size_t i = a.size() / 2; i < a.size() * 3 / 4; ++i) p = std::max(p, std::fabs(a[i]));
    return p;
}

TEST(Measures, SineBurstInClosedForm) {
    // 20 cycles of 0.1 g at 1 Hz: a^2 is spread evenly over whole cycles, so the Husid curve
    // passes 5, 75 and 95 % at 1, 15 and 19 s.
    const double A = 0.1, g = kStandardGravity, dt = 0.01;
    const MeasuresOutcome r = ground_motion_measures(sine(A, 1, dt, 20), dt);
    ASSERT_TRUE(r.ok()) << r.error;
    const MotionMeasures& m = r.measures;
    EXPECT_NEAR(m.arias, kPi / (2 * g) * (A * g) * (A * g) * 10, 1e-12);
    EXPECT_NEAR(m.d5_75, 14, 1e-9);
    EXPECT_NEAR(m.d5_95, 18, 1e-9);
    EXPECT_NEAR(m.pga, A, 1e-12);
    EXPECT_NEAR(m.pgv / (A * g / kPi), 1, 1e-3);         // v = A g (1 - cos 2 pi t) / (2 pi)
    EXPECT_NEAR(m.pgd / (A * g * 20 / (2 * kPi)), 1, 1e-3);  // the drift at the end
    EXPECT_NEAR(m.cav / (2 * A * 20 / kPi), 1, 1e-3);
    // |a| >= 0.05 g from sin >= 1/2: samples 0.09 s to 19.91 s.
    EXPECT_NEAR(m.bracketed, 19.82, 1e-9);
    EXPECT_NEAR(m.predominant_period, 1.0, 0.011);
    EXPECT_NEAR(m.mean_period, 1.0, 0.02);
    EXPECT_NEAR(m.husid.back(), 1, 1e-15);
    EXPECT_EQ(m.velocity.size(), 2001u);
}

TEST(Measures, WholeCyclesInAPowerOfTwoSamplesAreNotPaddedFurther) {
    // 1024 samples of 16 whole cycles at 1 Hz: the amplitude lies in one bin, Tm is 1 s.
    const double dt = 1.0 / 64;
    const MeasuresOutcome r = ground_motion_measures(sine(0.1, 1, dt, 1023 * dt), dt);
    ASSERT_TRUE(r.ok()) << r.error;
    EXPECT_NEAR(r.measures.mean_period, 1.0, 1e-9);
}

TEST(Measures, BadRecordsGiveAMessage) {
    const std::vector<double> one{0.1}, zeros(100, 0.0), fine = sine(0.1, 1, 0.01, 2);
    EXPECT_EQ(ground_motion_measures(one, 0.01).error, "the record has fewer than two samples");
    EXPECT_EQ(ground_motion_measures(zeros, 0.01).error, "the record is all zeros");
    EXPECT_EQ(ground_motion_measures(fine, 0).error, "the time step must be a positive number of seconds");

    // A corner above the Nyquist frequency is the golden case measures_corner_above_nyquist.
    ProcessingOptions o;
    o.filter = FilterKind::low_pass;
    o.high_corner = 10;
    o.filter_order = 9;
    EXPECT_EQ(process_record(fine, 0.01, o).error, "the filter's order must be 1 to 8");
    o = {};
    o.baseline = BaselineFit::acceleration;
    o.baseline_order = 3;
    const ProcessingOutcome few = process_record(std::vector<double>{0.1, 0.2, 0.1, 0.3}, 0.01, o);
    EXPECT_EQ(few.error, "a polynomial of order 3 needs more than 4 samples");
    EXPECT_TRUE(few.samples.empty());
    EXPECT_EQ(process_record(zeros, 0.01, o).error, "the record is all zeros");
}

TEST(Processing, BaselineOfAConstantRecordLeavesNothing) {
    const std::vector<double> a(500, 0.2);
    ProcessingOptions o;
    o.baseline = BaselineFit::acceleration;
    const ProcessingOutcome onAccel = process_record(a, 0.01, o);
    ASSERT_TRUE(onAccel.ok());
    // The displacement of a constant is the parabola c t^2 / 2, whose second derivative is c.
    o.baseline = BaselineFit::displacement;
    o.baseline_order = 2;
    const ProcessingOutcome onDisp = process_record(a, 0.01, o);
    ASSERT_TRUE(onDisp.ok());
    for (std::size_t i = 0; i < a.size(); ++i) {
        EXPECT_NEAR(onAccel.samples[i], 0, 1e-14);
        EXPECT_NEAR(onDisp.samples[i], 0, 1e-11);
    }
}

TEST(Processing, ButterworthGainAtTheCorner) {
    const double dt = 0.005;
    const std::vector<double> at2Hz = sine(1, 2, dt, 60);
    ProcessingOptions o;
    o.filter_order = 4;
    for (FilterKind kind : {FilterKind::low_pass, FilterKind::high_pass}) {
        o.filter = kind;
        o.low_corner = o.high_corner = 2;
        o.zero_phase = false;
        EXPECT_NEAR(steady_peak(process_record(at2Hz, dt, o).samples), std::sqrt(0.5), 1e-3);
        o.zero_phase = true;
        EXPECT_NEAR(steady_peak(process_record(at2Hz, dt, o).samples), 0.5, 1e-3);
    }
    o = {};
    o.filter = FilterKind::band_pass;
    o.low_corner = 2;
    o.high_corner = 20;
    o.filter_order = 8;
    o.pad_seconds = 5;
    EXPECT_NEAR(steady_peak(process_record(at2Hz, dt, o).samples), std::sqrt(0.5), 1e-3);
}

std::vector<double> samples_of(const std::string& relative) {
    const RecordImport r = import_record_file(test::data_path(relative));
    EXPECT_TRUE(r.ok()) << relative;
    return r.ok() ? r.components.at(0).samples : std::vector<double>{};
}

TEST(RotD, WhittierPairAgreesWithBooresProgram) {
    if (test::data_path("records/formats/A-CAT090.AT2.smc").empty()) GTEST_SKIP() << "records data missing";
    const std::vector<double> a090 = samples_of("records/formats/A-CAT090.AT2.smc");
    const std::vector<double> a180 = samples_of("records/formats/A-CAT180.AT2.smc");
    std::ifstream in(std::string(TV_SOURCE_DIR) + "/tests/compute/measures/data/whittier_acat_rotd.txt");
    std::vector<double> periods, rotd50, rotd100;
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line[0] == '#') continue;
        std::istringstream s(line);
        double T, r50, r100;
        s >> T >> r50 >> r100;
        // Boore's values are in cm/s^2 of records scaled by 981 from g.
        periods.push_back(T), rotd50.push_back(r50 / 981), rotd100.push_back(r100 / 981);
    }
    ASSERT_EQ(periods.size(), 112u);
    const RotDOutcome r = rotd_spectra(a090, a180, 0.02, 0.05, periods);
    ASSERT_TRUE(r.ok()) << r.error;
    // pyrotd's own tests allow 10 % on rotated spectra; the exact stepping agrees within 0.3 %.
    for (std::size_t j = 0; j < periods.size(); ++j) {
        EXPECT_NEAR(r.spectra.rotd50[j] / rotd50[j], 1, 0.01) << "T = " << periods[j];
        EXPECT_NEAR(r.spectra.rotd100[j] / rotd100[j], 1, 0.01) << "T = " << periods[j];
    }
}

TEST(RotD, AComponentWithAProblemIsRefusedByItsPlaceAndAQuietOneBesideAnotherIsNot) {
    const std::vector<double> fine{0.1, -0.2, 0.3, 0}, zeros(4, 0.0), one{0.1}, T{0.1};
    EXPECT_EQ(rotd_spectra(one, fine, 0.01, 0.05, T).error, "first component: the record has fewer than two samples");
    EXPECT_EQ(rotd_spectra(fine, one, 0.01, 0.05, T).error, "second component: the record has fewer than two samples");
    EXPECT_EQ(rotd_spectra(zeros, zeros, 0.01, 0.05, T).error, "first component: the record is all zeros");
    EXPECT_TRUE(rotd_spectra(zeros, fine, 0.01, 0.05, T).ok());
    EXPECT_TRUE(rotd_spectra(fine, zeros, 0.01, 0.05, T).ok());
}

}  // namespace
}  // namespace tv::compute
