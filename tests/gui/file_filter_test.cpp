#include "gui/platform/file_filter.h"

#include <gtest/gtest.h>

namespace tv::gui {
namespace {

TEST(FileFilter, DescriptionAndPatternBecomeOneEntry) {
    EXPECT_EQ(qt_name_filter("Pushover File | *.txt"), "Pushover File (*.txt)");
}

TEST(FileFilter, BarePatternGetsAName) {
    EXPECT_EQ(qt_name_filter("*.txt"), "Text files (*.txt)");
    EXPECT_EQ(qt_name_filter("*.dat"), "DAT files (*.dat)");
}

TEST(FileFilter, TheOldSpreadsheetPatternShowsTheNewFormToo) {
    // Browse asks for "*.xls"; the .xlsx reader exists, so those files must not be hidden.
    EXPECT_EQ(qt_name_filter("*.xls"), "Excel files (*.xls *.xlsx)");
    EXPECT_EQ(dialog_filter("*.xls", ""), "Excel files (*.xls *.xlsx);;All files (*)");
    EXPECT_EQ(qt_name_filter("Pushover|*.xls;*.xlsx"), "Pushover (*.xls *.xlsx)");
    EXPECT_EQ(qt_name_filter("Data|*.txt;*.xls;*.csv"), "Data (*.txt *.xls *.xlsx *.csv)");
}

TEST(FileFilter, SeveralPairsAndPatternLists) {
    EXPECT_EQ(qt_name_filter("Text (*.txt)|*.txt|All|*.*"), "Text (*.txt);;All (*.*)");
    EXPECT_EQ(qt_name_filter("Data|*.txt;*.dat"), "Data (*.txt *.dat)");
    // A description naming other patterns than its pair loses them.
    EXPECT_EQ(qt_name_filter("Text (*.doc)|*.txt"), "Text (*.txt)");
}

TEST(FileFilter, EmptyStaysEmpty) {
    EXPECT_EQ(qt_name_filter(""), "");
    EXPECT_EQ(qt_name_filter("   "), "");
}

TEST(FileFilter, DialogOffersAllFilesAfterTheFilter) {
    EXPECT_EQ(dialog_filter("*.txt", "*.txt"), "Text files (*.txt);;All files (*)");
    // No filter: the wildcard preset stands in for it.
    EXPECT_EQ(dialog_filter("", "*.txt"), "Text files (*.txt);;All files (*)");
    EXPECT_EQ(dialog_filter("", "report.txt"), "All files (*)");
    EXPECT_EQ(dialog_filter("All files|*", ""), "All files (*)");
}

TEST(FileFilter, OnlyAPlainPresetIsPreselected) {
    EXPECT_EQ(preset_file_name("*.txt"), "");
    EXPECT_EQ(preset_file_name("spectrum.txt"), "spectrum.txt");
    EXPECT_EQ(preset_file_name(""), "");
}

}  // namespace
}  // namespace tv::gui
