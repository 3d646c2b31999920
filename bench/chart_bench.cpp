// The record window's chart on a 20,000-sample record with the X axis slider at 10: the plot
// routine on the window model, and (in a build with the desktop program) painting it with Qt
// offscreen, whole and as the scroll bar slides it under the viewport.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "forms/platform.h"
#include "text/number_text.h"
#include "windows/program.h"
#include "windows/project/record_input_window.h"

#ifdef TV_BENCH_WITH_GUI
#include <QApplication>
#include <QImage>
#include <QPainter>

#include "gui/bind/picture_view.h"
#endif

namespace {

using namespace tv;

// Nothing to show: the chart only draws into its picture models.
class QuietPlatform : public forms::Platform {
public:
    forms::MsgResult message_box(const std::string&, forms::MsgButtons, const std::string&, forms::MsgIcon) override {
        return forms::MsgResult::Ok;
    }
    std::optional<std::string> input_box(const std::string&, const std::string&, const std::string&) override {
        return std::nullopt;
    }
    std::optional<std::string> file_dialog(const forms::FileDialogRequest&) override { return std::nullopt; }
    void set_clipboard_text(const std::string&) override {}
    std::vector<std::string> printers() override { return {}; }
    std::string current_printer() override { return {}; }
    bool print(const forms::Page&, const std::string&) override { return false; }
    bool render_pdf(const std::vector<forms::Page>&, std::string&, std::string&) override { return false; }
    void set_busy(bool) override {}
    void do_events() override {}
    void show_form(forms::Form&, bool) override {}
    void hide_form(forms::Form&) override {}
    void unload_form(forms::Form&) override {}
    void end_program() override {}
    void report_runtime_error(int, const std::string&) override {}
};

constexpr long kSamples = 20000;
constexpr long kFirstLine = 5;
constexpr int kSlider = 10;

// Form1 after Show Diagram of a ground-motion-like record (100 s at dt 0.005), samples kept to
// 15 digits as the tables hold them; the slider stands at 10.
struct RecordChart {
    QuietPlatform platform;
    windows::Program program{platform};
    windows::Form1& f = program.form<windows::Form1>();

    RecordChart() {
        windows::ProjectState& s = program.state;
        s.recordCount = 1;
        s.currentRecord = 1;
        const long last = kSamples + kFirstLine - 1;
        for (char c : {'X', 'Y'}) s.accel(1, c).redim(last);
        std::uint32_t seed = 2800u;
        double peak = 0;
        for (long i = kFirstLine; i <= last; ++i) {
            const double t = static_cast<double>(i - kFirstLine) * 0.005;
            seed = seed * 1664525u + 1013904223u;
            const double noise = (static_cast<double>(seed >> 8) / 16777216.0 - 0.5) * 0.05;
            const double envelope = (t / 10.0) * std::exp(1.0 - t / 10.0);
            const double x = envelope * (0.3 * std::sin(2 * M_PI * 1.1 * t) + 0.2 * std::sin(2 * M_PI * 2.7 * t) + noise);
            s.accelX1(i) = text::val(text::to_text(x));
            s.accelY1(i) = text::val(text::to_text(0.8 * x));
            peak = std::max(peak, std::fabs(s.accelX1(i)));
        }
        f.curMaxX = peak;
        f.curMaxY = 0.8 * peak;
        f.scaleFactor = 1;
        f.xvalue.set_text(text::to_text(peak));
        f.xstep.set_text("0.005");
        f.chart.Slider1.set_value(kSlider);  // draws once through the slider's own handler
    }
    void plot() { f.chart.plot(program.state.accelX1, 0.005, true); }
};

// The plot routine of Form1: clear, the plot's width and scale, 20,000 segments, the base line
// and both axis strips. One item is one sample.
void BM_ChartPlotRecord(benchmark::State& state) {
    RecordChart chart;
    for (auto _ : state) {
        chart.plot();
        benchmark::DoNotOptimize(chart.f.chart.picNemodar.ops().data());
    }
    state.SetItemsProcessed(state.iterations() * kSamples);
    state.counters["operations"] = static_cast<double>(chart.f.chart.picNemodar.ops().size());
    state.counters["plot_twips"] = chart.f.chart.picNemodar.width();
}
BENCHMARK(BM_ChartPlotRecord)->Unit(benchmark::kMillisecond);

#ifdef TV_BENCH_WITH_GUI

QApplication& application() {
    static int argc = 1;
    static char name[] = "tremorvault-bench";
    static char* argv[] = {name, nullptr};
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication app(argc, argv);
    return app;
}

constexpr double kDpi = 96.0;
constexpr double kPerTwip = kDpi / 1440.0;

// Replaying the whole plot from the model into an image of its size (what every expose cost
// before the view kept its painting): 20,000 smoothed segments.
void BM_ChartReplayRecord(benchmark::State& state) {
    application();
    RecordChart chart;
    const forms::PictureBox& pic = chart.f.chart.picNemodar;
    QImage image(static_cast<int>(std::lround(pic.width() * kPerTwip)),
                 static_cast<int>(std::lround(pic.height() * kPerTwip)), QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        QPainter p(&image);
        gui::paint_picture(p, pic, {}, gui::PaintScale{kPerTwip, 1.0}, QRectF(image.rect()));
    }
    state.SetItemsProcessed(state.iterations() * kSamples);
    state.counters["width_px"] = image.width();
}
BENCHMARK(BM_ChartReplayRecord)->Unit(benchmark::kMillisecond);

// One step of the scroll bar: the viewport's width of the plot is exposed at a new place.
// Argument 0: painted from the model (every operation is clipped against the exposed part);
// 1: the plot view, which copies from the painting it keeps and draws the cross-hairs on top.
void BM_ChartScrollExpose(benchmark::State& state) {
    application();
    RecordChart chart;
    const forms::PictureBox& pic = chart.f.chart.picNemodar;
    const int viewport = static_cast<int>(std::lround(chart.f.chart.picNemodar1.width() * kPerTwip));
    const int height = static_cast<int>(std::lround(pic.height() * kPerTwip));
    const int width = static_cast<int>(std::lround(pic.width() * kPerTwip));
    QImage target(viewport, height, QImage::Format_ARGB32_Premultiplied);
    gui::PictureView view;
    view.set_picture(&pic, {&chart.f.chart.Line2, &chart.f.chart.Line3});
    view.setFixedSize(width, height);
    const bool cached = state.range(0) == 1;
    int step = 0;
    for (auto _ : state) {
        const int left = static_cast<int>(std::lround(step++ * 100 * kPerTwip)) % (width - viewport);  // 100 twips a step
        const QRect exposed(left, 0, viewport, height);
        if (cached) {
            view.render(&target, QPoint(), QRegion(exposed));
        } else {
            QPainter p(&target);
            p.translate(-left, 0);
            gui::paint_picture(p, pic, {&chart.f.chart.Line2, &chart.f.chart.Line3}, gui::PaintScale{kPerTwip, 1.0},
                               QRectF(exposed));
        }
    }
    state.counters["cache_rebuilds"] = view.cache_rebuilds();
}
BENCHMARK(BM_ChartScrollExpose)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

#endif

}  // namespace
