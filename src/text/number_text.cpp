#include "text/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <system_error>

#include "text/runtime_error.h"

namespace tv::text {

std::string to_text(double value) {
    if (std::isnan(value)) return "-1.#IND";
    if (std::isinf(value)) return value > 0 ? "1.#INF" : "-1.#INF";
    if (value == 0.0) return "0";  // also -0
    char buf[64];
    auto res = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::general, 15);
    std::string s(buf, res.ptr);
    for (char& c : s)
        if (c == 'e') c = 'E';
    return s;
}

std::string to_text(std::int64_t value) { return std::to_string(value); }

namespace {

bool is_blank(char c) { return c == ' ' || c == '\t' || c == '\n'; }
bool is_digit(char c) { return c >= '0' && c <= '9'; }

// The power of ten p with the value = 0.d... x 10^p ("123.4" gives 3, "0.05" gives -1): the
// sign tells overflow from underflow. Only asked of texts out of range, which are never zero.
long magnitude(const std::string& clean) {
    std::size_t epos = clean.find('e');
    std::string_view mantissa = std::string_view(clean).substr(0, epos);
    long exponent = 0;
    if (epos != std::string::npos) {
        bool negative = clean[epos + 1] == '-';
        for (std::size_t i = epos + (negative ? 2 : 1); i < clean.size(); ++i)
            exponent = std::min(exponent * 10 + (clean[i] - '0'), 100000L);
        if (negative) exponent = -exponent;
    }
    std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    std::size_t first = mantissa.find_first_of("123456789");
    long position = first < point ? static_cast<long>(point - first) : -static_cast<long>(first - point - 1);
    return position + exponent;
}

// Parses the text gathered by val / to_double; the text is well formed by construction.
double parse_clean(const std::string& clean) {
    double out = 0.0;
    auto res = std::from_chars(clean.data(), clean.data() + clean.size(), out);
    if (res.ec == std::errc::result_out_of_range) {
        // Underflow gives 0; overflow is the old run time's "Overflow".
        if (magnitude(clean) < 0) return 0.0;
        raise(kOverflow);
    }
    if (out == 0.0) out = 0.0;  // no negative zero
    return out;
}

}  // namespace

double val(std::string_view text) {
    std::size_t i = 0, n = text.size();
    auto skip = [&] {
        while (i < n && is_blank(text[i])) ++i;
    };
    skip();
    std::string clean;
    if (i < n && (text[i] == '-' || text[i] == '+')) {
        if (text[i] == '-') clean += '-';
        ++i;
        skip();
    }
    bool digits = false, point = false;
    while (i < n) {
        char c = text[i];
        if (is_digit(c)) {
            clean += c;
            digits = true;
        } else if (c == '.' && !point) {
            clean += '.';
            point = true;
        } else if (!is_blank(c)) {
            break;
        }
        ++i;
    }
    if (!digits) return 0.0;
    if (i < n && (text[i] == 'e' || text[i] == 'E' || text[i] == 'd' || text[i] == 'D')) {
        std::size_t save = i;
        ++i;
        skip();
        std::string exponent = "e";
        if (i < n && (text[i] == '-' || text[i] == '+')) {
            if (text[i] == '-') exponent += '-';
            ++i;
            skip();
        }
        bool edigits = false;
        while (i < n && (is_digit(text[i]) || is_blank(text[i]))) {
            if (is_digit(text[i])) {
                exponent += text[i];
                edigits = true;
            }
            ++i;
        }
        if (edigits)
            clean += exponent;
        else
            i = save;
    }
    if (clean.back() == '.') clean.pop_back();
    if (clean == "-" || clean.empty()) return 0.0;
    return parse_clean(clean);
}

double to_double(std::string_view text) {
    std::size_t b = 0, e = text.size();
    while (b < e && (text[b] == ' ' || text[b] == '\t')) ++b;
    while (e > b && (text[e - 1] == ' ' || text[e - 1] == '\t')) --e;
    std::string_view t = text.substr(b, e - b);
    std::string clean;
    std::size_t i = 0;
    if (i < t.size() && (t[i] == '-' || t[i] == '+')) {
        if (t[i] == '-') clean += '-';
        ++i;
    }
    bool digits = false, point = false;
    for (; i < t.size(); ++i) {
        char c = t[i];
        if (is_digit(c)) {
            clean += c;
            digits = true;
        } else if (c == '.' && !point) {
            clean += c;
            point = true;
        } else {
            break;
        }
    }
    if (!digits) raise(kTypeMismatch);
    if (i < t.size() && (t[i] == 'e' || t[i] == 'E' || t[i] == 'd' || t[i] == 'D')) {
        ++i;
        clean += 'e';
        if (i < t.size() && (t[i] == '-' || t[i] == '+')) {
            if (t[i] == '-') clean += '-';
            ++i;
        }
        bool edigits = false;
        for (; i < t.size() && is_digit(t[i]); ++i) {
            clean += t[i];
            edigits = true;
        }
        if (!edigits) raise(kTypeMismatch);
    }
    if (i != t.size()) raise(kTypeMismatch);
    if (clean.back() == '.') clean.pop_back();
    return parse_clean(clean);
}

double round15(double value) {
    if (!std::isfinite(value)) return value;
    if (value == 0.0) return 0.0;
    // The digits of to_text in exponent form; reading them back is val's reading.
    char buf[64];
    auto res = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::scientific, 14);
    double out = 0.0;
    // Out of range only just below the largest double, where the rounded digits overflow.
    if (std::from_chars(buf, res.ptr, out).ec == std::errc::result_out_of_range) raise(kOverflow);
    return out;
}

bool strict_number(const std::string& text, double& out) {
    if (text.empty()) return false;
    char* end = nullptr;
    out = std::strtod(text.c_str(), &end);
    return end == text.c_str() + text.size() && std::isfinite(out);
}

bool strict_whole(const std::string& text, int& out) {
    double v = 0;
    if (!strict_number(text, v) || v != std::floor(v) || std::fabs(v) > 1000) return false;
    out = static_cast<int>(v);
    return true;
}

}  // namespace tv::text
