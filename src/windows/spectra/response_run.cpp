#include "windows/spectra/response_run.h"

#include <new>
#include <stdexcept>

namespace tv::windows {

namespace {

// The trap shows the failure; both callers go on to draw what there is.
void trapped(forms::Platform& platform, const std::string& description, const std::string& title) {
    platform.message_box(description, forms::MsgButtons::Ok, title, forms::MsgIcon::Critical);
    platform.action_goes_on();
}

}  // namespace

bool run_response_spectra(Window& window, const ProgressPanel& panel, double zeta,
                          const std::function<compute::SpectrumMeasure()>& measure, const std::string& error_title) {
    ProjectState& s = window.state();
    forms::Platform& platform = window.platform();
    panel.Picbar.set_visible(true);
    try {
        compute::PeriodGrid grid{s.tStart, s.tEnd, s.periodStep, s.specCount};
        std::vector<compute::RecordSpectra> records;
        for (std::int32_t k = 1; k <= s.recordCount; ++k)
            records.push_back({s.recordDt(k), s.recordFirstLine(k), s.recordLastLine(k), s.accel(k, 'X'),
                               s.accel(k, 'Y'), s.spectrum(k, 'X'), s.spectrum(k, 'Y')});
        compute::integrate_records(
            records, zeta, grid, measure,
            [&](int) {
                panel.pbar.set_value(0);
                panel.pbar.set_max(static_cast<float>(s.specCount));
            },
            [&](int) {
                panel.pbar.set_value(panel.pbar.value() + 1);
                platform.do_events();
            });
    } catch (const text::RuntimeError& e) {
        trapped(platform, e.description(), error_title);
        return false;
    } catch (const std::bad_alloc&) {
        // A grid or history too large for memory is the old run time's error 7.
        trapped(platform, text::error_description(7), error_title);
        return false;
    } catch (const std::length_error&) {
        trapped(platform, text::error_description(7), error_title);
        return false;
    }
    panel.pbar.set_value(0);
    panel.pbar.set_max(static_cast<float>(s.specCount));
    panel.Picbar.set_visible(false);
    return true;
}

}  // namespace tv::windows
