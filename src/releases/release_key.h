// A number that tells what lies in a release, as far as a listing shows it.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "formats/picture.h"
#include "platform/disk.h"

namespace releases {

/// FNV-1a with 64 bits: two releases of one number are not to be met by chance.
class ReleaseKey {
  public:
    /// By its path below the release's folder, its size and the time of its content.
    void add(std::string_view path, const platform::EntryFacts& facts);
    void add(const std::optional<formats::Colours>& colours);
    std::uint64_t value() const { return value_; }

  private:
    void addByte(std::uint8_t byte);
    void addNumber(std::uint64_t number);

    std::uint64_t value_ = 0xCBF29CE484222325;
};

} // namespace releases
