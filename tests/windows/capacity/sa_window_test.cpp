// Form11: Sa at one period from the code spectrum or a file, handed back with Ts.
#include "capacity_fixture.h"

namespace tv::test {
namespace {

class SaWindowTest : public CapacityTest {
protected:
    windows::Form11& form11() { return program.form<windows::Form11>(); }
    /// Opens Form11 as the target displacement window does, catching what it hands back.
    windows::Form11& open(double period) {
        windows::Form11& f = form11();
        f.requestedPeriod = period;
        f.writeBack = [this](const std::string& sa, const std::string& ts) {
            handedSa = sa;
            handedTs = ts;
            ++handed;
        };
        run([&] { f.show(true); });
        return f;
    }
    void expect_shown(const std::string& name) {
        expect_state(dump(form11()) + dump(platform), "sa_" + name);
    }
    std::string handedSa, handedTs;
    int handed = 0;
};

TEST_F(SaWindowTest, AFileSpectrumInterpolatesAndTsComesFromTheGreyedOptions) {
    windows::Form11& f = open(0.75);
    run([&] { f.demand.Option4.user_click(); });
    run([&] { f.demand.Option6.user_click(); });
    run([&] { f.demand.Check1.user_click(); });
    // The code spectrum's boxes (xscale, tstart, tend) follow the tick here, the step stays.
    expect_shown("from_file_ticked");
    platform.file_answers.push_back(write("spectrum.txt", "0.5 1.0\n1.0 0.6\n1.5 0.4\n"));
    press(f.demand.Command4);
    EXPECT_TRUE(f.demand.fromFile);
    EXPECT_EQ(f.Ts, 1.0);  // soil IV
    press(f.demand.Command7);
    EXPECT_EQ(handedSa, "0.8000");
    EXPECT_EQ(handedTs, "1.0000");
}

TEST_F(SaWindowTest, APeriodOutsideTheSpectrumHandsBackZero) {
    windows::Form11& f = open(9.0);
    press(f.demand.Command6);
    press(f.demand.Command7);
    EXPECT_EQ(handedSa, "0.0000");
    EXPECT_EQ(handedTs, "0.4000");
}

TEST_F(SaWindowTest, AZeroStepSaysSoAndStillHandsBack) {
    windows::Form11& f = open(1.0);
    press(f.demand.Command6);
    run([&] { f.demand.xstep.set_text("0"); });
    press(f.demand.Command7);
    EXPECT_EQ(platform.message_texts(), std::vector<std::string>{"Error Time Step"});
    EXPECT_EQ(handedSa, "0.0000");
    EXPECT_EQ(handed, 1);
}

TEST_F(SaWindowTest, CancellingTheSpectrumFileEndsQuietlyAndUntickingGivesTheCodeSpectrumBack) {
    windows::Form11& f = open(1.0);
    run([&] { f.demand.Check1.user_click(); });
    press(f.demand.Command4);  // the dialog cancelled
    EXPECT_FALSE(f.demand.fromFile);
    EXPECT_FALSE(platform.busy);
    // No message, no run-time error, Calculate Sa off.
    expect_shown("spectrum_file_cancelled");
    run([&] { f.demand.Check1.user_click(); });
    // Show Diagram, xscale and tend on again.
    expect_shown("from_file_unticked");
}

}  // namespace
}  // namespace tv::test
