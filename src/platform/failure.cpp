// The text of a failure.
#include "platform/failure.h"

namespace platform {

Failure::Failure(std::string_view call, std::string_view path, std::string_view reason)
    : std::runtime_error(std::string(call) + " " + std::string(path) + ": " + std::string(reason)),
      reason_(reason) {}

Failure::Failure(std::string_view call, std::string_view path, std::error_code code)
    : Failure(call, path, code.message()) {
    code_ = code;
}

} // namespace platform
