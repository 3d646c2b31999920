#include "windows/spectra/response_run.h"

#include <new>
#include <stdexcept>

namespace tv::windows {

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
        platform.message_box(e.description(), forms::MsgButtons::Ok, error_title, forms::MsgIcon::Critical);
        return false;
    } catch (const std::bad_alloc&) {
        // A grid or history too large for memory is the old run time's error 7.
        platform.message_box(text::error_description(7), forms::MsgButtons::Ok, error_title, forms::MsgIcon::Critical);
        return false;
    } catch (const std::length_error&) {
        platform.message_box(text::error_description(7), forms::MsgButtons::Ok, error_title, forms::MsgIcon::Critical);
        return false;
    }
    panel.pbar.set_value(0);
    panel.pbar.set_max(static_cast<float>(s.specCount));
    panel.Picbar.set_visible(false);
    return true;
}

}  // namespace tv::windows
