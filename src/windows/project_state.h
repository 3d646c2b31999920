#pragma once
// What crosses windows for one run: the records, their settings, the period grid and spectra.
// Nothing here is stored between runs.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "compute/measures/record_processing.h"
#include "text/checked.h"

namespace tv::windows {

/// Per-record settings: indices 0 to 3, slot 0 never written; 4 or more raises 9.
template <class T>
class RecordSlots {
public:
    T& operator()(long k) {
        if (k < 0 || k > 3) text::raise(text::kSubscript);
        return v_[static_cast<std::size_t>(k)];
    }
    const T& operator()(long k) const { return const_cast<RecordSlots&>(*this)(k); }

private:
    std::array<T, 4> v_{};
};

struct ProjectState {
    std::string startDir;
    std::string workDir;
    std::string fileName;

    std::int32_t recordCount = 0;
    std::int32_t currentRecord = 0;
    std::string componentLetter = "X";
    double dataFirstLine = 0;
    double peakAccel = 0;

    std::int32_t specCount = 0;
    double tStart = 0;
    double tEnd = 0;
    double periodStep = 0;

    RecordSlots<std::int32_t> recordFirstLine;
    RecordSlots<std::int32_t> recordLastLine;
    RecordSlots<double> recordStep;
    RecordSlots<double> recordDt;
    RecordSlots<double> recordMaxValue;
    /// The first data line the record's X file set (a layout that states its own); 0 when the
    /// answer to "Data's First Line ?" holds.
    RecordSlots<std::int32_t> recordFileFirstLine;
    /// The time step is typed by whoever drives the window (the batch's --dt): the step a file
    /// declares is not offered.
    bool stepTyped = false;
    /// Processing applied to a record's arrays (none: off), for Show Diagram to apply again to
    /// the record it reads anew.
    RecordSlots<compute::ProcessingOptions> recordProcessingOptions;

    text::DoubleArray accelX1, accelY1, accelX2, accelY2, accelX3, accelY3;
    text::DoubleArray baseAccelX1, baseAccelY1, baseAccelX2, baseAccelY2, baseAccelX3, baseAccelY3;
    text::DoubleArray specX1, specY1, specX2, specY2, specX3, specY3;
    text::DoubleArray designSa;
    text::DoubleArray designAux;

    /// Reset for a new project (closing Form1): count 0, letter "X", no processing; arrays stay.
    void reset() {
        recordCount = 0;
        componentLetter = "X";
        recordProcessingOptions = {};
    }

    /// Record lookup: record 1..3, component 'X' or 'Y'; anything else raises 9.
    text::DoubleArray& accel(long record, char component);
    text::DoubleArray& baseAccel(long record, char component);
    text::DoubleArray& spectrum(long record, char component);
    /// The samples of a stored record's component, g: lines recordFirstLine .. recordLastLine
    /// of its array, as far as the array reaches (measures and rotated spectra read these).
    std::vector<double> samples(long record, char component);
    /// The same over lines first .. last (the record in work, before its settings are stored).
    std::vector<double> samples(long record, char component, long first, long last);
    /// What was applied to a record's arrays ("" none), for its caption and export headers.
    std::string recordProcessing(long record) const;
    /// Writes X and Y of a record into its arrays (accel and baseAccel) from line `first`; the
    /// samples came from those lines, so they fit.
    void put_samples(long record, long first, const std::array<std::vector<double>, 2>& xy);
};

}  // namespace tv::windows
