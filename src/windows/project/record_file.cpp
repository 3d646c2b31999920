#include "windows/project/record_file.h"

#include <cctype>
#include <filesystem>

#include "compute/files/file_reader.h"
#include "compute/files/text_file.h"
#include "text/number_text.h"

namespace tv::windows {

namespace {

// "V2", "UP", "U-D", "HNZ", "Vert": the names networks give a vertical component.
bool named_vertical(const std::string& name) {
    std::string token;
    auto vertical_token = [&token] {
        if (token == "UP" || token == "UD" || token == "U" || token == "DOWN" || token == "Z" || token == "V" ||
            token.rfind("VERT", 0) == 0)
            return true;
        if (token[0] == 'V' && token.find_first_not_of("0123456789", 1) == std::string::npos) return true;
        return token.size() == 3 && token[2] == 'Z' && std::isalpha(static_cast<unsigned char>(token[0]));
    };
    for (std::size_t i = 0; i <= name.size(); ++i) {
        const unsigned char c = i < name.size() ? static_cast<unsigned char>(name[i]) : ' ';
        if (std::isalnum(c)) {
            token += static_cast<char>(std::toupper(c));
        } else if (!token.empty()) {
            if (vertical_token()) return true;
            token.clear();
        }
    }
    return false;
}

std::string item_name(const compute::RecordComponent& c, std::size_t k) {
    return c.name.empty() ? "component " + std::to_string(k + 1) : c.name;
}

std::string file_part(const std::string& name) { return std::filesystem::path(name).filename().string(); }

}  // namespace

int preset_component(const std::vector<compute::RecordComponent>& components, bool want_x, int x) {
    const int n = static_cast<int>(components.size());
    if (n == 0) return -1;
    const int start = want_x ? 0 : x + 1;
    for (int k = 0; k < n; ++k) {
        const int i = (start + k) % n;
        if (i != x && !named_vertical(components[static_cast<std::size_t>(i)].name)) return i;
    }
    for (int k = 0; k < n; ++k)
        if ((start + k) % n != x) return (start + k) % n;
    return 0;
}

std::vector<std::string> fit_to_first_line(const compute::RecordComponent& c, int first_line) {
    if (first_line < 1 || first_line == c.header_lines + 1) return c.lines;
    const auto header = static_cast<std::size_t>(c.header_lines);
    const auto wanted = static_cast<std::size_t>(first_line - 1);
    std::vector<std::string> out(c.lines.begin(), c.lines.begin() + static_cast<std::ptrdiff_t>(std::min(header, wanted)));
    out.resize(wanted);
    out.insert(out.end(), c.lines.begin() + static_cast<std::ptrdiff_t>(header), c.lines.end());
    return out;
}

std::string component_summary(const OpenedRecord& file, const compute::RecordComponent& c, const std::string& letter) {
    std::string out = letter + ": " + file_part(file.name) + " (" + std::string(compute::record_layout_name(file.layout)) + ")";
    if (!c.name.empty()) out += ", " + c.name;
    out += ", " + std::to_string(c.samples.size()) + " samples from line " + std::to_string(c.header_lines + 1);
    out += ", time step " + text::to_text(c.time_step) + " s";
    if (!c.time_step_source.empty()) out += " (" + c.time_step_source + ")";
    out += ", units " + c.units + ", " + c.conversion;
    return out;
}

std::optional<OpenedRecord> open_record(forms::Platform& platform, const std::string& path, const std::string& name,
                                        const std::string& letter) {
    OpenedRecord out;
    out.name = name;
    compute::FileBytes bytes = compute::read_input_file(path);
    out.status = bytes;
    if (!bytes.ok()) return out;
    compute::RecordImport read = compute::parse_record(bytes.bytes, name);
    if (read.error) {
        platform.message_box(read.error->message(), forms::MsgButtons::Ok, "Error", forms::MsgIcon::Critical);
        return std::nullopt;
    }
    out.layout = read.layout;
    if (read.components.empty()) {
        out.lines = compute::split_lines(bytes.bytes);
        return out;
    }
    if (letter != "X" && letter != "Y") return out;
    if (read.components.size() == 1) {
        out.components = std::move(read.components);
        return out;
    }
    std::vector<std::string> items;
    for (std::size_t k = 0; k < read.components.size(); ++k) items.push_back(item_name(read.components[k], k));
    const std::string file = file_part(name);
    std::optional<int> x;
    if (letter == "X") {
        x = platform.choose_item("Component of " + file + " for X:", "Components", items,
                                 preset_component(read.components, true));
        if (!x) return std::nullopt;
    }
    const std::optional<int> y = platform.choose_item("Component of " + file + " for Y:", "Components", items,
                                                      preset_component(read.components, false, x.value_or(-1)));
    const int n = static_cast<int>(items.size());
    if (!y || *y < 0 || *y >= n || (x && (*x < 0 || *x >= n))) return std::nullopt;
    if (x) out.components.push_back(read.components.at(static_cast<std::size_t>(*x)));
    out.components.push_back(read.components.at(static_cast<std::size_t>(*y)));
    return out;
}

}  // namespace tv::windows
