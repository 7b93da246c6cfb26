// The script's user sits before the widgets; what they make of it comes back through `post`.
#include "views/support/qt_session.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest.h>

#include "views/support/widget_hands.h"
#include "views/support/widget_state.h"
#include "views/window_view.h"

namespace test {
namespace {

using views::shown;

/// Looks at the box that is open and presses the button.
void answerBox(const windows::MessageBox& box, const windows::MessageAnswer& answer) {
    auto* dialog = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->text(), shown(box.text));
    EXPECT_EQ(dialog->informativeText(), shown(box.detail));
    const auto buttons = dialog->buttons();
    if (static_cast<std::size_t>(buttons.size()) != box.buttons.size()) {
        ADD_FAILURE() << "there are " << buttons.size() << " buttons";
        return dialog->done(0);
    }
    for (std::size_t i = 0; i < box.buttons.size(); ++i)
        EXPECT_EQ(buttons[static_cast<qsizetype>(i)]->text(), "&" + shown(box.buttons[i]));
    EXPECT_EQ(dialog->defaultButton(), buttons[static_cast<qsizetype>(box.defaultButton)]);
    EXPECT_EQ(dialog->checkBox() != nullptr, box.offersSameForRest);
    if (answer.sameForRest)
        dialog->checkBox()->setChecked(true);
    auto* remember = dialog->findChild<QCheckBox*>("remember");
    EXPECT_EQ(remember != nullptr, box.offersRemembering);
    if (answer.remember)
        remember->setChecked(true);
    buttons[static_cast<qsizetype>(answer.button)]->click();
}

void answerInput(const windows::InputBox& box, const std::optional<std::string>& answer) {
    auto* dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->labelText(), shown(box.text));
    EXPECT_EQ(dialog->textValue(), shown(box.preset));
    if (answer)
        dialog->setTextValue(shown(*answer));
    dialog->done(answer ? QDialog::Accepted : QDialog::Rejected);
}

/// A person cannot reach what lies below a modal window.
bool isBlocked(const QWidget& view) {
    const auto* modal = QApplication::activeModalWidget();
    return modal != nullptr && modal != &view && !modal->isAncestorOf(&view) &&
           view.parentWidget() != modal;
}

} // namespace

QtSessionToolkit::QtSessionToolkit(headless::Script& script, headless::Transcript transcript)
    : user_(script, std::move(transcript)) {}

void QtSessionToolkit::show(windows::Window& window) {
    QtToolkit::show(window);
    user_.tell(headless::showEvent(window, false));
}

void QtSessionToolkit::hide(windows::Window& window) {
    const bool wasVisible = window.visible();
    QtToolkit::hide(window);
    if (wasVisible)
        user_.tell(headless::hideEvent(window));
}

void QtSessionToolkit::minimize(windows::Window& window) {
    QtToolkit::minimize(window);
    EXPECT_TRUE(viewOf(window)->isMinimized());
    user_.tell(headless::minimizeEvent(window));
    user_.beginsToPlay();
}

void QtSessionToolkit::restore(windows::Window& window) {
    QtToolkit::restore(window);
    EXPECT_FALSE(viewOf(window)->isMinimized());
    user_.tell(headless::restoreEvent(window));
}

void QtSessionToolkit::showModal(windows::Window& window) {
    user_.tell(headless::showEvent(window, true));
    QtToolkit::showModal(window);
}

windows::MessageAnswer QtSessionToolkit::showMessage(const windows::MessageBox& box) {
    const auto wanted = user_.choose(box);
    QTimer::singleShot(0, [&] { answerBox(box, wanted); });
    const auto given = QtToolkit::showMessage(box);
    EXPECT_EQ(given.sameForRest, wanted.sameForRest);
    user_.tellOfBox(headless::messageEvent(box, given));
    return given;
}

std::optional<std::string> QtSessionToolkit::askForText(const windows::InputBox& box) {
    const auto wanted = user_.chooseText();
    QTimer::singleShot(0, [&] { answerInput(box, wanted); });
    auto given = QtToolkit::askForText(box);
    user_.tellOfBox(headless::inputEvent(box, given));
    return given;
}

std::optional<std::string> QtSessionToolkit::askForFile(const windows::FileDialog& dialog) {
    auto answer = user_.chooseText();
    user_.tellOfBox(headless::fileDialogEvent(dialog, answer));
    return answer;
}

std::vector<std::string> QtSessionToolkit::askForFiles(const windows::FileDialog& dialog) {
    if (auto file = askForFile(dialog))
        return {std::move(*file)};
    return {};
}

std::optional<std::string> QtSessionToolkit::askForFolder(const windows::FileDialog& dialog) {
    return askForFile(dialog);
}

std::string QtSessionToolkit::saveText(const windows::FileDialog& dialog,
                                       const std::string& /*name*/, const std::string& /*text*/) {
    askForFile(dialog);
    return {};
}

void QtSessionToolkit::setClipboard(const std::string& text) {
    QtToolkit::setClipboard(text);
    EXPECT_EQ(QApplication::clipboard()->text(), shown(text));
    user_.tell(headless::clipboardEvent(text));
}

void QtSessionToolkit::logged(const std::string& line) {
    user_.tell(headless::logEvent(line));
}

windows::Input::Fate QtSessionToolkit::post(windows::Action action) {
    const auto fate = QtToolkit::post(std::move(action));
    tookEffect_ = tookEffect_ || fate != windows::Input::Fate::refused;
    return fate;
}

bool QtSessionToolkit::takesEffect(const headless::Gesture& gesture) {
    auto& view = *viewOf(*gesture.window);
    tookEffect_ = false;
    if (!isBlocked(view))
        perform(gesture, view);
    return tookEffect_;
}

void QtSessionToolkit::tryMeanwhile() {
    for (const auto& line : user_.takeMeanwhile()) {
        const auto gesture = headless::meanwhileGesture(line, input().open());
        refresher().flush(views::Pace::pausing);
        if (!takesEffect(gesture))
            user_.tell(headless::refusedEvent(line));
    }
}

void QtSessionToolkit::doEvents() {
    tryMeanwhile();
    QtToolkit::doEvents();
}

void QtSessionToolkit::waitForUser() {
    if (!input().runNext())
        carryOut(user_.nextLine());
}

void QtSessionToolkit::carryOut(const std::string& line) {
    if (line == "dump")
        return dump();
    const auto& open = input().open();
    if (line == "wait")
        return headless::waitForTimers([&] { return open; }, [this] { waitForTimer(); });
    if (open.empty())
        throw headless::BadLine(line);
    const auto gesture = headless::gestureOf(line, {open.back()});
    if (!input().takes(*gesture.window, gesture.control))
        throw headless::BadLine(line);
    whileWaiting([&] {
        viewOf(*gesture.window)->activateWindow();
        processEvents(false);
        // What is typed is in the box by then; only some boxes tell that they were left.
        const bool ends = takesEffect(gesture) || gesture.kind == headless::Gesture::Kind::type ||
                          (gesture.control != nullptr && gesture.control->idle());
        EXPECT_TRUE(ends) << line << ": nothing came of it";
    });
}

void QtSessionToolkit::dump() {
    processEvents(false);
    user_.tell(headless::stateEvent(input().open()));
    for (auto* window : input().open())
        for (const auto& mismatch : mismatches(*window, *viewOf(*window)))
            ADD_FAILURE() << window->name() << ": " << mismatch;
}

/// The timers of the widgets, with nothing left to wait for.
void QtSessionToolkit::waitForTimer() {
    tryMeanwhile();
    refresher().flush(views::Pace::pausing);
    for (auto* window : input().open())
        for (const auto* control : window->controls()) {
            const auto name = QString::fromStdString(control->name());
            if (auto* timer = viewOf(*window)->findChild<QTimer*>(name))
                timer->setInterval(0);
        }
    QtToolkit::waitForTimer();
}

} // namespace test
