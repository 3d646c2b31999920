#pragma once
// Processing of one acceleration component: baseline correction by a least-squares polynomial
// and Butterworth filtering. Off by default; it makes a new record and never changes its input.
#include <span>
#include <string>
#include <vector>

namespace tv::compute {

enum class BaselineFit {
    none,
    acceleration,  // fit the acceleration, subtract the polynomial
    displacement,  // fit the displacement (trapezoid twice), subtract the polynomial's second derivative
};

enum class FilterKind { none, low_pass, high_pass, band_pass };

struct ProcessingOptions {
    BaselineFit baseline = BaselineFit::none;
    int baseline_order = 0;  // 0..6; a fit on the displacement needs 2 or more

    FilterKind filter = FilterKind::none;
    double low_corner = 0;   // Hz: the high-pass corner (high- and band-pass)
    double high_corner = 0;  // Hz: the low-pass corner (low- and band-pass)
    int filter_order = 4;    // 1..8, per corner
    bool zero_phase = false; // forward and backward: no phase shift, gain squared
    double pad_seconds = 0;  // zeros before and after while filtering, removed afterwards

    bool active() const { return baseline != BaselineFit::none || filter != FilterKind::none; }
};

struct ProcessingOutcome {
    std::vector<double> samples;  // the processed record, as long as the input
    std::string error;            // empty when done; otherwise samples is empty
    bool ok() const { return error.empty(); }
};

/// The record after the baseline correction, then the filter (`accel` in g, `dt` in s).
/// The polynomial is fitted on t scaled to [-1, 1] by a column-pivoting Householder QR. The
/// filter is a cascade of second-order sections from the analog Butterworth prototype by the
/// bilinear transform with the corner prewarped, so a causal pass has gain 1/sqrt(2) at each
/// corner and a zero-phase pass 1/2; a band-pass is a high-pass at the low corner followed by a
/// low-pass at the high corner, each of the given order.
/// Failure (a message, no record): the record problems of record_problem, an order out of
/// range, a polynomial with as many coefficients as samples or more, a corner that is not
/// above 0 or not below the Nyquist frequency 1 / (2 dt), band corners not in increasing order,
/// negative pads.
ProcessingOutcome process_record(std::span<const double> accel, double dt, const ProcessingOptions& options);

/// What was applied, for a caption or an export header ("baseline: order 2 on the
/// displacement; filter: band-pass 0.1-25 Hz, order 4, zero-phase, pads 5 s"); "none" when off.
std::string processing_summary(const ProcessingOptions& options);

}  // namespace tv::compute
