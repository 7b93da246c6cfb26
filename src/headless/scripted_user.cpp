// Script lines are read where the program waits for its user; a box takes its answer there and
// then.
#include "headless/scripted_user.h"

#include <algorithm>
#include <chrono>
#include <string_view>
#include <thread>
#include <utility>

namespace headless {
namespace {

constexpr std::string_view answerWord = "answer";
constexpr std::string_view meanwhileWord = "meanwhile";
constexpr std::string_view playingWord = "playing";

bool begins(const std::optional<std::string>& line, std::string_view word) {
    return line && line->starts_with(word) &&
           (line->size() == word.size() || (*line)[word.size()] == ' ');
}

} // namespace

void waitForTimers(const std::function<std::vector<windows::Window*>()>& windows,
                   const std::function<void()>& tick) {
    using namespace std::chrono_literals;
    const auto isRunning = [](const windows::Control* control) {
        return dynamic_cast<const windows::Timer*>(control) != nullptr && control->enabled();
    };
    const auto isBusy = [&](const windows::Window* window) {
        return std::ranges::any_of(window->controls(), isRunning);
    };
    const auto end = std::chrono::steady_clock::now() + 20s;
    while (std::ranges::any_of(windows(), isBusy)) {
        if (std::chrono::steady_clock::now() > end)
            throw BadLine("wait");
        tick();
        // What they wait for may go on in another thread.
        std::this_thread::sleep_for(1ms);
    }
}

ScriptedUser::ScriptedUser(Script& script, Transcript transcript)
    : script_(script), transcript_(std::move(transcript)) {}

std::string ScriptedUser::nextLine() {
    wasWaitedFor_ = true;
    for (;;) {
        const auto line = script_.take();
        if (!line)
            throw ScriptEnd();
        boxes_ = 0;
        if (begins(line, answerWord))
            answers_.push_back(cutWord(*line).second);
        else if (begins(line, meanwhileWord))
            meanwhile_.push_back(cutWord(*line).second);
        else if (begins(line, playingWord))
            playing_.push_back(cutWord(*line).second);
        else
            return *line;
    }
}

std::vector<std::string> ScriptedUser::takeMeanwhile() {
    if (!wasWaitedFor_)
        while (begins(script_.peek(), meanwhileWord))
            meanwhile_.push_back(cutWord(*script_.take()).second);
    return std::exchange(meanwhile_, {});
}

void ScriptedUser::beginsToPlay() {
    for (auto& line : std::exchange(playing_, {}))
        meanwhile_.push_back(std::move(line));
}

std::optional<std::string> ScriptedUser::nextAnswer() {
    if (answers_.empty()) {
        if (!begins(script_.peek(), answerWord))
            return std::nullopt;
        answers_.push_back(cutWord(*script_.take()).second);
        boxes_ = 0;
    }
    auto answer = answers_.front();
    answers_.pop_front();
    return answer;
}

windows::MessageAnswer ScriptedUser::choose(const windows::MessageBox& box) {
    windows::MessageAnswer result{box.defaultButton};
    if (box.buttons.size() < 2)
        return result;
    auto answer = nextAnswer().value_or("");
    const auto line = "answer " + answer;
    for (const auto& [mark, offered, check] :
         {std::tuple('*', box.offersSameForRest, &result.sameForRest),
          std::tuple('+', box.offersRemembering, &result.remember),
          std::tuple('*', box.offersSameForRest, &result.sameForRest)})
        if (answer == std::string(1, mark) || answer.ends_with(std::string(" ") + mark)) {
            *check = offered;
            answer.resize(answer.size() - std::min<std::size_t>(answer.size(), 2));
        }
    if (answer.empty())
        return result;
    const auto button = std::find(box.buttons.begin(), box.buttons.end(), answer);
    if (button == box.buttons.end())
        throw BadLine(line);
    result.button = static_cast<std::size_t>(button - box.buttons.begin());
    return result;
}

std::optional<std::string> ScriptedUser::chooseText() {
    auto answer = nextAnswer();
    if (answer && answer->empty())
        answer.reset();
    return answer;
}

void ScriptedUser::tellOfBox(const Event& event) {
    transcript_(event);
    if (++boxes_ >= mostBoxesInARow)
        throw TooManyBoxes();
}

} // namespace headless
