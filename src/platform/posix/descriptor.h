// What the system hands out as a number, closed with its owner.
#pragma once

#include <cerrno>
#include <system_error>
#include <utility>

#include <unistd.h>

namespace platform::posix {

class Descriptor {
  public:
    explicit Descriptor(int number = -1) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number_ >= 0)
            ::close(number_);
    }
    int get() const { return number_; }
    int release() { return std::exchange(number_, -1); }
    explicit operator bool() const { return number_ >= 0; }

  private:
    int number_;
};

inline std::error_code lastError() {
    return {errno, std::system_category()};
}

/// What a call that gives back 0 or -1 says.
inline std::error_code errorOf(int result) {
    return result == 0 ? std::error_code() : lastError();
}

} // namespace platform::posix
