// The Fourier window takes record 1's arrays as its scratch space; the measures window opened
// after it still measures the record as the tables hold it.
#include <cmath>
#include <string>

#include "text/number_text.h"
#include "windows/fourier/fourier_window.h"
#include "windows/measures/measures_window.h"
#include "windows/project/project_fixture.h"

namespace tv::test {
namespace {

TEST_F(ProjectTest, MeasuresAfterAFourierRunAreTheRecordsOwn) {
    std::string x = "header\n", y = "header\n";
    for (int i = 1; i <= 400; ++i) {
        x += text::to_text(0.3 * std::sin(2 * M_PI * 2 * i * 0.01)) + "\n";
        y += "0.1\n";
    }
    platform.input_answers = {"1", "2"};
    open_record(write("x.txt", x), write("y.txt", y));
    program.run([&] { form1().xstep.set_text("0.01"); });
    program.run([&] { form1().Command2.press(); });
    program.run([&] { form1().cmdMeasures.press(); });
    const double pga = program.form<windows::MeasuresWindow>().shown_measures('X')->pga;
    program.run([&] { form1().Command1.press(); });
    auto& f12 = program.form<windows::Form12>();
    program.run([&] { f12.Text1.set_text("100"), f12.Text2.set_text("0.05"); });
    program.run([&] { f12.Command1.press(); });
    program.run([&] { form1().cmdMeasures.press(); });
    const auto* measured = program.form<windows::MeasuresWindow>().shown_measures('X');
    ASSERT_NE(measured, nullptr);
    EXPECT_EQ(measured->pga, pga);
}

}  // namespace
}  // namespace tv::test
