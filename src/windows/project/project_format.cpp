#include "windows/project/project_format.h"

#include <nlohmann/json.hpp>
#include <stdexcept>

#include "compute/files/file_reader.h"

namespace tv::windows {

using json = nlohmann::ordered_json;

namespace {

// ---- reading, every field checked -----------------------------------------------------------

struct BadProject : std::runtime_error {
    using std::runtime_error::runtime_error;
};

const json& field(const json& obj, const std::string& where, const char* key, json::value_t type) {
    auto it = obj.find(key);
    const std::string name = where.empty() ? std::string(key) : where + "." + key;
    if (it == obj.end()) throw BadProject("the field \"" + name + "\" is missing");
    const bool fits = it->type() == type || (type == json::value_t::number_integer &&
                                             it->type() == json::value_t::number_unsigned);
    if (!fits) throw BadProject("the field \"" + name + "\" is not " +
                                (type == json::value_t::string ? "a text" : type == json::value_t::array ? "a list"
                                 : type == json::value_t::object ? "an object" : type == json::value_t::boolean ? "true or false"
                                 : "a whole number"));
    return *it;
}

int int_field(const json& obj, const std::string& where, const char* key) {
    const json& v = field(obj, where, key, json::value_t::number_integer);
    const auto n = v.get<long long>();
    if (n < -1000000000LL || n > 1000000000LL)
        throw BadProject("the field \"" + (where.empty() ? std::string(key) : where + "." + key) + "\" is out of range");
    return static_cast<int>(n);
}

template <std::size_t N>
std::size_t name_index(const std::array<const char*, N>& names, const std::string& s, const std::string& where) {
    for (std::size_t i = 0; i < N; ++i)
        if (s == names[i]) return i;
    throw BadProject("\"" + where + "\" holds the unknown \"" + s + "\"");
}

forms::Step read_step(const json& j, const std::string& where, const std::vector<ProjectInput>& inputs) {
    if (!j.is_object()) throw BadProject("\"" + where + "\" is not an object");
    forms::Step step;
    if (j.contains("depth")) step.depth = int_field(j, where, "depth");
    if (step.depth < 0) throw BadProject("the field \"" + where + ".depth\" is out of range");
    if (j.contains("do")) {
        forms::Action a;
        a.kind = static_cast<forms::ActionKind>(
            name_index(kProjectActionNames, field(j, where, "do", json::value_t::string).get<std::string>(), where + ".do"));
        a.form = field(j, where, "window", json::value_t::string).get<std::string>();
        if (a.kind != forms::ActionKind::Close)
            a.control = field(j, where, "control", json::value_t::string).get<std::string>();
        switch (a.kind) {
            case forms::ActionKind::Text: a.text = field(j, where, "text", json::value_t::string).get<std::string>(); break;
            case forms::ActionKind::Pick:
            case forms::ActionKind::Slide:
            case forms::ActionKind::Scroll:
            case forms::ActionKind::Drag: a.value = int_field(j, where, "value"); break;
            case forms::ActionKind::Cell:
                a.value = int_field(j, where, "row");
                a.col = int_field(j, where, "col");
                break;
            case forms::ActionKind::Rows: {
                const json& rows = field(j, where, "rows", json::value_t::array);
                for (std::size_t i = 0; i < rows.size(); ++i)
                    a.rows.push_back(int_field(json{{"row", rows[i]}}, where + ".rows[" + std::to_string(i) + "]", "row"));
                break;
            }
            default: break;
        }
        step.what = std::move(a);
        return step;
    }
    forms::Answer a;
    a.kind = static_cast<forms::AnswerKind>(
        name_index(kProjectAnswerNames, field(j, where, "answer", json::value_t::string).get<std::string>(), where + ".answer"));
    if (j.contains("cancelled")) a.cancelled = field(j, where, "cancelled", json::value_t::boolean).get<bool>();
    if (a.cancelled) {
        step.what = a;
        return step;
    }
    switch (a.kind) {
        case forms::AnswerKind::Message:
            a.result = static_cast<forms::MsgResult>(name_index(
                kProjectResultNames, field(j, where, "result", json::value_t::string).get<std::string>(), where + ".result"));
            break;
        case forms::AnswerKind::Input: a.text = field(j, where, "text", json::value_t::string).get<std::string>(); break;
        case forms::AnswerKind::Item: a.index = int_field(j, where, "index"); break;
        case forms::AnswerKind::File:
            if (j.contains("saved")) {
                a.save = true;
                a.text = field(j, where, "saved", json::value_t::string).get<std::string>();
            } else if (j.contains("file")) {
                const int i = int_field(j, where, "file");
                if (i < 0 || i >= static_cast<int>(inputs.size()))
                    throw BadProject("the field \"" + where + ".file\" names no entry of \"inputs\"");
                a.text = inputs[static_cast<std::size_t>(i)].absolute;
            } else {
                a.text = field(j, where, "path", json::value_t::string).get<std::string>();
            }
            break;
    }
    step.what = a;
    return step;
}

ProjectContent read_content(const json& root) {
    if (!root.is_object()) throw BadProject("the text is not a JSON object");
    const std::string format = field(root, "", "format", json::value_t::string).get<std::string>();
    if (format != kProjectFormat) throw BadProject("\"format\" is \"" + format + "\", not \"" + kProjectFormat + "\"");
    const int version = int_field(root, "", "version");
    if (version > kProjectVersion)
        throw BadProject("it was written by a newer Tremorvault (format version " + std::to_string(version) +
                         "); this one reads version " + std::to_string(kProjectVersion) + " and older");
    if (version < 1) throw BadProject("\"version\" is " + std::to_string(version) + ", not a format version");
    ProjectContent c;
    const json& inputs = field(root, "", "inputs", json::value_t::array);
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        const std::string where = "inputs[" + std::to_string(i) + "]";
        if (!inputs[i].is_object()) throw BadProject("\"" + where + "\" is not an object");
        ProjectInput in;
        in.path = field(inputs[i], where, "path", json::value_t::string).get<std::string>();
        in.absolute = field(inputs[i], where, "absolute", json::value_t::string).get<std::string>();
        in.crc32 = field(inputs[i], where, "crc32", json::value_t::string).get<std::string>();
        c.inputs.push_back(std::move(in));
    }
    const json& road = field(root, "", "road", json::value_t::array);
    for (std::size_t i = 0; i < road.size(); ++i) c.steps.push_back(read_step(road[i], "road[" + std::to_string(i) + "]", c.inputs));
    const json& windows = field(root, "", "windows", json::value_t::array);
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const std::string where = "windows[" + std::to_string(i) + "]";
        if (!windows[i].is_object()) throw BadProject("\"" + where + "\" is not an object");
        field(windows[i], where, "window", json::value_t::string);
        for (const char* part : {"boxes", "lists", "ticks", "options", "tables"}) field(windows[i], where, part, json::value_t::object);
    }
    c.results = windows.dump();
    return c;
}

}  // namespace

ProjectRead parse_project(const std::string& text, const std::string& name) {
    ProjectRead r;
    try {
        // Nesting is bounded while the text is read, before any copy or comparison recurses into it.
        const json::parser_callback_t bounded = [](int depth, json::parse_event_t, json&) {
            if (depth > kProjectMaxDepth)
                throw BadProject("it nests deeper than " + std::to_string(kProjectMaxDepth) + " levels");
            return true;
        };
        r.content = read_content(json::parse(text, bounded));
    } catch (const json::parse_error& e) {
        std::string what = e.what();
        if (auto p = what.find("] "); p != std::string::npos) what = what.substr(p + 2);
        r.error = name + ": not a project file (" + what + ")";
    } catch (const BadProject& e) {
        r.error = name + ": " + e.what();
    } catch (const json::exception& e) {
        r.error = name + ": " + e.what();
    }
    return r;
}

ProjectRead read_project(const std::string& path) {
    const compute::FileBytes file = compute::read_input_file(path);
    if (!file.ok()) return ProjectRead{std::nullopt, file.description + (file.reason.empty() ? "" : " (" + file.reason + ")")};
    return parse_project(file.bytes, path);
}

}  // namespace tv::windows
