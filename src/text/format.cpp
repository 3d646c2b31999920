#include "text/format.h"

#include <charconv>
#include <cmath>

#include "text/runtime_error.h"

namespace tv::text {

std::string format_fixed(double x, int decimals) {
    if (!std::isfinite(x)) raise(kOverflow);
    if (decimals < 0 || decimals > 30) raise(kInvalidCall);  // 309 digits and 30 decimals fit
    char buf[400];
    auto res = std::to_chars(buf, buf + sizeof buf, x, std::chars_format::fixed, decimals);
    std::string s(buf, res.ptr);
    if (!s.empty() && s[0] == '-' && s.find_first_not_of("-0.") == std::string::npos) s.erase(0, 1);
    return s;
}

std::string format(double x, std::string_view pattern) {
    if (pattern == "0") return format_fixed(x, 0);
    if (pattern.size() >= 3 && pattern.substr(0, 2) == "0." &&
        pattern.find_first_not_of('0', 2) == std::string_view::npos)
        return format_fixed(x, static_cast<int>(pattern.size() - 2));
    raise(kInvalidCall);
}

std::string upper(std::string_view s) {
    std::string out(s);
    for (char& c : out)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return out;
}

std::string with_txt_extension(const std::string& name) {
    if (upper(name).find(".TXT") == std::string::npos) return name + ".txt";
    return name;
}

std::string trim(std::string_view s) {
    std::size_t b = s.find_first_not_of(' ');
    if (b == std::string_view::npos) return {};
    std::size_t e = s.find_last_not_of(' ');
    return std::string(s.substr(b, e - b + 1));
}

}  // namespace tv::text
