// Record files as networks and databases publish them, read through the one import entry: the
// real files of ../shared/data/records, small made-up files for header forms, and bad files.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>

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

std::string bytes_of(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

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

struct RealFile {
    const char* path;  // under records/
    RecordLayout layout;
    std::size_t components;
    std::size_t pick;  // the component checked
    const char* name;
    std::int64_t points;
    double dt;
    const char* first;  // first sample's text, or the file's raw first value when divisor != 1
    double divisor;
    double peak_g;  // as the header states it (converted), or the largest sample's value
    double peak_tolerance;
};

// Peaks of converted files come from their own headers: K-NET "Max. Acc. (gal)", CDMG "PEAK
// ACCELERATION", COSMOS "Max =", ESM "PGA_CM/S^2", SMC "pk mtn" (cm/s² scaled from g by 981).
const RealFile kRealFiles[] = {
    {"original/RSN140_TABAS_FER-L1.AT2", RecordLayout::peer_at2, 1, 0, "L", 2000, 0.02, "-.4821567E-03", 1, 0.09309877, 0},
    {"original/RSN1633_MANJIL_ABBAR--L.AT2", RecordLayout::peer_at2, 1, 0, "L", 2676, 0.02, ".1647381E-02", 1, 0.5145641, 0},
    {"original/elCentro.AT2", RecordLayout::peer_at2, 1, 0, "", 1559, 0.02, "0.00630", 1, 0.31882, 0},
    {"original/RSN1512_CHICHI_TCU078-N.AT2", RecordLayout::peer_at2, 1, 0, "N", 18000, 0.005, ".2117034E-05", 1, 0.3069615, 0},
    {"formats/RSN8883_14383980_13849090.AT2", RecordLayout::peer_at2, 1, 0, "90", 16396, 0.005, "8.6900441E-08", 1, 9.5678815E-02, 0},
    {"formats/5523-1.V1", RecordLayout::bhrc_v1, 3, 0, "L1 (177\u00B0)", 13056, 0.005, ".457339E-04", 1, 0.0229147, 0},
    {"formats/5523-1.V1", RecordLayout::bhrc_v1, 3, 2, "T3 (267\u00B0)", 13056, 0.005, "-.159439E-03", 1, 0.0148103, 0},
    {"formats/5529-1.V1", RecordLayout::bhrc_v1, 3, 1, "V2", 9472, 0.005, ".436214E-03", 1, 0.00287762, 0},
    {"formats/AOM0011801241951.NS", RecordLayout::knet, 1, 0, "N-S", 10200, 0.01, nullptr, 1, 4.954 / 980.665, 1e-6},
    {"formats/AICH040010061330.EW2", RecordLayout::knet, 1, 0, "5 (E-W, surface)", 28600, 0.005, nullptr, 1, 3.896 / 980.665, 1e-6},
    {"formats/HI.ARS1..HNN.D.20190728.160908.C.ACC.ASC", RecordLayout::esm, 1, 0, "HNN", 19128, 0.005, "0.000000", 980.665, 0.359017 / 980.665, 1e-9},
    {"formats/ce36456p_CE36456.V2", RecordLayout::cdmg_v2, 3, 0, "CHAN 1: 90 DEG", 3251, 0.02, "-3.038", 980.665, 267.957 / 980.665, 1e-9},
    {"formats/ce36456p_CE36456.V2", RecordLayout::cdmg_v2, 3, 1, "CHAN 2: UP", 3250, 0.02, nullptr, 1, 94.805 / 980.665, 1e-9},
    {"formats/us1000hyfh_akbmrp_AKBMR--n.1000hyfh.BNZ.--.acc.V2c", RecordLayout::cosmos_v2, 1, 0, "BNZ", 42000, 0.005, "3.437285e-04", 980.665, 6.852 / 980.665, 1e-6},
    {"formats/A-CAT180.AT2.smc", RecordLayout::usgs_smc, 1, 0, "", 1646, 0.02, "4.1843182E-03", 981, 58.01 / 981, 1e-5},
};

TEST(RealRecordFiles, ReadAsTheirHeadersSay) {
    for (const RealFile& f : kRealFiles) {
        SCOPED_TRACE(f.path);
        const std::string path = test::data_path(std::string("records/") + f.path);
        if (path.empty()) GTEST_SKIP() << "records data missing";
        const std::string content = bytes_of(path);
        EXPECT_EQ(detect_record_layout(content), f.layout);
        const RecordImport r = parse_record(content, path);
        ASSERT_TRUE(r.ok()) << r.error->message();
        ASSERT_EQ(r.layout, f.layout);
        ASSERT_EQ(r.components.size(), f.components);
        const RecordComponent& c = r.components[f.pick];
        EXPECT_EQ(c.name, f.name);
        EXPECT_EQ(static_cast<std::int64_t>(c.samples.size()), f.points);
        EXPECT_EQ(c.declared_points, f.points);
        EXPECT_EQ(c.time_step, f.dt);
        if (f.first && f.divisor == 1) {
            EXPECT_EQ(c.lines[static_cast<std::size_t>(c.header_lines)], f.first);
        } else if (f.first) {
            EXPECT_NEAR(c.samples[0], text::val(f.first) / f.divisor, 1e-15);
        }
        EXPECT_NEAR(peak_of(c), f.peak_g, f.peak_tolerance);
        expect_plain_road_gives_samples(c);
    }
}

TEST(RealRecordFiles, SayWhereTheStepCameFromAndWhatWasConverted) {
    const std::string path = test::data_path("records/formats/5523-1.V1");
    if (path.empty()) GTEST_SKIP() << "records data missing";
    const RecordImport r = import_record_file(path);
    ASSERT_TRUE(r.ok());
    const RecordComponent& v = r.components[1];
    EXPECT_EQ(v.time_step_source, "DURATION = 65.280 / NO. OF POINTS = 13056, line 1345");
    EXPECT_EQ(v.units, "G/10");
    EXPECT_EQ(v.conversion, "G/10 to g: divided by 10");
    // The component's own header block, from its "* VOL1DS" line.
    EXPECT_EQ(v.source_line, 1335);
    EXPECT_EQ(v.header_lines, 27);
    EXPECT_EQ(v.lines[6].substr(0, 7), "COMP V2");
}

// The hand conversions in records/ keep the header lines and write each sample with the very
// text of the original: the import must give the same lines.
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
        // The converted file itself is the window's own layout.
        EXPECT_EQ(detect_record_layout(bytes_of(to)), RecordLayout::plain);
    }
}

TEST(PlainRecords, OneNumberPerLineStaysOnTheWindowsRoad) {
    const std::string folder = test::data_path("records");
    if (folder.empty()) GTEST_SKIP() << "records data missing";
    int seen = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() != ".txt") continue;
        ++seen;
        const RecordImport r = parse_record(bytes_of(entry.path().string()), entry.path().string());
        EXPECT_EQ(r.layout, RecordLayout::plain) << entry.path();
        EXPECT_TRUE(r.ok() && r.components.empty()) << entry.path();
    }
    EXPECT_EQ(seen, 15);
    for (const char* made :
         {"0.01\n-0.02\n0.03\n", "Header\nNPTS= 3, DT= 0.01 SEC\n1\n2\n3\n", "0,01\n-0,02\n0,03\n", "", "\n\n"})
        EXPECT_EQ(detect_record_layout(made), RecordLayout::plain) << made;
}

// The header line of each PEER database generation, over the same data.
TEST(PeerHeaderForms, EachGivesPointsAndStep) {
    const std::string data = "  .1000000E-01  .2000000E-01  .3000000E-01\n  .4000000E-01  .5000000E-01\n";
    const std::pair<const char*, double> forms[] = {
        {"PEER NGA STRONG MOTION DATABASE RECORD\nX, 1/1/2000, S, 90\nACCELERATION TIME SERIES IN UNITS OF G\n"
         "NPTS=      5, DT=   0.005 SEC      \n",
         0.005},
        {"PEER STRONG MOTION DATABASE RECORD. PROCESSING BY PACIFIC ENGINEERING.\nX\nACCELERATION TIME HISTORY IN "
         "UNITS OF G\nNPTS=   5, dt=  .00500\n",
         0.005},
        {"PACIFIC ENGINEERING AND ANALYSIS STRONG-MOTION DATA\n IMPERIAL VALLEY 10/15/79 2319, EL CENTRO ARRAY 6, 230\n"
         " ACCELERATION TIME HISTORY IN UNITS OF G\n NPTS=  5, DT= .01000 SEC\n",
         0.01},
        {"PACIFIC ENGINEERING AND ANALYSIS STRONG-MOTION DATA\n IMPERIAL VALLEY 10/15/79 2319, EL CENTRO ARRAY 6, 230\n"
         " ACCELERATION TIME HISTORY IN UNITS OF G\n    5   0.02000   NPTS, DT\n",
         0.02},
    };
    for (const auto& [header, dt] : forms) {
        const RecordImport r = parse_record(std::string(header) + data, "made.AT2");
        ASSERT_TRUE(r.ok()) << header << r.error->message();
        EXPECT_EQ(r.layout, RecordLayout::peer_at2);
        EXPECT_EQ(r.components[0].time_step, dt) << header;
        EXPECT_EQ(r.components[0].samples.back(), 0.05);
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

TEST(TwoColumnText, SeparatorsAndDecimalCommas) {
    const std::pair<const char*, const char*> files[] = {
        {"time,acc\n0.000,0.010\n0.005,-0.020\n0.010,0.030\n", "0.010"},
        {"t;a\n0,000;0,010\n0,005;-0,020\n0,010;0,030\n", "0.010"},
        {"0.000\t0.010\n0.005\t-0.020\n0.010\t0.030\n", "0.010"},
        {"0,000 0,010\r\n0,005 -0,020\r\n0,010 0,030\r\n", "0.010"},
        {"Time (s)  Acc (g)\n  0.000   1.0E-02\n\n  0.005  -2.0E-02\n  0.010   3.0E-02\n", "1.0E-02"},
    };
    for (const auto& [content, first] : files) {
        SCOPED_TRACE(content);
        EXPECT_EQ(detect_record_layout(content), RecordLayout::two_column);
        const RecordImport r = parse_record(content, "made.csv");
        ASSERT_TRUE(r.ok()) << r.error->message();
        const RecordComponent& c = r.components[0];
        EXPECT_EQ(c.time_step, 0.005);
        EXPECT_EQ(c.lines[static_cast<std::size_t>(c.header_lines)], first);
        EXPECT_EQ(c.samples, (std::vector<double>{0.01, -0.02, 0.03}));
    }
    const RecordImport gal = parse_record("t acc (cm/s^2)\n0 98.0665\n0.01 -196.133\n", "made.txt");
    ASSERT_TRUE(gal.ok());
    EXPECT_EQ(gal.components[0].samples, (std::vector<double>{0.1, -0.2}));
    expect_plain_road_gives_samples(gal.components[0]);
}

// Made-up damage on top of real files and small ones: the message names the line and what was
// expected.
TEST(BadRecordFiles, NameTheLineAndWhatWasExpected) {
    const std::string peer = "PEER NGA STRONG MOTION DATABASE RECORD\nX, 1/1/2000, S, 90\n"
                             "ACCELERATION TIME SERIES IN UNITS OF G\nNPTS=      6, DT=   .0100 SEC\n"
                             "  .1E-01  .2E-01  .3E-01\n  .4E-01  .5E-01  .6E-01\n";
    std::string bhrc, knet, esm, cosmos;
    const std::string bhrc_path = test::data_path("records/formats/5523-1.V1");
    const std::string knet_path = test::data_path("records/formats/AOM0011801241951.NS");
    const std::string esm_path = test::data_path("records/formats/HI.ARS1..HNN.D.20190728.160908.C.ACC.ASC");
    if (!bhrc_path.empty()) bhrc = bytes_of(bhrc_path);
    if (!knet_path.empty()) knet = bytes_of(knet_path);
    if (!esm_path.empty()) esm = bytes_of(esm_path);
    const std::string cosmos_path = test::data_path("records/formats/us1000hyfh_akbmrp_AKBMR--n.1000hyfh.BNZ.--.acc.V2c");
    if (!cosmos_path.empty()) cosmos = bytes_of(cosmos_path);
    auto replaced = [](std::string s, const std::string& from, const std::string& to) {
        const std::size_t at = s.find(from);
        if (s.empty() || at == std::string::npos) {
            EXPECT_TRUE(s.empty()) << "no \"" << from << "\" to damage";
            return std::string();
        }
        return s.replace(at, from.size(), to);
    };
    struct Case {
        std::string content;
        std::int64_t line;
        const char* reason;
    };
    const Case cases[] = {
        {replaced(peer, "  .4E-01  .5E-01  .6E-01\n", "  .4E-01  .5E-01\n"), 4,
         "NPTS declares 6 points, the file holds 5"},
        {replaced(peer, ".5E-01", "abc"), 6, "\"abc\" is not a number; a sample was expected"},
        {replaced(peer, "NPTS=      6, DT=   .0100 SEC", "NPTS= six"), 4, "expected the number of points and the time step"},
        {replaced(peer, "ACCELERATION TIME SERIES IN UNITS OF G", "VELOCITY TIME SERIES IN UNITS OF CM/SEC"), 3,
         "the file holds velocities"},
        {bhrc.substr(0, bhrc.size() * 4 / 5), 2679, "component T3: NO. OF POINTS declares 13056 points, the file holds"},
        {replaced(knet, "Duration Time(s)  102", "Duration Time(s)  103"), 12,
         "Duration Time(s) x Sampling Freq(Hz) declares 10300 points, the file holds 10200"},
        {replaced(esm, "NDATA: 19128", "NDATA: 19128.0"), 30, "expected \"NDATA: <points>\""},
        {replaced(cosmos, "units=cm/sec2(04)", "units=furlongs(99)"), 53, "expected the units"},
        {replaced(cosmos, "units=cm/sec2(04),", ""), 53, "expected the units"},
        {"0.0 0.1\n0.01 0.2\n0.03 0.3\n", 3, "expected the time 0.02 (an even step of 0.01 s), found 0.03"},
    };
    for (const Case& c : cases) {
        if (c.content.empty()) continue;  // the real file is missing
        const RecordImport r = parse_record(c.content, "bad.file");
        ASSERT_FALSE(r.ok()) << c.reason;
        EXPECT_EQ(r.error->line, c.line) << c.reason;
        EXPECT_NE(r.error->reason.find(c.reason), std::string::npos) << r.error->reason;
    }
    const RecordImport r = parse_record(cases[1].content, "bad.AT2");
    EXPECT_EQ(r.error->message(), "bad.AT2, line 6: \"abc\" is not a number; a sample was expected");
    EXPECT_EQ(import_record_file("/no/such/record.AT2").error->message(),
              "/no/such/record.AT2: No such file or directory");
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
