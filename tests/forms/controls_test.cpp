// Event chains of the simple controls: what fires when code or a user changes a control.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "forms/app.h"
#include "forms/form.h"
#include "support/fake_platform.h"
#include "text/runtime_error.h"

namespace tv::forms {
namespace {

// A window with one of each kind; every handler writes its name into `fired`.
class Panel : public Form {
public:
    explicit Panel(App& app) : Form(app, "Panel", "Panel") {
        Text1.Change = [this] { fired.push_back("Text1_Change"); };
        Text2.Change = [this] {
            fired.push_back("Text2_Change");
            Text3.set_text("");  // a result goes stale when its input changes
        };
        Text3.Change = [this] { fired.push_back("Text3_Change"); };
        Check1.Click = [this] {
            fired.push_back("Check1_Click");
            if (Check1.value() == 1) Check2.set_value(0);
        };
        Check2.Click = [this] {
            fired.push_back("Check2_Click");
            if (Check2.value() == 1) Check1.set_value(0);
        };
        Option1.Click = [this] { fired.push_back("Option1_Click"); };
        Option2.Click = [this] { fired.push_back("Option2_Click"); };
        Option3.Click = [this] { fired.push_back("Option3_Click"); };
        Option4.Click = [this] { fired.push_back("Option4_Click"); };
        Command1.Click = [this] { fired.push_back("Command1_Click"); };
        Combo1.Click = [this] { fired.push_back("Combo1_Click"); };
        Slider1.Change = [this] { fired.push_back("Slider1_Change"); };
        HScroll1.Change = [this] { fired.push_back("HScroll1_Change"); };
        HScroll1.Scroll = [this] { fired.push_back("HScroll1_Scroll"); };
        Timer1.OnTimer = [this] { fired.push_back("Timer1_Timer"); };
        mnuExit.Click = [this] { fired.push_back("mnuExit_Click"); };
        Label1.Click = [this] { fired.push_back("Label1_Click"); };
    }

    std::vector<std::string> fired;

    TextBox& Text1 = text_box("Text1", "1");
    TextBox& Text2 = text_box("Text2", "0.05");
    TextBox& Text3 = text_box("Text3", "12.5");
    CheckBox& Check1 = check_box("Check1", "Smax");
    CheckBox& Check2 = check_box("Check2", "SRSS");
    Frame& Frame1 = frame("Frame1", "Soil");
    Frame& Frame2 = frame("Frame2", "Units");
    OptionButton& Option1 = option("Option1", "I", &Frame1);
    OptionButton& Option2 = option("Option2", "II", &Frame1);
    OptionButton& Option3 = option("Option3", "g", &Frame2);
    OptionButton& Option4 = option("Option4", "m/s^2", &Frame2);
    OptionButton& Option5 = option("Option5", "on the window");
    CommandButton& Command1 = button("Command1", "Calculate");
    ComboBox& Combo1 = combo("Combo1");
    Slider& Slider1 = slider("Slider1", 1, 10, 1);
    HScrollBar& HScroll1 = hscroll("HScroll1");
    Timer& Timer1 = timer("Timer1", 500);
    Menu& mnuExit = menu("mnuExit", "Exit");
    Label& Label1 = label("Label1", "Set Default");
};

class ControlsTest : public ::testing::Test {
protected:
    test::FakePlatform platform;
    App app{platform};
    Panel& w = app.form<Panel>();
};

TEST_F(ControlsTest, TextBoxChangesOnlyWhenTheTextChanges) {
    w.Text1.set_text("1");
    EXPECT_TRUE(w.fired.empty());
    w.Text1.set_text("1.0");  // the same number, another text
    w.Text1.set_text("");
    EXPECT_EQ(w.fired, (std::vector<std::string>{"Text1_Change", "Text1_Change"}));
    EXPECT_EQ(w.Text1.text(), "");
}

TEST_F(ControlsTest, TextChangeChainsIntoTheBoxesItWrites) {
    w.Text2.set_text("0.07");
    EXPECT_EQ(w.fired, (std::vector<std::string>{"Text2_Change", "Text3_Change"}));
    EXPECT_EQ(w.Text3.text(), "");
    w.fired.clear();
    w.Text2.set_text("0.05");  // Text3 is already empty: no second Change
    EXPECT_EQ(w.fired, (std::vector<std::string>{"Text2_Change"}));
}

TEST_F(ControlsTest, LockedTextBoxStillTakesTextFromCode) {
    w.Text1.locked = true;
    w.Text1.set_text("2");
    EXPECT_EQ(w.Text1.text(), "2");
    EXPECT_EQ(w.fired, (std::vector<std::string>{"Text1_Change"}));
}

TEST_F(ControlsTest, ChangedHookTellsTheViewOfEveryChange) {
    int calls = 0;
    w.Text1.changed = [&] { ++calls; };
    w.Text1.set_text("1");
    w.Text1.set_text("3");
    w.Text1.set_enabled(false);
    w.Text1.set_enabled(false);
    w.Text1.set_visible(false);
    EXPECT_EQ(calls, 3);
}

TEST_F(ControlsTest, CheckBoxClicksWhenCodeChangesItsValue) {
    w.Check1.set_value(0);
    EXPECT_TRUE(w.fired.empty());
    w.Check1.set_value(1);
    EXPECT_EQ(w.fired, (std::vector<std::string>{"Check1_Click"}));
    EXPECT_TRUE(w.Check1.checked());
}

TEST_F(ControlsTest, TwoCheckBoxesThatUntickEachOtherPlayOutTheChain) {
    w.Check1.user_click();  // ticks Check1; Check2 is already unticked
    EXPECT_EQ(w.fired, (std::vector<std::string>{"Check1_Click"}));
    w.fired.clear();
    w.Check2.user_click();  // ticks Check2, which unticks Check1, whose Click then sees 0
    EXPECT_EQ(w.fired, (std::vector<std::string>{"Check2_Click", "Check1_Click"}));
    EXPECT_EQ(w.Check1.value(), 0);
    EXPECT_EQ(w.Check2.value(), 1);
    w.fired.clear();
    w.Check2.user_click();  // unticks: nothing else moves
    EXPECT_EQ(w.fired, (std::vector<std::string>{"Check2_Click"}));
    EXPECT_EQ(w.Check1.value() + w.Check2.value(), 0);
}

TEST_F(ControlsTest, DisabledCheckBoxIgnoresTheUserButNotTheCode) {
    w.Check1.set_enabled(false);
    w.Check1.user_click();
    EXPECT_EQ(w.Check1.value(), 0);
    EXPECT_TRUE(w.fired.empty());
    w.Check1.set_value(1);
    EXPECT_EQ(w.fired, (std::vector<std::string>{"Check1_Click"}));
}

TEST_F(ControlsTest, OptionClicksWhenSetAndClearsItsFrameOnly) {
    w.Option3.set_value(true);
    w.fired.clear();
    w.Option1.set_value(true);
    EXPECT_EQ(w.fired, (std::vector<std::string>{"Option1_Click"}));
    w.Option2.set_value(true);
    EXPECT_FALSE(w.Option1.value());
    EXPECT_TRUE(w.Option2.value());
    EXPECT_TRUE(w.Option3.value());  // another frame keeps its choice
    EXPECT_EQ(w.fired, (std::vector<std::string>{"Option1_Click", "Option2_Click"}));
}

TEST_F(ControlsTest, OptionOnTheWindowIsItsOwnGroup) {
    w.Option1.set_value(true);
    w.Option5.set_value(true);
    EXPECT_TRUE(w.Option1.value());
    EXPECT_TRUE(w.Option5.value());
}

TEST_F(ControlsTest, OptionAlreadySetOrClearedDoesNotClick) {
    w.Option1.set_value(true);
    w.fired.clear();
    w.Option1.set_value(true);
    w.Option1.user_click();
    w.Option1.set_value(false);
    EXPECT_TRUE(w.fired.empty());
    EXPECT_FALSE(w.Option1.value());
    EXPECT_FALSE(w.Option2.value());
}

TEST_F(ControlsTest, DisabledOptionIgnoresTheUser) {
    w.Option4.set_enabled(false);
    w.Option4.user_click();
    EXPECT_FALSE(w.Option4.value());
    w.Option3.user_click();
    EXPECT_EQ(w.fired, (std::vector<std::string>{"Option3_Click"}));
}

TEST_F(ControlsTest, DisabledOrHiddenButtonDoesNotClick) {
    w.Command1.set_enabled(false);
    w.Command1.press();
    w.Command1.set_enabled(true);
    w.Command1.set_visible(false);
    w.Command1.press();
    EXPECT_TRUE(w.fired.empty());
    w.Command1.set_visible(true);
    w.Command1.press();
    EXPECT_EQ(w.fired, (std::vector<std::string>{"Command1_Click"}));
}

TEST_F(ControlsTest, ComboClicksOnIndexChange) {
    w.Combo1.add_item("I");
    w.Combo1.add_item("II");
    w.Combo1.add_item("III");
    EXPECT_EQ(w.Combo1.list_index(), -1);
    w.Combo1.set_list_index(1);
    EXPECT_EQ(w.Combo1.text(), "II");
    w.Combo1.set_list_index(1);
    w.Combo1.set_list_index(2);
    EXPECT_EQ(w.fired, (std::vector<std::string>{"Combo1_Click", "Combo1_Click"}));
    EXPECT_EQ(w.Combo1.text(), "III");
    w.Combo1.set_list_index(-1);
    EXPECT_EQ(w.Combo1.text(), "");
}

TEST_F(ControlsTest, ComboIndexOutsideTheListIsInvalidPropertyValue) {
    w.Combo1.add_item("I");
    try {
        w.Combo1.set_list_index(1);
        FAIL();
    } catch (const text::RuntimeError& e) {
        EXPECT_EQ(e.number(), 380);
    }
    EXPECT_EQ(w.Combo1.list_index(), -1);
    EXPECT_TRUE(w.fired.empty());
}

TEST_F(ControlsTest, SliderClampsAndChangesOnce) {
    w.Slider1.set_value(4);
    w.Slider1.set_value(4);
    w.Slider1.set_value(99);
    EXPECT_EQ(w.Slider1.value(), 10);
    w.Slider1.set_value(12);
    EXPECT_EQ(w.fired, (std::vector<std::string>{"Slider1_Change", "Slider1_Change"}));
}

TEST_F(ControlsTest, ScrollBarTellsCodeFromDrag) {
    w.HScroll1.set_max(275);
    w.HScroll1.set_value(50);
    w.HScroll1.user_scroll(60);
    w.HScroll1.set_value(500);
    EXPECT_EQ(w.HScroll1.value(), 275);
    EXPECT_EQ(w.fired, (std::vector<std::string>{"HScroll1_Change", "HScroll1_Scroll", "HScroll1_Change"}));
    w.HScroll1.set_max(0);
    EXPECT_EQ(w.HScroll1.value(), 0);
}

TEST_F(ControlsTest, TimerMenuAndLabelRunOnlyWhenEnabled) {
    w.Timer1.tick();
    w.Timer1.set_enabled(false);
    w.Timer1.tick();
    w.mnuExit.choose();
    w.mnuExit.set_enabled(false);
    w.mnuExit.choose();
    w.Label1.click();
    w.Label1.set_enabled(false);
    w.Label1.click();
    EXPECT_EQ(w.fired, (std::vector<std::string>{"Timer1_Timer", "mnuExit_Click", "Label1_Click"}));
}

TEST_F(ControlsTest, ControlsAreFoundByName) {
    EXPECT_EQ(w.find("Check2"), &w.Check2);
    EXPECT_EQ(w.find_as<TextBox>("Text3"), &w.Text3);
    EXPECT_EQ(w.find_as<TextBox>("Check2"), nullptr);
    EXPECT_EQ(w.find("Nothing"), nullptr);
    EXPECT_EQ(w.Option1.container(), &w.Frame1);
    EXPECT_EQ(&w.Option1.form(), &w);
}

}  // namespace
}  // namespace tv::forms
