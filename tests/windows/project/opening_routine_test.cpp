// The opening routine of the main frame: its prompts and its silent endings.
#include "project_fixture.h"
#include "windows/project/inputs_window.h"

namespace tv::test {
namespace {

TEST_F(ProjectTest, CountIsRoundedHalfToEvenAndItsLeadingNumberTaken) {
    open_x("0.1\n0.2\n", "2.5");
    EXPECT_EQ(state().recordCount, 2);
    EXPECT_EQ(state().currentRecord, 1);
}

TEST_F(ProjectTest, AWordAfterTheCountIsIgnoredAndTheFirstLineIsKeptUnrounded) {
    platform.input_answers = {"3 records", "5.5"};
    open();  // the dialog is cancelled: the count goes back to 0
    EXPECT_DOUBLE_EQ(state().dataFirstLine, 5.5);
    ASSERT_EQ(platform.file_requests.size(), 1u);
    EXPECT_EQ(platform.file_requests[0].file_name, "*.txt");
    EXPECT_EQ(state().recordCount, 0);
}

TEST_F(ProjectTest, TheInputsWindowsOpenKeepsTheCountWhenItsDialogIsCancelled) {
    open_x("0.1\n0.2\n");
    auto& f14 = program.form<windows::Form14>();
    program.run([&] { f14.Command1.press(); });  // the dialog cancelled
    EXPECT_EQ(platform.file_requests.size(), 2u);
    EXPECT_EQ(state().recordCount, 1);
}

TEST_F(ProjectTest, CancelledPromptsOrANegativeCountEndTheRoutineSilently) {
    open();
    EXPECT_EQ(state().recordCount, 0);
    platform.input_answers = {"-1", "1"};
    open();  // ends at the range test
    EXPECT_EQ(state().recordCount, 0);
    EXPECT_TRUE(platform.messages.empty());
    EXPECT_TRUE(platform.file_requests.empty());
}

TEST_F(ProjectTest, CancelAfterTheXFileResetsTheCountAndTheNextOpenAsksAgain) {
    open_x("0.1\n0.2\n");
    EXPECT_EQ(state().componentLetter, "Y");
    open();  // dialog cancelled
    EXPECT_EQ(state().recordCount, 0);
    // Each dialog says which file it asks for.
    EXPECT_EQ(platform.file_requests[0].title, "Record 1: X component");
    EXPECT_EQ(platform.file_requests[1].title, "Record 1: Y component");

    platform.input_answers = {"1", "1"};
    open();  // asks both prompts again, and is cancelled again
    EXPECT_EQ(platform.prompts.size(), 4u);
    EXPECT_EQ(state().currentRecord, 1);
    EXPECT_EQ(state().componentLetter, "Y");
}

TEST_F(ProjectTest, TheXFileOpensTheRecordWindowWithTheFirstLine) {
    open_x("header\n0.1\n-0.35\n", "1", "2");
    ASSERT_TRUE(program.is_loaded<windows::Form1>());
    EXPECT_EQ(form1().caption(), "Input file parameters (1)");
    EXPECT_TRUE(form1().visible());
    // Lines 2 to 3, X's table and peak; Next and Back off.
    expect_shown(form1(), "record_x_opened");
}

TEST_F(ProjectTest, AMissingFileIsARunTimeErrorAndTheProgramGoesOn) {
    platform.input_answers = {"1", "1"};
    platform.file_answers = {(dir / "missing.txt").string()};
    open();
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0].first, 53);
    EXPECT_FALSE(platform.busy);
    // The next file still opens.
    std::string x = write("x.txt", "0.5\n");
    platform.file_answers = {x};
    open();
    EXPECT_EQ(form1().Grid1.rows(), 2);
}

TEST_F(ProjectTest, BackToRecordOneThenOpeningReloadsTheWindowWithACountOfZero) {
    std::string a = write("a.txt", "0.1\n0.2\n"), b = write("b.txt", "0.3\n0.4\n");
    platform.input_answers = {"2", "1"};
    open_record(a, b);
    program.run([&] { form1().Command2.press(); });
    program.run([&] { form1().xnext.press(); });
    EXPECT_EQ(state().currentRecord, 2);
    program.run([&] { form1().xBack.press(); });
    EXPECT_EQ(state().currentRecord, 1);
    EXPECT_EQ(state().componentLetter, "X");
    platform.file_answers = {a};
    open();
    EXPECT_EQ(state().recordCount, 0);
    EXPECT_EQ(form1().Grid1.rows(), 3);
    EXPECT_EQ(state().componentLetter, "Y");
}

}  // namespace
}  // namespace tv::test
