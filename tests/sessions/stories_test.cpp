// Plays every story of this folder.
#include <algorithm>
#include <cctype>
#include <filesystem>

#include <gtest/gtest.h>

#include "support/story.h"

namespace {

std::vector<std::string> stories() {
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(VEXILLUM_SESSIONS))
        if (entry.path().extension() == ".session")
            files.push_back(entry.path().string());
    std::sort(files.begin(), files.end());
    return files;
}

std::string nameOf(const testing::TestParamInfo<std::string>& info) {
    auto name = std::filesystem::path(info.param).stem().string();
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return !std::isalnum(c); }, '_');
    return name;
}

class Stories : public testing::TestWithParam<std::string> {};

TEST_P(Stories, holds) {
    test::playStory(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Session, Stories, testing::ValuesIn(stories()), nameOf);

} // namespace
