#include "windows/project_state.h"

#include <algorithm>

namespace tv::windows {

namespace {
template <class S>
text::DoubleArray& pick(S& s, long record, char component, text::DoubleArray S::*x1, text::DoubleArray S::*y1,
                        text::DoubleArray S::*x2, text::DoubleArray S::*y2, text::DoubleArray S::*x3,
                        text::DoubleArray S::*y3) {
    bool x = component == 'X' || component == 'x';
    bool y = component == 'Y' || component == 'y';
    if (!x && !y) text::raise(text::kSubscript);
    switch (record) {
        case 1: return s.*(x ? x1 : y1);
        case 2: return s.*(x ? x2 : y2);
        case 3: return s.*(x ? x3 : y3);
        default: text::raise(text::kSubscript);
    }
}
}  // namespace

text::DoubleArray& ProjectState::accel(long record, char component) {
    return pick(*this, record, component, &ProjectState::accelX1, &ProjectState::accelY1, &ProjectState::accelX2,
                &ProjectState::accelY2, &ProjectState::accelX3, &ProjectState::accelY3);
}

text::DoubleArray& ProjectState::baseAccel(long record, char component) {
    return pick(*this, record, component, &ProjectState::baseAccelX1, &ProjectState::baseAccelY1,
                &ProjectState::baseAccelX2, &ProjectState::baseAccelY2, &ProjectState::baseAccelX3,
                &ProjectState::baseAccelY3);
}

text::DoubleArray& ProjectState::spectrum(long record, char component) {
    return pick(*this, record, component, &ProjectState::specX1, &ProjectState::specY1, &ProjectState::specX2,
                &ProjectState::specY2, &ProjectState::specX3, &ProjectState::specY3);
}

std::vector<double> ProjectState::samples(long record, char component) {
    return samples(record, component, recordFirstLine(record), recordLastLine(record));
}

std::vector<double> ProjectState::samples(long record, char component, long first, long last) {
    const text::DoubleArray& a = accel(record, component);
    std::vector<double> out;
    if (!a.allocated()) return out;
    first = std::max<long>(first, 0);
    last = std::min<long>(last, a.ubound());
    for (long i = first; i <= last; ++i) out.push_back(a(i));
    return out;
}

std::string ProjectState::recordProcessing(long record) const {
    const compute::ProcessingOptions& options = recordProcessingOptions(record);
    return options.active() ? compute::processing_summary(options) : "";
}

void ProjectState::put_samples(long record, long first, const std::array<std::vector<double>, 2>& xy) {
    for (std::size_t c = 0; c < 2; ++c) {
        const char letter = c == 0 ? 'X' : 'Y';
        text::DoubleArray& a = accel(record, letter);
        text::DoubleArray& b = baseAccel(record, letter);
        for (std::size_t i = 0; i < xy[c].size(); ++i) {
            const long line = std::max<long>(first, 0) + static_cast<long>(i);
            a(line) = xy[c][i];
            b(line) = xy[c][i];
        }
    }
}

}  // namespace tv::windows
