// Find Omega on spectra with neighbouring peaks, the spacing rules, and the omega calculator.
#include "compute/fourier/omega_picks.h"

#include <gtest/gtest.h>

#include "text/number_text.h"
#include "text/runtime_error.h"
#include "support/errors.h"

namespace tv::compute {
namespace {

using tv::test::error_of;

// A spectrum of n rows (amp[i - 1] is row i) with the given peaks on a floor of 0.1.
std::vector<double> spectrum(std::size_t n, std::initializer_list<std::pair<std::size_t, double>> peaks) {
    std::vector<double> amp(n, 0.1);
    for (auto [row, a] : peaks) amp[row - 1] = a;
    return amp;
}

TEST(OmegaPicks, NeighboursOfAPeakAreKeptAwayByTheSpacing) {
    // Two peaks, each with a strong neighbour one row (0.05 rad/s) away.
    const auto amp = spectrum(2000, {{100, 10}, {101, 9.5}, {300, 8}, {301, 7.9}, {700, 1}});
    const auto picks = find_omegas(amp, 0.05, 1.0, 3);
    ASSERT_EQ(picks.size(), 3u);
    EXPECT_EQ(picks[0].row, 100);
    EXPECT_EQ(picks[0].omega, 5.0);
    EXPECT_EQ(picks[0].amp, 10.0);
    EXPECT_EQ(picks[1].row, 300);
    EXPECT_EQ(picks[1].omega, 15.0);
    EXPECT_EQ(picks[2].row, 700);
    EXPECT_EQ(picks[2].omega, 35.0);
}

TEST(OmegaPicks, AskingForMoreThanThereAreEndsAtTheFirstEmptyRow) {
    // Two peaks on a floor of nothing: a million rows asked, two found, then the row the window
    // stops at.
    std::vector<double> amp(200, 0.0);
    amp[39] = 10;
    amp[159] = 5;
    const auto picks = find_omegas(amp, 0.5, 10.0, 1000000);
    ASSERT_EQ(picks.size(), 3u);
    EXPECT_EQ(picks[0].row, 40);
    EXPECT_EQ(picks[1].row, 160);
    EXPECT_EQ(picks[2].row, 0);
    EXPECT_EQ(error_of([&] { pick_period(picks[2]); }), text::kDivisionByZero);
}

TEST(OmegaPicks, ASpacingOfZeroTakesTheNeighbours) {
    const auto amp = spectrum(2000, {{100, 10}, {101, 9.5}, {300, 8}, {301, 7.9}});
    const auto picks = find_omegas(amp, 0.05, 0, 4);
    ASSERT_EQ(picks.size(), 4u);
    EXPECT_EQ(picks[0].row, 100);
    EXPECT_EQ(picks[1].row, 101);
    EXPECT_EQ(picks[1].omega, 5.05);
    EXPECT_EQ(picks[2].row, 300);
    EXPECT_EQ(picks[3].row, 301);
}

TEST(OmegaPicks, AnOmegaAtOrBelowTheSpacingCannotBePicked) {
    // The strongest row has omega 0.5, the spacing is 0.5: row r itself counts as omega 0.
    const auto amp = spectrum(200, {{10, 50}, {11, 20}, {150, 30}});
    auto picks = find_omegas(amp, 0.05, 0.5, 1);
    EXPECT_EQ(picks[0].row, 150);  // 0.55 (row 11) is above the spacing but weaker than row 150
    picks = find_omegas(spectrum(200, {{10, 50}, {11, 20}}), 0.05, 0.5, 1);
    EXPECT_EQ(picks[0].row, 11);
    EXPECT_EQ(picks[0].omega, 0.55);
    // With a spacing of 0 only omega 0 itself is refused: a row whose omega rounds to 0.00.
    picks = find_omegas(spectrum(10, {{2, 5}}), 0.001, 0, 1);
    EXPECT_EQ(picks[0].row, 5);  // rows 1 to 4 round to 0.00; row 5 (just above 0.005) to 0.01
    EXPECT_EQ(picks[0].omega, 0.01);
}

TEST(OmegaPicks, OfEqualAmplitudesTheLowerOmegaStands) {
    const auto picks = find_omegas(spectrum(200, {{50, 4}, {80, 4}}), 0.05, 0, 2);
    EXPECT_EQ(picks[0].row, 50);
    EXPECT_EQ(picks[1].row, 80);
}

TEST(OmegaPicks, ARefusedCandidateBringsTheKeptBestBack) {
    // Pick 1 is row 20 (omega 1.0). For pick 2, row 10 (0.5) stands, row 20 is refused and
    // row 10 comes back, then row 30 (1.5) beats it.
    const auto amp = spectrum(100, {{10, 5}, {20, 9}, {30, 7}});
    const auto picks = find_omegas(amp, 0.05, 0.3, 2);
    EXPECT_EQ(picks[0].row, 20);
    EXPECT_EQ(picks[1].row, 30);
    EXPECT_EQ(picks[1].amp, 7.0);
}

TEST(OmegaPicks, NoPickLeavesAnEmptyRowWhosePeriodFails) {
    EXPECT_TRUE(find_omegas(spectrum(10, {}), 0.05, 0, 0).empty());
    const auto picks = find_omegas(spectrum(100, {{10, 5}}), 0.05, 100, 2);
    EXPECT_EQ(picks[0].row, 0);
    EXPECT_EQ(picks[0].amp, 0.0);
    EXPECT_EQ(error_of([&] { pick_period(picks[0]); }), text::kDivisionByZero);
}

TEST(OmegaPicks, PeriodsUseTheRounded2Pi) {
    EXPECT_EQ(period_of_omega(12.55), 0.5);  // 6.2832 / 12.55 = 0.50065...
    EXPECT_EQ(text::to_text(period_of_omega(5)), "1.26");
    EXPECT_EQ(pick_period(OmegaPick{100, 10, 5.0}), 1.26);
    EXPECT_EQ(error_of([] { period_of_omega(0); }), text::kDivisionByZero);
}

TEST(OmegaPicks, TheCalculatorTurnsHalfASecondInto13) {
    const double omega = omega_of_period(0.5);
    EXPECT_EQ(text::to_text(omega), "12.5664");
    EXPECT_EQ(transfer_omega(text::val(text::to_text(omega))), 13);
    EXPECT_EQ(transfer_omega(12.5), 12);  // halves to even
    EXPECT_EQ(transfer_omega(13.5), 14);
    EXPECT_EQ(error_of([] { omega_of_period(0); }), text::kDivisionByZero);
    EXPECT_EQ(error_of([] { transfer_omega(1e10); }), text::kOverflow);
}

}  // namespace
}  // namespace tv::compute
