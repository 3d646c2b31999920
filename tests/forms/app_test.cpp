// The running program: load on reference, unload with its cancel and chain, the lifetime of a
// window that unloads itself, and the dispatcher that reports run-time errors.
#include "forms/app.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/fake_platform.h"
#include "text/checked.h"

namespace tv::forms {
namespace {

// What the test windows did, in order; outlives every App of a test.
std::vector<std::string>& journal() {
    static std::vector<std::string> j;
    return j;
}

class Second;

class First : public Form {
public:
    explicit First(App& app) : Form(app, "First", "First") {
        Text1.set_text("default");  // no handler yet: nothing fires
        Text1.Change = [this] { journal().push_back("First.Text1_Change"); };
        Command1.Click = [this] { Command1_Click(); };
        Command2.Click = [this] { Command2_Click(); };
    }
    ~First() override { journal().push_back("First destroyed"); }

    void Form_Load() override {
        journal().push_back("First.Form_Load");
        Text1.set_text("loaded");
    }
    void Form_Activate() override { journal().push_back("First.Form_Activate"); }
    void Form_Unload(int& cancel) override;

    // Back: the window unloads itself, then still writes to its own box.
    void Command1_Click() {
        app().unload(*this);
        Text1.set_text("after unload");
        journal().push_back("First.Command1_Click done");
    }
    // Divides by the number in the box: a run-time error halfway through the handler.
    void Command2_Click() {
        Text1.set_text("started");
        result = text::div(1, divisor);
        Text1.set_text("finished");
    }

    TextBox& Text1 = text_box("Text1");
    CommandButton& Command1 = button("Command1", "Back");
    CommandButton& Command2 = button("Command2", "Calculate");
    int keep_open = 0;
    bool unload_second = false;
    double divisor = 0;
    double result = -1;
};

class Second : public Form {
public:
    explicit Second(App& app) : Form(app, "Second", "Second") {}
    ~Second() override { journal().push_back("Second destroyed"); }
    void Form_Load() override { journal().push_back("Second.Form_Load"); }
    void Form_Activate() override { journal().push_back("Second.Form_Activate"); }
    void Form_Unload(int&) override {
        journal().push_back("Second.Form_Unload");
        app().unload(*this);  // unloading itself again from its own Unload is no loop
    }
};

void First::Form_Unload(int& cancel) {
    journal().push_back("First.Form_Unload");
    cancel = keep_open;
    // The chain: a later window goes with the earlier one.
    if (unload_second && cancel == 0) app().unload<Second>();
}

class AppTest : public ::testing::Test {
protected:
    void SetUp() override { journal().clear(); }
    test::FakePlatform platform;
    App app{platform};
};

using Lines = std::vector<std::string>;

TEST_F(AppTest, ReferenceLoadsOnceWithItsDefaults) {
    EXPECT_FALSE(app.is_loaded<First>());
    EXPECT_EQ(app.if_loaded<First>(), nullptr);
    First& a = app.form<First>();
    First& b = app.form<First>();
    EXPECT_EQ(&a, &b);
    EXPECT_TRUE(app.is_loaded<First>());
    EXPECT_EQ(a.Text1.text(), "loaded");
    EXPECT_EQ(journal(), (Lines{"First.Form_Load", "First.Text1_Change"}));
    EXPECT_FALSE(a.visible());  // loading does not show
    EXPECT_TRUE(platform.shown.empty());
    Second& s = app.form<Second>();  // the loaded windows keep their order
    EXPECT_EQ(app.loaded(), (std::vector<Form*>{&a, &s}));
}

TEST_F(AppTest, UnloadRunsFormUnloadAndTheNextReferenceLoadsAfresh) {
    First& f = app.form<First>();
    f.Text1.set_text("typed");
    journal().clear();
    EXPECT_TRUE(app.unload<First>());
    EXPECT_FALSE(app.is_loaded<First>());
    EXPECT_FALSE(app.is_loaded(f));
    EXPECT_EQ(platform.unloaded, (Lines{"First"}));
    First& again = app.form<First>();
    EXPECT_EQ(again.Text1.text(), "loaded");
    EXPECT_EQ(journal().front(), "First.Form_Unload");
    EXPECT_TRUE(app.unload<Second>());  // not loaded: nothing to do
}

TEST_F(AppTest, CancelKeepsTheWindow) {
    First& f = app.form<First>();
    f.show();
    f.keep_open = 1;
    EXPECT_FALSE(app.unload(f));
    EXPECT_TRUE(app.is_loaded<First>());
    EXPECT_TRUE(f.visible());
    EXPECT_TRUE(platform.unloaded.empty());
    f.keep_open = 0;
    EXPECT_TRUE(app.unload(f));
    EXPECT_FALSE(app.is_loaded<First>());
}

TEST_F(AppTest, UnloadGoesDownTheChain) {
    First& f = app.form<First>();
    app.form<Second>();
    f.unload_second = true;
    journal().clear();
    app.run([&] { app.unload(f); });
    EXPECT_FALSE(app.is_loaded<First>());
    EXPECT_FALSE(app.is_loaded<Second>());
    EXPECT_EQ(platform.unloaded, (Lines{"Second", "First"}));
    EXPECT_EQ(journal(), (Lines{"First.Form_Unload", "Second.Form_Unload", "Second destroyed", "First destroyed"}));
}

TEST_F(AppTest, WindowUnloadedInItsOwnHandlerLivesUntilTheOutermostRunReturns) {
    First& f = app.form<First>();
    journal().clear();
    app.run([&] {
        app.run([&] { f.Command1.press(); });
        // The inner event is over, but the outer one may still hold the window.
        journal().push_back("inner run returned");
        EXPECT_EQ(f.Text1.text(), "after unload");
    });
    EXPECT_EQ(journal(), (Lines{"First.Form_Unload", "First.Text1_Change", "First.Command1_Click done",
                                "inner run returned", "First destroyed"}));
    EXPECT_FALSE(app.is_loaded<First>());
    EXPECT_TRUE(platform.runtime_errors.empty());
}

TEST_F(AppTest, ReferenceAfterUnloadInTheSameEventGivesANewWindow) {
    First& f = app.form<First>();
    app.run([&] {
        app.unload(f);
        First& g = app.form<First>();
        EXPECT_NE(&g, &f);
        EXPECT_EQ(g.Text1.text(), "loaded");
    });
    EXPECT_TRUE(app.is_loaded<First>());
}

TEST_F(AppTest, RunReportsAnUncaughtRunTimeErrorAndGoesOn) {
    First& f = app.form<First>();
    platform.set_busy(true);
    app.run([&] { f.Command2.press(); });
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0].first, 11);
    EXPECT_EQ(platform.runtime_errors[0].second, "Division by zero");
    EXPECT_EQ(f.Text1.text(), "started");  // the state as far as it got
    EXPECT_EQ(f.result, -1);
    EXPECT_FALSE(platform.busy);
    EXPECT_TRUE(app.is_loaded<First>());
    f.divisor = 4;
    app.run([&] { f.Command2.press(); });
    EXPECT_EQ(f.result, 0.25);
    EXPECT_EQ(f.Text1.text(), "finished");
    EXPECT_EQ(platform.runtime_errors.size(), 1u);
    // An error inside a nested run is reported there, and the outer run goes on.
    f.divisor = 0;
    bool outer_went_on = false;
    app.run([&] {
        app.run([&] { f.Command2.press(); });
        outer_went_on = true;
    });
    EXPECT_TRUE(outer_went_on);
    EXPECT_EQ(platform.runtime_errors.size(), 2u);
}

TEST_F(AppTest, ShowActivatesOnceAndHideHides) {
    First& f = app.form<First>();
    Second& s = app.form<Second>();
    journal().clear();
    f.show();
    f.show();
    EXPECT_TRUE(f.visible());
    EXPECT_EQ(app.active(), &f);
    s.show(true);
    f.show();
    EXPECT_EQ(journal(), (Lines{"First.Form_Activate", "Second.Form_Activate", "First.Form_Activate"}));
    EXPECT_EQ(platform.shown, (Lines{"First", "First", "Second", "First"}));
    f.hide();
    EXPECT_FALSE(f.visible());
    EXPECT_EQ(app.active(), nullptr);
    EXPECT_EQ(platform.hidden, (Lines{"First"}));
    EXPECT_TRUE(app.is_loaded<First>());
}

TEST_F(AppTest, EndUnloadsNothing) {
    app.form<First>();
    journal().clear();
    app.end();
    EXPECT_TRUE(app.ended());
    EXPECT_TRUE(platform.program_ended);
    EXPECT_TRUE(app.is_loaded<First>());
    EXPECT_TRUE(journal().empty());
}

}  // namespace
}  // namespace tv::forms
