#pragma once
// The softening pushover curve that the coefficient windows' tests read.

namespace tv::test {

/// A curve worked by hand, in kg and cm: the target is step 5 at (8, 3300); Ki = 1500,
/// A = 21550, and the scan stops at K = 1435, so the yield point is (1.99, 2855.7214) and
/// Te = 1.022 with Ti = 1.
inline const char* kSofteningListing =
    "Pushover curve, case PUSH\n"
    "Step  Displacement  BaseForce  Hinges\n"
    " 0  0  0  0\n"
    " 1  1  1500  0\n"
    " 2  2  2600  0\n"
    " 3  3  3000  0\n"
    " 4  5  3200  0\n"
    " 5  8  3300  0\n";

}  // namespace tv::test
