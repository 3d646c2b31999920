#include "gui/platform/file_filter.h"

#include <gtest/gtest.h>

#include "support/tables.h"

namespace tv::gui {
namespace {

TEST(FileFilter, CasesOfTheTable) {
    auto text = [](const QString& s) -> test::TableResult { return s.toStdString(); };
    test::run_table("file_filters.txt",
                    {{"qt_name_filter", [&](const test::TableArgs& a) { return text(qt_name_filter(a.at(1))); }},
                     {"dialog_filter", [&](const test::TableArgs& a) { return text(dialog_filter(a.at(1), a.at(2))); }},
                     {"preset_file_name", [&](const test::TableArgs& a) { return text(preset_file_name(a.at(1))); }}});
}

}  // namespace
}  // namespace tv::gui
