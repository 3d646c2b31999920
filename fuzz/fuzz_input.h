#pragma once
// What every fuzz target shares: the input as text, and the failures a reader may raise.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "text/runtime_error.h"

namespace tv::fuzz {

inline std::string_view as_text(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// Runs `read`; a run-time error of the program (a number it reports) is an answer, anything
/// else that escapes is a finding.
template <class Read>
void answers(Read&& read) {
    try {
        read();
    } catch (const text::RuntimeError&) {
    }
}

}  // namespace tv::fuzz
