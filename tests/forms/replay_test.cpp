// A journal done again on fresh windows, and memory running out inside a handler.
#include <gtest/gtest.h>

#include <new>
#include <optional>
#include <string>

#include "forms/app.h"
#include "forms/form.h"
#include "forms/journal_platform.h"
#include "support/fake_platform.h"

namespace tv::forms {
namespace {

class Asker : public Form {
public:
    explicit Asker(App& app) : Form(app, "Asker", "Asker") {
        Command1.Click = [this] { answer = this->app().platform().input_box("Count?", "", "1"); };
        Command2.Click = [] { throw std::bad_alloc(); };
    }
    CommandButton& Command1 = button("Command1", "Ask");
    CommandButton& Command2 = button("Command2", "Grow");
    std::optional<std::string> answer = "not asked";
};

TEST(Replay, ACancelledInputIsCancelledAgain) {
    test::FakePlatform fake;
    Journal journal;
    JournalPlatform platform(fake, journal);
    App app{platform};
    Asker& f = app.form<Asker>();
    const Action ask{ActionKind::Press, "Asker", "Command1"};
    const Answer cancelled{AnswerKind::Input, true};
    const JournalPlatform::Replayed done = platform.replay(app, {{0, ask}, {1, cancelled}}, {});
    EXPECT_TRUE(done.problems.empty());
    EXPECT_EQ(f.answer, std::nullopt);
}

TEST(Replay, MemoryRunningOutInAHandlerIsError7) {
    test::FakePlatform platform;
    App app{platform};
    app.run([&] { app.form<Asker>().Command2.press(); });
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0].first, 7);
    EXPECT_EQ(platform.runtime_errors[0].second, "Out of memory");
}

}  // namespace
}  // namespace tv::forms
