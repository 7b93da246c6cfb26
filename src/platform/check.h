// From an error of the raw disk to a failure that names call and path.
#pragma once

#include <string_view>
#include <system_error>

#include "platform/disk.h"
#include "platform/failure.h"

namespace platform {

[[noreturn]] inline void fail(std::string_view call, std::string_view path, std::error_code error) {
    throw Failure(call, shownPath(path), error);
}

[[noreturn]] inline void fail(std::string_view call, std::string_view path, std::errc error) {
    fail(call, path, std::make_error_code(error));
}

inline void check(std::error_code error, std::string_view call, std::string_view path) {
    if (error)
        fail(call, path, error);
}

/// Runs a step, and what takes its traces away where it throws. No destructor does that: taking
/// away can fail too, and a test's power cut is thrown through it.
template <typename Step, typename Undo>
auto orUndo(Step&& step, Undo&& undo) {
    try {
        return step();
    } catch (...) {
        undo();
        throw;
    }
}

} // namespace platform
