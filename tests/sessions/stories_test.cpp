// Plays every story of this folder without a screen.
#include <gtest/gtest.h>

#include "support/story.h"

namespace {

class Stories : public testing::TestWithParam<std::string> {};

TEST_P(Stories, holds) {
    test::playStory(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Session, Stories, testing::ValuesIn(test::stories()), test::storyName);

} // namespace
