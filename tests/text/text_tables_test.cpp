// The text rules' worked cases, kept as data in tests/golden/tables/text.txt: number <-> text,
// rounding, the format patterns, checked arithmetic and the error descriptions.
#include <gtest/gtest.h>

#include "support/tables.h"
#include "text/checked.h"
#include "text/format.h"
#include "text/number_text.h"
#include "text/rounding.h"

namespace tv::text {
namespace {

using test::number;
using Args = test::TableArgs;
using Result = test::TableResult;

double n(const Args& a, int i) { return number(a.at(i)); }
int whole(const Args& a, int i) { return static_cast<int>(number(a.at(i))); }

DoubleArray array_0_0_20_30() {
    DoubleArray a(3);
    a(2) = 20;
    a(3) = 30;
    return a;
}

TEST(TextTables, EveryCaseGivesItsResult) {
    test::run_table("text.txt", {
        {"to_text", [](const Args& a) -> Result { return to_text(n(a, 1)); }},
        {"to_text_int", [](const Args& a) -> Result { return to_text(std::int64_t{std::stoll(a.at(1))}); }},
        {"val", [](const Args& a) -> Result { return val(a.at(1)); }},
        {"to_double", [](const Args& a) -> Result { return to_double(a.at(1)); }},
        {"round15", [](const Args& a) -> Result { return round15(n(a, 1)); }},
        {"round_to", [](const Args& a) -> Result { return round_to(n(a, 1), whole(a, 2)); }},
        {"to_int16", [](const Args& a) -> Result { return double(to_int16(n(a, 1))); }},
        {"to_int32", [](const Args& a) -> Result { return double(to_int32(n(a, 1))); }},
        {"int_div", [](const Args& a) -> Result { return double(int_div(n(a, 1), n(a, 2))); }},
        {"mod", [](const Args& a) -> Result { return double(mod(n(a, 1), n(a, 2))); }},
        {"floor_int", [](const Args& a) -> Result { return floor_int(n(a, 1)); }},
        {"format", [](const Args& a) -> Result { return format(n(a, 1), a.at(2)); }},
        {"format_fixed", [](const Args& a) -> Result { return format_fixed(n(a, 1), whole(a, 2)); }},
        {"format_fixed_size", [](const Args& a) -> Result { return double(format_fixed(n(a, 1), whole(a, 2)).size()); }},
        {"upper", [](const Args& a) -> Result { return upper(a.at(1)); }},
        {"trim", [](const Args& a) -> Result { return trim(a.at(1)); }},
        {"with_txt_extension", [](const Args& a) -> Result { return with_txt_extension(a.at(1)); }},
        {"div", [](const Args& a) -> Result { return div(n(a, 1), n(a, 2)); }},
        {"chk", [](const Args& a) -> Result { return chk(n(a, 1)); }},
        {"exp", [](const Args& a) -> Result { return exp_(n(a, 1)); }},
        {"sqrt", [](const Args& a) -> Result { return sqrt_(n(a, 1)); }},
        {"log", [](const Args& a) -> Result { return log_(n(a, 1)); }},
        {"pow", [](const Args& a) -> Result { return pow_(n(a, 1), n(a, 2)); }},
        {"error_description", [](const Args& a) -> Result { return error_description(whole(a, 1)); }},
        // Element i of the array 0..3 holding 0, 0, 20, 30; index_at: the index a double rounds to.
        {"index", [](const Args& a) -> Result { return array_0_0_20_30()(std::stol(a.at(1))); }},
        {"index_at", [](const Args& a) -> Result { return array_0_0_20_30().at(n(a, 1)); }},
    });
}

}  // namespace
}  // namespace tv::text
