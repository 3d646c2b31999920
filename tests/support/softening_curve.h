#pragma once
// The softening pushover curve that the coefficient windows' tests read.

namespace tv::test {

/// A curve worked by hand, in kg and cm: the target is step 5 at (8, 3300); Ki = 1500,
/// A = 21550, and the scan stops at K = 1435, so the yield point is (1.99, 2855.7214) and
/// Te = 1.022 with Ti = 1.
inline const char* kSofteningCurve = TV_SOURCE_DIR "/tests/golden/inputs/softening_curve.txt";

}  // namespace tv::test
