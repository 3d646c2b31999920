// The capacity table built from a pushover curve and held by Form9 as if read from a file.
#include "capacity_fixture.h"
#include "compute/capacity/capacity_reader.h"
#include "support/fake_platform.h"
#include "text/number_text.h"
#include "windows/capacity/curve_capacity_window.h"

namespace tv::test {
namespace {

using CurveCapacityTest = CapacityTest;

TEST_F(CurveCapacityTest, TheModalNumbersComeFromPastedStoreys) {
    press(form9().cmdFromCurve);
    auto& d = program.form<windows::frmCurveCapacity>();
    run([&] { d.txtStoreys.set_text("1239.562\t0.00006\r\n961.554\t0.61821\r\n\r\n687.12\t1\r\n"); });
    press(d.cmdModal);
    EXPECT_TRUE(platform.messages.empty());
    EXPECT_EQ(d.txtW.text(), "2888.236");
    EXPECT_NEAR(text::val(d.txtAlpha1.text()), 0.539, 0.0005);
    EXPECT_NEAR(text::val(d.txtPfPhi.text()), 1.215, 0.0005);
    run([&] { d.txtStoreys.set_text("100 1\n100 one\n"); });
    press(d.cmdModal);
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].text, "Storey line 2: expected a weight and an amplitude, found \"100 one\"");
    EXPECT_EQ(d.txtW.text(), "2888.236");
}

}  // namespace
}  // namespace tv::test
