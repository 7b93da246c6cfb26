// The growable array of strings in which the program keeps every list of names.
#pragma once

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace releases {

/// Entries stand at 1 up to the upper bound, which is also their number. Slot 0 always exists,
/// holds the empty string and is no entry.
class StringArray {
  public:
    StringArray() : slots_(1) {}
    StringArray(std::initializer_list<std::string> entries);

    int upperBound() const { return static_cast<int>(slots_.size()) - 1; }
    bool empty() const { return slots_.size() == 1; }
    /// The slot must exist, 0 included.
    const std::string& operator[](int slot) const { return slots_[static_cast<std::size_t>(slot)]; }

    /// The entries, without slot 0.
    std::span<const std::string> entries() const { return std::span(slots_).subspan(1); }
    /// All slots, slot 0 included.
    std::span<const std::string> slots() const { return slots_; }

    void clear() { slots_.assign(1, {}); }
    void add(std::string text) { slots_.push_back(std::move(text)); }
    void removeSlot(int slot) { slots_.erase(slots_.begin() + slot); }

  private:
    std::vector<std::string> slots_;
};

enum class Duplicates { allowed, refused };

/// Adds at the end. Where duplicates are refused, a text that a slot equals already, case ignored,
/// changes nothing.
void arrayAdd(StringArray& theArray, std::string_view text,
              Duplicates duplicates = Duplicates::allowed);
/// Removes the first entry that equals the text, case ignored. Without one nothing changes, nor for
/// the empty text, which slot 0 holds.
void arrayRemove(StringArray& theArray, std::string_view text);
/// Removes the entry at an index from 1 up; any other index changes nothing.
void arrayRemoveAt(StringArray& theArray, int index);
/// The first slot that equals the text, case ignored, or -1. Slot 0 takes part, so the empty text
/// is always found there.
int arrayFind(const StringArray& theArray, std::string_view text);

} // namespace releases
