#include "text/number_text.h"

#include <charconv>
#include <cmath>
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

// Parses the digits gathered by val / to_double; the text is well formed by construction.
double parse_clean(const std::string& clean) {
    double out = 0.0;
    auto res = std::from_chars(clean.data(), clean.data() + clean.size(), out);
    if (res.ec == std::errc::result_out_of_range) {
        // Underflow gives 0; overflow is the old run time's "Overflow".
        std::size_t epos = clean.find('e');
        bool negative_exponent = epos != std::string::npos && epos + 1 < clean.size() && clean[epos + 1] == '-';
        if (negative_exponent) return 0.0;
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
    char buf[64];
    auto res = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::scientific, 14);
    double out = 0.0;
    std::from_chars(buf, res.ptr, out);
    return out;
}

}  // namespace tv::text
