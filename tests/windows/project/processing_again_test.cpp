// Show Diagram on a processed record whose processing no longer fits the lines now chosen: a
// message, and the record as read, no longer marked processed.
#include "project_fixture.h"
#include "windows/measures/measures_window.h"

namespace tv::test {
namespace {

TEST_F(ProjectTest, ProcessingThatNoLongerFitsIsDroppedWithAMessage) {
    platform.input_answers = {"1", "2"};
    open_record(write("x.txt", "h\n0.1\n-0.2\n0.3\n0.1\n-0.1\n0.2\n0\n0.1\n-0.3\n0.2\n"),
                write("y.txt", "h\n0.2\n0.1\n-0.1\n0.3\n0.2\n-0.2\n0.1\n0\n0.1\n-0.1\n"));
    auto press = [&](forms::CommandButton& b) { program.run([&] { b.press(); }); };
    press(form1().Command2);
    press(form1().cmdMeasures);
    auto& m = program.form<windows::MeasuresWindow>();
    program.run([&] {
        m.BaselineFit.set_list_index(1);
        m.BaselineOrder.set_text("6");  // seven coefficients: more than six samples needed
    });
    press(m.Apply);
    ASSERT_TRUE(m.Undo.enabled());
    program.run([&] { form1().xeline.set_text("7"); });  // six samples left
    press(form1().Command2);
    EXPECT_EQ(platform.message_texts().back().rfind("The processing applied before does not fit", 0), 0u);
    EXPECT_EQ(form1().caption(), "Input file parameters (1)");
    EXPECT_EQ(state().samples(1, 'X', 2, 7), (std::vector<double>{0.1, -0.2, 0.3, 0.1, -0.1, 0.2}));
}

}  // namespace
}  // namespace tv::test
