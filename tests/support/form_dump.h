#pragma once
// A window's state as text, for expected states kept as data under tests/golden/windows: a line
// a control with what it shows (text, caption, value, lines of a table, a line's ends and colour,
// the number of drawing operations of a picture and its texts), marked "off" when disabled and
// "hidden" when not visible.
#include <set>
#include <string>

#include "forms/form.h"

namespace tv::test {

class FakePlatform;

std::string dump(const forms::Form& form);
/// Only the named controls: for a window that other work is still adding to.
std::string dump(const forms::Form& form, const std::set<std::string>& names);
/// The messages, prompts and run-time errors the platform was shown, in order of kind.
std::string dump(const FakePlatform& platform);

/// Compares text with tests/golden/windows/<name>.txt, after putting @TMP@ for `scratch` (a
/// test's own folder); TV_GOLDEN_UPDATE=1 writes the file instead.
void expect_state(std::string text, const std::string& name, const std::string& scratch = {});

}  // namespace tv::test
