#pragma once
// The run-time error number that a call throws, 0 when it throws none.
#include "text/runtime_error.h"

namespace tv::test {

int error_of(auto&& f) {
    try {
        f();
    } catch (const text::RuntimeError& e) {
        return e.number();
    }
    return 0;
}

}  // namespace tv::test
