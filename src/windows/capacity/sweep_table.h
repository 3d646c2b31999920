#pragma once
// The sweep table Fg3 of the capacity wizard: its columns and headings, and calculate, which
// takes the capacity steps over from the step table, runs the sweep on the numbers their texts
// show and writes its rows, colours and results as texts.
#include <array>
#include <string>

#include "windows/capacity/text_table.h"

namespace tv::windows {

/// Columns of the calculation table Fg3.
namespace fg3 {
enum Column : int {
    kSort = 0,  // hidden, never written
    kTarget = 1,
    kStep = 2,
    kSdpi = 3,
    kSapi = 4,
    kT = 5,
    kSa = 6,
    kSaReduce = 7,
    kFinal = 8,
    kSdReduce = 9,
    kA = 10,
    kM = 11,
    kX = 12,  // hidden, never written
    kA1 = 13,
    kDy = 14,
    kAy = 15,
    kEs0 = 16,
    kED = 17,
    kB0 = 18,
    kLambda = 19,
    kK = 20,
    kBeff = 21,
    kSRA = 22,
    kSRV = 23,
    kTSec = 24,
    kSaDemand = 25,
    kSdDemand = 26,
    kSaReDemand = 27,
    kSaTarsim = 28,  // hidden, never written
    kSdReDemand = 29,
    kPFPhi = 30,
    kBilinearD = 31,
    kBilinearA = 32,
    kCount = 33,
};
}  // namespace fg3

/// Headings of Fg3, columns 0 to 32.
extern const std::array<const char*, fg3::kCount> kSweepHeadings;

/// The settings boxes as typed, each read by the leading-number rule, and the structure type.
struct SweepBoxes {
    std::string T1 = "9810";    // g in the file's length unit
    std::string T2 = "0.4358";  // T0, s: acceleration range below, velocity range from it on
    std::string T3 = "0";       // skip: capacity rows ignored at the head
    std::string T4 = "2";       // m: the initial slope is taken where i - 1 equals m
    int kind = 1;               // 1 "A", 2 "B", 3 "C"
};

/// What the sweep leaves outside the table.
struct SweepResults {
    std::string Re1;  // target displacement at the crossing, "0.0000"; empty without one
    std::string Re2;  // SRA there
    std::string Re3;  // SRV there
    std::string Re4;  // Beff there, percent
    double slopeK0 = 0.0;     // initial slope, the window's own field
    long lastCrossing = 0;    // Fg3 row of the crossing that stands; 0 without one
};

/// Writes the headings of Fg3 into row 0 (33 columns) and hides columns 0, 12 and 28.
void header(TextTable& Fg3);

/// calculate: Fg3 gets the row count of FG2 minus 1, is cleared and gets its headings; the
/// capacity rows of Fg from skip + 1 to the end (its last data row left out) are swept into
/// Fg3 rows 1.., reading every value back from its "0.0000" text; the demand of row i is FG2
/// row i column 1, whatever the skip; each crossing from final > 0 to final < 0 writes the
/// "Target" cells, the bilinear rows 1 to 3 and the results, so the last one stands; step
/// cells are coloured red at a crossing (both rows) and blue elsewhere. Then the demand pass
/// lays FG2 columns 2 and 3 with their reduced form into Fg3 columns 24 to 29.
/// Units: g in the length unit of Sd per s^2, T in s, damping in percent.
/// Failure (RuntimeError; tables and results as far as they got): 9 for a row outside Fg,
/// FG2 or Fg3 (a skip beyond the data, FG2 shorter than the curve, fewer than 4 rows at a
/// crossing); 11 or 6 for the initial slope taken where d is 0; 6 for an overflow.
void calculate(const TextTable& Fg, const TextTable& FG2, const SweepBoxes& boxes, TextTable& Fg3,
               SweepResults& results);

}  // namespace tv::windows
