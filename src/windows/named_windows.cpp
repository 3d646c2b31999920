// The windows that another area opens by name, and the one place that knows all of them.
#include <stdexcept>

#include "windows/fourier/fourier_window.h"
#include "windows/program.h"

namespace tv::windows {
namespace {

template <class F>
void add(std::map<std::string, std::function<forms::Form&(Program&)>, std::less<>>& table, const char* name) {
    table.emplace(name, [](Program& p) -> forms::Form& { return p.form<F>(); });
}

}  // namespace

Program::Program(forms::Platform& platform) : forms::App(platform) { add<Form12>(named_, "Form12"); }

forms::Form& Program::form_named(const std::string& name) {
    auto it = named_.find(name);
    if (it == named_.end()) throw std::logic_error("no window named " + name);
    return it->second(*this);
}

}  // namespace tv::windows
