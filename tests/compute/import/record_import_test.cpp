// Record files as networks and databases publish them, read through the one import entry: the
// real files of ../shared/data/records, small made-up files for header forms, and bad files.
#include <gtest/gtest.h>

#include <cmath>

#include "compute/import/declared_time_step.h"
#include "compute/import/record_import.h"
#include "compute/import/record_text.h"
#include "compute/files/text_file.h"
#include "support/fake_platform.h"
#include "support/files.h"
#include "support/tables.h"
#include "text/number_text.h"

namespace tv::compute {
namespace {

double peak_of(const RecordComponent& c) {
    double peak = 0.0;
    for (double v : c.samples) peak = std::max(peak, std::fabs(v));
    return peak;
}

// The window's plain road reads each line's leading number: it must give the samples exactly.
void expect_plain_road_gives_samples(const RecordComponent& c) {
    ASSERT_EQ(c.lines.size(), static_cast<std::size_t>(c.header_lines) + c.samples.size());
    for (std::size_t k = 0; k < c.samples.size(); ++k)
        ASSERT_EQ(text::val(c.lines[static_cast<std::size_t>(c.header_lines) + k]), c.samples[k]) << "sample " << k;
}

// Reads a table row's record: "read" a file under ../shared/data and a component, "made" a text
// and the name it is read under. Starts `out` with the layout and the number of components.
const RecordComponent* read_record(const test::TableArgs& a, RecordImport& r, std::string& out) {
    const bool made = a.at(0).starts_with("made");
    const std::string path = made ? a.at(2) : test::data_path(a.at(1));
    const std::string content = made ? a.at(1) : test::slurp(path);
    r = parse_record(content, path);
    const RecordLayout detected = detect_record_layout(content);
    if (detected != r.layout) out = "detected as " + std::string(record_layout_name(detected)) + ", ";
    if (!r.ok()) return out += r.error->message(), nullptr;
    out += std::string(record_layout_name(r.layout)) + " | " + std::to_string(r.components.size());
    const std::size_t pick = made ? 0 : static_cast<std::size_t>(test::arg(a, 2));
    if (pick >= r.components.size()) return nullptr;
    return &r.components[pick];
}

// Layouts, names, counts, steps and first lines of the real files and of made-up header forms
// and column texts; the peaks that the converted files' headers state (K-NET "Max. Acc. (gal)",
// CDMG "PEAK ACCELERATION", COSMOS "Max =", ESM "PGA_CM/S^2", SMC "pk mtn", cm/s² to g).
TEST(RecordFiles, ReadAsTheirHeadersSay) {
    if (test::data_path("records").empty()) GTEST_SKIP() << "records data missing";
    using Args = test::TableArgs;
    using Result = test::TableResult;
    auto component = [](const Args& a) -> Result {
        RecordImport r;
        std::string out;
        const RecordComponent* c = read_record(a, r, out);
        if (!c) return out;
        out += " | " + c->name + " | " + std::to_string(c->samples.size()) + "/" + std::to_string(c->declared_points) +
               " | " + test::shortest(c->time_step) + " | " + c->lines[static_cast<std::size_t>(c->header_lines)];
        if (c->samples.size() <= 8)
            for (double v : c->samples) out += " " + test::shortest(v);
        expect_plain_road_gives_samples(*c);
        return out;
    };
    auto value = [](const Args& a, auto of) -> Result {
        RecordImport r;
        std::string out;
        const RecordComponent* c = read_record(a, r, out);
        return c ? Result(of(*c)) : Result(out);
    };
    test::run_table("records_read.txt",
                    {{"read", component},
                     {"made", component},
                     {"peak", [&](const Args& a) { return value(a, peak_of); }},
                     {"first_sample", [&](const Args& a) {
                          return value(a, [](const RecordComponent& c) { return c.samples.at(0); });
                      }},
                     // Where the step came from, what was converted, and where the component's
                     // own header block starts, its length and its seventh line's start.
                     {"source", [&](const Args& a) {
                          return value(a, [](const RecordComponent& c) {
                              return c.time_step_source + " | " + c.units + " | " + c.conversion + " | line " +
                                     std::to_string(c.source_line) + " | " + std::to_string(c.header_lines) +
                                     " header lines | " + c.lines.at(6).substr(0, 7);
                          });
                      }}});
}

// The hand conversions in records/ keep the header lines and write each sample with the very
// text of the original: the import must give the same lines. They are every .txt of records/.
TEST(RealRecordFiles, PeerOriginalsGiveTheConvertedFilesLineForLine) {
    for (const auto& [original, converted] : test::kPeerConversions) {
        SCOPED_TRACE(original);
        const std::string from = test::data_path("records/original/" + original);
        const std::string to = test::data_path("records/" + converted);
        if (from.empty() || to.empty()) GTEST_SKIP() << "records data missing";
        const RecordImport r = import_record_file(from);
        ASSERT_TRUE(r.ok()) << r.error->message();
        ASSERT_EQ(r.components.size(), 1u);
        EXPECT_EQ(r.components[0].header_lines, 4);
        EXPECT_EQ(r.components[0].lines, read_text_file(to).lines);
        // The converted file itself is the window's own layout, left to the window's plain road.
        const RecordImport plain = parse_record(test::slurp(to), to);
        EXPECT_EQ(plain.layout, RecordLayout::plain);
        EXPECT_TRUE(plain.ok() && plain.components.empty());
    }
}

// The header keys of every layout (any case, every character of the key) and their counts.
// The header texts' rules (keys, numbers after keys, the time step a line declares, a number
// divided by ten as text): the cases are data in tests/golden/tables/record_text.txt.
TEST(RecordText, EveryCaseGivesItsResult) {
    using namespace import_detail;
    using Args = test::TableArgs;
    using Result = test::TableResult;
    auto yes_no = [](bool b) -> Result { return std::string(b ? "yes" : "no"); };
    test::run_table("record_text.txt", {
        {"starts_with_key", [&](const Args& a) { return yes_no(starts_with_key(a.at(1), a.at(2))); }},
        {"contains", [&](const Args& a) { return yes_no(contains(a.at(1), a.at(2))); }},
        {"is_integer_text", [&](const Args& a) { return yes_no(is_integer_text(a.at(1))); }},
        {"number_after", [](const Args& a) -> Result {
             const auto n = number_after(a.at(1), a.at(2));
             return n ? Result(std::string(*n)) : Result(std::monostate());
         }},
        {"divided_by_ten", [](const Args& a) -> Result { return divided_by_ten(a.at(1)); }},
        // The step, the points and the text a line declares.
        {"declared", [](const Args& a) -> Result {
             const auto d = parse_time_step_declaration(a.at(1));
             if (!d) return std::monostate();
             return text::to_text(d->time_step) + " " + std::to_string(d->points) + " " + d->text;
         }},
        // The line of the first step declared above the first data line, and the step.
        {"find_declared", [](const Args& a) -> Result {
             const auto d = find_declared_time_step(std::vector<std::string>(a.begin() + 2, a.end()),
                                                    static_cast<std::int32_t>(test::arg(a, 1)));
             if (!d) return std::monostate();
             return std::to_string(d->line) + " " + text::to_text(d->time_step);
         }},
    });
}

// Made-up damage on top of real files and small texts: the message names the line and what was
// expected. The cases are data in tests/golden/tables/records_bad.txt.
TEST(BadRecordFiles, NameTheLineAndWhatWasExpected) {
    if (test::data_path("records").empty()) GTEST_SKIP() << "records data missing";
    using Args = test::TableArgs;
    using Result = test::TableResult;
    auto message = [](const std::string& content, const std::string& name) -> Result {
        const RecordImport r = parse_record(content, name);
        return r.ok() ? std::string("read") : r.error->message();
    };
    test::run_table("records_bad.txt",
                    {{"bad", [&](const Args& a) { return message(a.at(1), a.at(2)); }},
                     // A real file with its first `from` replaced by `to`.
                     {"damaged", [&](const Args& a) {
                          std::string content = test::slurp(test::data_path(a.at(1)));
                          const std::size_t at = content.find(a.at(2));
                          if (at == std::string::npos) return Result("no \"" + a.at(2) + "\" to damage");
                          return message(content.replace(at, a.at(2).size(), a.at(3)), "bad.file");
                      }},
                     // A real file cut to its first n/d.
                     {"cut", [&](const Args& a) {
                          const std::string content = test::slurp(test::data_path(a.at(1)));
                          const auto n = static_cast<std::size_t>(test::arg(a, 2));
                          const auto d = static_cast<std::size_t>(test::arg(a, 3));
                          return message(content.substr(0, content.size() * n / d), "bad.file");
                      }},
                     {"missing",
                      [](const Args& a) -> Result { return import_record_file(a.at(1)).error->message(); }}});
}

// Content no one would write: no crash, no hang, no allocation from a header's claim.
TEST(BadRecordFiles, OddContentNeverCrashes) {
    const std::string odd[] = {
        std::string("\0\x1a\xff\xfe", 4),
        "* VOL1DS\n",
        "Corrected acceleration (Format v01.20 with 99999999999999999999 text lines)\n 1 Integer-header values follow",
        "PEER NGA STRONG MOTION DATABASE RECORD\nX\nY\nNPTS= 999999999999999, DT= 1E-999999 SEC\n 1 2\n",
        "PEER NGA STRONG MOTION DATABASE RECORD\nX\nY\nNPTS= 2, DT= 1E400 SEC\n 1E400 2\n",
        "Origin Time x\nScale Factor 1(gal)/0\nSampling Freq(Hz) 0Hz\nMemo.\n 1 2\n",
        "EVENT_NAME: X\nSAMPLING_INTERVAL_S: -1\nNDATA: 99999999999999999999\nUNITS: g\n0\n",
        "1 x\n*\n*\n*\n*\n*\n*\n*\n*\n*\n*\n 1 2 3 4 5 6 7 8\n",
        "0 1e309\n1 2\n",
    };
    for (const std::string& content : odd) {
        const RecordImport r = parse_record(content, "odd");
        EXPECT_TRUE(r.ok() ? r.components.empty() || !r.components[0].samples.empty() : !r.error->reason.empty());
    }
}

}  // namespace
}  // namespace tv::compute
