#pragma once
// The inverse Fourier sum that rebuilds an acceleration history from the transform table, and
// the lines of the two exports.
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tv::compute {

/// The factor of the inverse integral, 1 / pi with the program's own pi (not 3.1416).
inline constexpr double kInversePi = 1 / 3.14159265358979;

/// The terms of the inverse sum, term i at index i - 1, and the weight of every term.
struct InverseTerms {
    std::vector<double> omega;  // rad/s
    std::vector<double> real;
    std::vector<double> imag;
    double weight = 0;  // rad/s
};

/// All terms: term i has omega i * deltaOmega (a product, not a running sum) and the numbers of
/// the transform table's columns 0 and 1 in row i (the 5-decimal texts, not the arrays); the
/// weight is deltaOmega. realCells[i - 1] is row i.
InverseTerms all_inverse_terms(const std::vector<double>& realCells, const std::vector<double>& imagCells,
                               double deltaOmega);

/// The picked terms: omega and coefficients from the rows of the picks table (the numbers of its
/// columns 3, 0 and 1). The weight is deltaOmega, or omegaStep (the number of "Omega Stp=") when
/// that is above it; the window's deltaOmega takes that weight when at least one term is summed.
InverseTerms picked_inverse_terms(const std::vector<double>& omega, const std::vector<double>& real,
                                  const std::vector<double>& imag, double deltaOmega, double omegaStep);

/// The rebuilt history, indices 0..m (index 0 stays 0).
struct History {
    std::vector<double> accel;  // a(k), the 15-digit running sum without 1/pi: accelX1
    std::vector<double> time;   // t(k) rounded to 2 decimals: accelY1 and the Time column
};

/// For k = 1..m, t = t + dtOut from 0 (repeated addition) and, term by term,
///   a(k) = round15(a(k) + Real * cos(omega * t) * weight + Imag * sin(omega * t) * weight),
/// left to right with std::cos and std::sin. `step_done(k)` is called on the calling thread for
/// k = 1..m in order (the window writes row k, moves its bar, lets events run). Rows are summed
/// on all processors, bit for bit as the plain loop. `out` is made 0..max(m, 0).
/// Failure: 6 when a value overflows, raised in row order: rows before k are complete and
/// reported, a(k) holds the sum as far as it got.
void inverse_transform(const InverseTerms& terms, double dtOut, std::int32_t m, History& out,
                       const std::function<void(std::int32_t k)>& step_done = {});

/// One term: round15(a + real * cos(omega * t) * weight + imag * sin(omega * t) * weight), left
/// to right. Failure: 6 on overflow.
double inverse_term(double a, double real, double imag, double omega, double t, double weight);

/// The texts of row k of the history table Grid2 once the row is done: column 0 the time
/// rounded to 2 decimals, column 1 a(k) times kInversePi rounded to 5 decimals.
struct HistoryRowTexts {
    std::string time, accel;
};
HistoryRowTexts history_row_texts(const History& history, std::int32_t k);

/// The heading lines of the history export and of the amplitude export.
inline constexpr std::string_view kHistoryHeading = "time               accel       ";
inline constexpr std::string_view kSpectrumHeading = "      omega               Amp ";

/// One export line: Format(first, "0.00000000"), four blanks, Format(second, "0.00000000"):
/// time and accel of the history table, omega and Amp of the transform table.
std::string export_line(double first, double second);

}  // namespace tv::compute
