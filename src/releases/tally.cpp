// Folders wait on a stack; what cannot be listed counts as empty.
#include "releases/tally.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <utility>

#include "platform/failure.h"
#include "platform/text.h"

namespace releases {
namespace {

constexpr std::int64_t second = 1'000'000'000;

std::string dateText(std::int64_t time) {
    const std::chrono::sys_seconds moment{std::chrono::seconds(time)};
    const std::chrono::year_month_day day(std::chrono::floor<std::chrono::days>(moment));
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02u", static_cast<int>(day.year()),
                  static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()));
    return text.data();
}

} // namespace

std::string sizeText(std::uint64_t bytes) {
    constexpr std::array<const char*, 4> units = {"KB", "MB", "GB", "TB"};
    constexpr double step = 1024;
    if (bytes < 1000)
        return std::to_string(bytes) + (bytes == 1 ? " byte" : " bytes");
    auto size = static_cast<double>(bytes) / step;
    std::size_t unit = 0;
    while (size >= 1000 && unit + 1 < units.size()) {
        size /= step;
        ++unit;
    }
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), size < 10 ? "%.1f %s" : "%.0f %s", size, units[unit]);
    return text.data();
}

Tally::Tally(platform::Disk& disk, std::vector<std::string> paths)
    : disk_(&disk), left_(std::move(paths)) {}

bool Tally::step(int entries) {
    for (; entries > 0 && !left_.empty(); --entries)
        look();
    return !left_.empty();
}

void Tally::look() {
    const auto path = std::move(left_.back());
    left_.pop_back();
    const auto facts = disk_->factsOf(path);
    if (facts.kind == platform::EntryKind::file) {
        ++files_;
        bytes_ += facts.size;
        newest_ = std::max(newest_, facts.modified / second);
    } else if (facts.kind == platform::EntryKind::folder) {
        platform::attempt([&] {
            const auto names = disk_->list(path);
            for (const auto* kind : {&names.folders, &names.files})
                for (const auto& name : *kind)
                    left_.push_back(path + "\\" + name);
        });
    }
}

std::string Tally::text() const {
    if (files_ == 0)
        return "No files";
    return platform::withSeparators(files_) + (files_ == 1 ? " file, " : " files, ") +
           sizeText(bytes_) + (newest_ > 0 ? ", " + dateText(newest_) : "");
}

} // namespace releases
