// The two things that are thrown: a failure of one call, and the end of the program.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

namespace platform {

/// A call to the machine that did not do what it was asked. The text, "call path: reason", is for
/// people, with the path as they see it: nothing is to be read back out of it.
class Failure : public std::runtime_error {
  public:
    Failure(std::string_view call, std::string_view path, std::string_view reason);
    /// The reason in the system's own words.
    Failure(std::string_view call, std::string_view path, std::error_code code);

    /// The machine's own words on why, without call and path.
    const std::string& reason() const { return reason_; }

    /// The system's code; none where a reason was given in words.
    const std::error_code& code() const { return code_; }

    /// Tells the kinds of failure apart, on every system alike: no_such_file_or_directory,
    /// file_exists, cross_device_link, not_supported, no_space_on_device, permission_denied,
    /// device_or_resource_busy, io_error, read_only_file_system and the like.
    bool is(std::errc kind) const { return code_ == kind; }

  private:
    std::string reason_;
    std::error_code code_;
};

/// Thrown to end the program at once. It is no std::exception, so nothing that goes on after a
/// failure can swallow it.
struct ProgramEnd {};

/// Runs one step and passes over its failure. Tells whether the step worked. Whatever else is
/// thrown goes through, the end of the program above all.
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
