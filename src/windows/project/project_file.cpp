#include "windows/project/project_file.h"

#include <zlib.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "compute/files/file_reader.h"
#include "compute/files/file_writer.h"
#include "windows/files/work_files.h"
#include "windows/project/about_window.h"
#include "windows/project/main_frame_window.h"

namespace tv::windows {

using json = nlohmann::ordered_json;
namespace fs = std::filesystem;

namespace {


std::string crc32_of(const std::string& bytes) {
    const uLong crc = crc32_z(crc32(0L, Z_NULL, 0), reinterpret_cast<const Bytef*>(bytes.data()), bytes.size());
    char hex[9];
    std::snprintf(hex, sizeof hex, "%08lx", crc & 0xffffffffUL);
    return hex;
}

// ---- the windows as they stand ------------------------------------------------------------

json window_results(const forms::Form& f) {
    json boxes = json::object(), lists = json::object(), ticks = json::object(), options = json::object(),
         tables = json::object();
    for (const auto& c : f.controls()) {
        const std::string& n = c->name();
        if (const auto* t = dynamic_cast<const forms::TextBox*>(c.get())) {
            boxes[n] = t->text();
        } else if (const auto* l = dynamic_cast<const forms::ComboBox*>(c.get())) {
            lists[n] = l->text();
        } else if (const auto* k = dynamic_cast<const forms::CheckBox*>(c.get())) {
            ticks[n] = k->value();
        } else if (const auto* o = dynamic_cast<const forms::OptionButton*>(c.get())) {
            options[n] = o->value();
        } else if (const auto* g = dynamic_cast<const forms::Grid*>(c.get())) {
            json cells = json::array();
            for (int r = 0; r < g->rows(); ++r) {
                json row = json::array();
                for (int col = 0; col < g->cols(); ++col) row.push_back(g->text(r, col));
                cells.push_back(std::move(row));
            }
            tables[n] = {{"cells", std::move(cells)}, {"selected", g->selected_rows()}};
        }
    }
    return {{"window", f.name()}, {"visible", f.visible()}, {"boxes", boxes}, {"lists", lists},
            {"ticks", ticks},     {"options", options},     {"tables", tables}};
}

json results_of(const forms::App& app) {
    json out = json::array();
    for (const forms::Form* f : app.loaded()) out.push_back(window_results(*f));
    return out;
}

// ---- the journal as JSON -------------------------------------------------------------------

json action_json(const forms::Action& a) {
    json j = {{"do", kProjectActionNames[static_cast<std::size_t>(a.kind)]}, {"window", a.form}};
    if (a.kind != forms::ActionKind::Close) j["control"] = a.control;
    switch (a.kind) {
        case forms::ActionKind::Text: j["text"] = a.text; break;
        case forms::ActionKind::Pick:
        case forms::ActionKind::Slide:
        case forms::ActionKind::Scroll:
        case forms::ActionKind::Drag: j["value"] = a.value; break;
        case forms::ActionKind::Cell: j["row"] = a.value, j["col"] = a.col; break;
        case forms::ActionKind::Rows: j["rows"] = a.rows; break;
        default: break;
    }
    return j;
}

struct InputList {
    fs::path base;
    std::vector<ProjectInput> inputs;
    std::map<std::string, std::size_t> index;
    /// The input a path names, added on first sight; nullopt when it cannot be read.
    std::optional<std::size_t> of(const std::string& absolute) {
        if (auto it = index.find(absolute); it != index.end()) return it->second;
        const compute::FileBytes file = compute::read_input_file(absolute);
        if (!file.ok()) return std::nullopt;
        std::string rel = fs::path(absolute).lexically_relative(base).generic_string();
        inputs.push_back({rel.empty() ? absolute : rel, absolute, crc32_of(file.bytes)});
        index.emplace(absolute, inputs.size() - 1);
        return inputs.size() - 1;
    }
};

json answer_json(const forms::Answer& a, const ProjectState& state, InputList& inputs) {
    json j = {{"answer", kProjectAnswerNames[static_cast<std::size_t>(a.kind)]}};
    if (a.cancelled) {
        j["cancelled"] = true;
        return j;
    }
    switch (a.kind) {
        case forms::AnswerKind::Message: j["result"] = kProjectResultNames[static_cast<std::size_t>(a.result)]; break;
        case forms::AnswerKind::Input: j["text"] = a.text; break;
        case forms::AnswerKind::Item: j["index"] = a.index; break;
        case forms::AnswerKind::File: {
            if (a.save) {
                j["saved"] = a.text;
                break;
            }
            const std::string absolute = fs::absolute(resolve_in_workdir(state, a.text)).lexically_normal().string();
            if (auto i = inputs.of(absolute))
                j["file"] = *i;
            else
                j["path"] = a.text;  // nothing there to keep: the window refused it then
            break;
        }
    }
    return j;
}

// ---- comparing ----------------------------------------------------------------------------

struct Compare {
    std::map<std::string, std::string> substituted;
    std::vector<std::string>& out;

    bool same(const json& saved, const json& now) const {
        if (saved == now) return true;
        if (!saved.is_string() || !now.is_string()) return false;
        auto it = substituted.find(saved.get<std::string>());
        return it != substituted.end() && it->second == now.get<std::string>();
    }
    static std::string shown(const json& v) { return v.is_string() ? "\"" + v.get<std::string>() + "\"" : v.dump(); }

    void part(const std::string& window, const json& saved, const json& now) {
        for (const auto& [name, value] : saved.items()) {
            const std::string where = window + "." + name;
            if (!now.contains(name)) {
                out.push_back(where + " is not there now");
            } else if (value.is_object()) {
                table(where, value, now[name]);
            } else if (!same(value, now[name])) {
                out.push_back(where + ": saved " + shown(value) + ", now " + shown(now[name]));
            }
        }
    }

    void table(const std::string& where, const json& saved, const json& now) {
        const json& a = saved.value("cells", json::array());
        const json& b = now.value("cells", json::array());
        std::size_t cells = 0;
        std::string first;
        const std::size_t rows = std::max(a.size(), b.size());
        for (std::size_t r = 0; r < rows; ++r) {
            const json row_a = r < a.size() && a[r].is_array() ? a[r] : json::array();
            const json row_b = r < b.size() ? b[r] : json::array();
            for (std::size_t c = 0; c < std::max(row_a.size(), row_b.size()); ++c) {
                const json va = c < row_a.size() ? row_a[c] : json(nullptr), vb = c < row_b.size() ? row_b[c] : json(nullptr);
                if (same(va, vb)) continue;
                if (cells++ == 0)
                    first = " row " + std::to_string(r) + ", column " + std::to_string(c) + ": saved " + shown(va) +
                            ", now " + shown(vb);
            }
        }
        if (cells > 0) out.push_back(where + first + (cells > 1 ? " (" + std::to_string(cells) + " cells differ)" : ""));
        if (saved.value("selected", json::array()) != now.value("selected", json::array()))
            out.push_back(where + ": the selected rows differ");
    }

    void windows(const json& saved, const json& now) {
        std::vector<std::string> names_saved, names_now;
        for (const json& w : saved) names_saved.push_back(w.value("window", ""));
        for (const json& w : now) names_now.push_back(w.value("window", ""));
        if (names_saved != names_now) {
            auto list = [](const std::vector<std::string>& v) {
                std::string s;
                for (const auto& n : v) s += (s.empty() ? "" : ", ") + n;
                return s;
            };
            out.push_back("Windows open: saved " + list(names_saved) + "; now " + list(names_now));
        }
        for (const json& w : saved) {
            const std::string name = w.value("window", "");
            const json* match = nullptr;
            for (const json& n : now)
                if (n.value("window", "") == name) match = &n;
            if (match == nullptr) continue;
            if (w.value("visible", false) != match->value("visible", false)) out.push_back(name + ": shown or hidden otherwise");
            for (const char* p : {"boxes", "lists", "ticks", "options", "tables"}) part(name, w[p], (*match)[p]);
        }
    }
};

/// Every window but the main frame goes, quietly and unrecorded; the project state starts again.
void close_work(Program& program, forms::JournalPlatform& platform) {
    forms::Journal& journal = platform.journal();
    const bool was_recording = journal.recording;
    journal.recording = false;
    platform.quiet = true;
    for (bool again = true; again;) {
        again = false;
        const auto& loaded = program.loaded();
        for (auto it = loaded.rbegin(); it != loaded.rend(); ++it) {
            forms::Form* f = *it;
            if (f->name() == "frmMain") continue;
            bool gone = false;
            program.run([&] { gone = program.unload(*f); });
            again = gone;
            break;
        }
    }
    platform.quiet = false;
    journal.recording = was_recording;
    ProjectState fresh;
    fresh.startDir = program.state.startDir;
    fresh.workDir = program.state.workDir;
    program.state = std::move(fresh);
    if (auto* frame = program.if_loaded<frmMain>()) frame->recordCountNumber = 0;
    journal.clear();
}

}  // namespace

std::string project_text(const Program& program, const forms::Journal& journal, const std::string& project_path) {
    InputList inputs;
    inputs.base = fs::absolute(fs::path(project_path)).lexically_normal().parent_path();
    json road = json::array();
    for (const forms::Step& s : journal.steps()) {
        json j = std::holds_alternative<forms::Action>(s.what) ? action_json(std::get<forms::Action>(s.what))
                                                                : answer_json(std::get<forms::Answer>(s.what), program.state, inputs);
        if (s.depth > 0) j["depth"] = s.depth;
        road.push_back(std::move(j));
    }
    json inputs_json = json::array();
    for (const ProjectInput& in : inputs.inputs)
        inputs_json.push_back({{"path", in.path}, {"absolute", in.absolute}, {"crc32", in.crc32}});
    // One line per input, step and window: a diff of two projects reads step by step.
    auto text = [](const json& j) { return j.dump(-1, ' ', false, json::error_handler_t::replace); };
    auto list = [&text](const json& items) {
        std::string out = "[";
        for (std::size_t i = 0; i < items.size(); ++i) out += (i == 0 ? "\n  " : ",\n  ") + text(items[i]);
        return out + (items.empty() ? "]" : "\n ]");
    };
    return "{\n \"format\": " + text(kProjectFormat) + ",\n \"version\": " + text(kProjectVersion) +
           ",\n \"program\": " + text(version_text()) + ",\n \"inputs\": " + list(inputs_json) +
           ",\n \"road\": " + list(road) + ",\n \"windows\": " + list(results_of(program)) + "\n}\n";
}

compute::FileStatus save_project(const Program& program, const forms::Journal& journal, const std::string& path) {
    return compute::write_file(path, project_text(program, journal, path));
}

std::string ProjectOpened::message() const {
    std::string m;
    auto section = [&m](const char* heading, const std::vector<std::string>& lines) {
        if (lines.empty()) return;
        m += std::string(m.empty() ? "" : "\n") + heading + "\n";
        for (const auto& l : lines) m += "  " + l + "\n";
    };
    section("Input files not at their place:", moved);
    section("Input files changed since the project was saved:", changed);
    section("Results that differ from those saved:", differences);
    return m;
}

ProjectOpened open_project(Program& program, forms::JournalPlatform& platform, const ProjectContent& project,
                           const std::string& project_path, const LocateInput& locate,
                           const std::vector<std::string>& input_folders) {
    ProjectOpened opened;
    const fs::path base = fs::absolute(fs::path(project_path)).lexically_normal().parent_path();
    std::map<std::string, std::optional<std::string>> where;  // saved absolute path -> path taken
    for (const ProjectInput& in : project.inputs) {
        std::optional<std::string> found;
        const fs::path stored(in.path);
        std::vector<fs::path> places;
        for (const std::string& folder : input_folders) places.push_back(fs::path(folder) / stored.filename());
        places.push_back(stored.is_absolute() ? stored : (base / stored).lexically_normal());
        places.push_back(in.absolute);
        for (const fs::path& p : places) {
            std::error_code ec;
            if (fs::is_regular_file(p, ec)) {
                found = p.string();
                break;
            }
        }
        if (!found) {
            found = locate ? locate(in.path) : std::nullopt;
            opened.moved.push_back(in.path + (found ? " was not found; " + *found + " was taken" : " was not found"));
        }
        if (found) {
            const compute::FileBytes bytes = compute::read_input_file(*found);
            if (!bytes.ok() || crc32_of(bytes.bytes) != in.crc32) opened.changed.push_back(*found);
        }
        where[in.absolute] = found;
    }

    close_work(program, platform);
    std::error_code tmp_error;
    std::string scratch = (fs::temp_directory_path(tmp_error) / "tremorvault-replay-XXXXXX").string();
    const bool have_scratch = !tmp_error && mkdtemp(scratch.data()) != nullptr;
    forms::JournalPlatform::ReplayFiles files;
    // Without a scratch folder of its own a replay saves nothing: the saves fail as in a folder
    // that is not there.
    files.scratch_folder = have_scratch ? scratch : "/nonexistent/tremorvault-replay";
    files.open = [&where](const std::string& recorded) -> std::optional<std::string> {
        auto it = where.find(recorded);
        return it == where.end() ? std::optional<std::string>(recorded) : it->second;
    };
    forms::JournalPlatform::Replayed done = platform.replay(program, project.steps, std::move(files));
    if (have_scratch) {
        std::error_code ec;
        fs::remove_all(scratch, ec);
    }
    platform.journal().mark_saved();

    opened.differences = std::move(done.problems);
    Compare cmp{{done.substituted.begin(), done.substituted.end()}, opened.differences};
    try {
        cmp.windows(json::parse(project.results), results_of(program));
    } catch (const json::exception&) {
        // A hand-edited table of the wrong shape: nothing to compare it with.
        opened.differences.push_back("The results kept in the file are not in a form that can be compared");
    }
    return opened;
}

}  // namespace tv::windows
