#pragma once
// The code design spectrum: constants by soil and hazard, the ordinate B(T), the period loop of
// Show Diagram and the ordinate file.
#include <cstdint>
#include <string>

#include "text/checked.h"

namespace tv::compute {

enum class Soil { I, II, III, IV };
enum class Hazard { Low, Moderate, High, VeryHigh };
/// The constants and the long-period factor depend only on these two groups.
enum class HazardGroup { LowModerate, HighVeryHigh };

/// Low and Moderate form one group, High and Very High the other.
HazardGroup hazard_group(Hazard hazard);

/// Corner periods T0, Ts (seconds), plateau factor S, factor at period 0 S0.
struct SpectrumConstants {
    double T0 = 0;
    double Ts = 0;
    double S = 0;
    double S0 = 0;
};

/// The table by soil and hazard group. Only soil IV differs between the groups.
SpectrumConstants spectrum_constants(Soil soil, HazardGroup group);

/// The scale A that a hazard option puts into the scale box: 0.2, 0.25, 0.3, 0.35.
double default_scale(Hazard hazard);

/// B(T) = B1 * N for the period T (seconds) and the scale A; the result is in the units of A.
/// B1 rises from A * S0 at T = 0 to the plateau (S + 1) * A on T0 <= T <= Ts, then falls as Ts / T;
/// N is 1 up to Ts, rises linearly to the ceiling (1.4 Low/Moderate, 1.7 High/Very High) at 4 s
/// and stays there. A negative period gives 0. Failure: a result beyond the double range
/// raises RuntimeError 6.
double design_spectrum(double T, double A, const SpectrumConstants& k, HazardGroup group);

/// Show Diagram: specCount = period_count(tEnd, step), designSa made anew 0..specCount, then
/// designSa(i) = B(T) for T = tStart, tStart + step, ... (repeated addition) while T <= tEnd,
/// also for a negative step, i from 1. specCount is set before the array is made, so it stands
/// when a later step fails.
/// Failure: as period_count; an i beyond specCount raises 9 with what was written kept
/// (tStart = 0 does so on the last pass).
void show_design_spectrum(text::DoubleArray& designSa, std::int32_t& specCount, double tStart, double tEnd,
                          double step, double A, const SpectrumConstants& k, HazardGroup group);

/// Browse: the ordinate file, one ordinate per line, line i for index i. The file is opened
/// first; then specCount = period_count(tEnd, step) and designSa is made anew 0..specCount;
/// lines are read until the end of the file or until i passes specCount, each line's leading
/// number (0 when there is none) going to designSa(i). Lines end at LF, CR LF or CR.
/// Failure: text::FileError as read_text_file (53, 75, with the path and the system's reason),
/// before anything is changed; then as period_count.
void read_spectrum_file(const std::string& path, double tEnd, double step, text::DoubleArray& designSa,
                        std::int32_t& specCount);

}  // namespace tv::compute
