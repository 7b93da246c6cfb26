// Plays every story of tests/sessions on the real windows.
#include <gtest/gtest.h>

#include "support/story.h"
#include "views/support/qt_session.h"

namespace {

std::unique_ptr<windows::Toolkit> onWidgets(headless::Script& script,
                                            headless::Transcript transcript) {
    return std::make_unique<test::QtSessionToolkit>(script, std::move(transcript));
}

class WidgetStories : public testing::TestWithParam<std::string> {};

TEST_P(WidgetStories, holds) {
    test::playStory(GetParam(), onWidgets);
}

INSTANTIATE_TEST_SUITE_P(Session, WidgetStories, testing::ValuesIn(test::stories()),
                         test::storyName);

} // namespace
