// The two things that are thrown: a failure of one call, and the end of the program.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace platform {

/// A call to the machine that did not do what it was asked. The text names call, path and reason.
class Failure : public std::runtime_error {
  public:
    Failure(std::string_view call, std::string_view path, std::string_view reason);

    /// The machine's own words on why, without call and path.
    const std::string& reason() const { return reason_; }

  private:
    std::string reason_;
};

/// Thrown to end the program at once. It is no std::exception, so nothing that goes on after a
/// failure can swallow it.
struct ProgramEnd {};

/// Runs one step and passes over its failure. Tells whether the step worked.
template <typename Step>
bool attempt(Step&& step) {
    try {
        step();
        return true;
    } catch (const Failure&) {
        return false;
    }
}

} // namespace platform
