// The toolkit's calls on Qt.
#include "views/qt_toolkit.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QGridLayout>
#include <QInputDialog>
#include <QMessageBox>
#include <QSaveFile>
#include <QScreen>
#include <QSettings>
#include <QWindow>

#include "platform/failure.h"
#include "views/window_view.h"

namespace views {
namespace {

/// How often long work lets the windows live: more often than that a person cannot tell.
constexpr auto betweenEvents = std::chrono::milliseconds(20);

/// Patterns in turn with their captions, as the file dialog of Qt wants them.
QString nameFilters(const std::string& filter) {
    const auto parts = shown(filter).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const auto caption = parts[i].section(" (", 0, 0);
        filters << caption + " (" + QString(parts[i + 1]).replace("*.*", "*") + ")";
    }
    return filters.join(";;");
}

/// To go without an answer is to say No, or what stands last.
std::size_t answerOfEscape(const std::vector<std::string>& buttons) {
    const auto no = std::find(buttons.begin(), buttons.end(), "No");
    return no == buttons.end() ? buttons.size() - 1
                               : static_cast<std::size_t>(no - buttons.begin());
}

/// A box has room for one check of its own; the other one goes between that and the buttons.
void addBelowText(QMessageBox& box, QCheckBox& check) {
    auto* rows = qobject_cast<QGridLayout*>(box.layout());
    auto* buttons = box.findChild<QDialogButtonBox*>();
    if (rows == nullptr || buttons == nullptr)
        return;
    const int row = rows->rowCount();
    const int textColumn = rows->columnCount() - 1;
    rows->removeWidget(buttons);
    rows->addWidget(&check, row, textColumn);
    rows->addWidget(buttons, row + 1, 0, 1, rows->columnCount());
}

QMessageBox::Icon iconOf(const windows::MessageBox& box) {
    if (box.buttons.size() > 1)
        return QMessageBox::Question;
    return box.warns || !box.detail.empty() ? QMessageBox::Warning : QMessageBox::NoIcon;
}

} // namespace

QtToolkit::QtToolkit() = default;
QtToolkit::~QtToolkit() = default;

WindowView* QtToolkit::viewOf(windows::Window& window) {
    load(window);
    return views_.at(&window).get();
}

void QtToolkit::load(windows::Window& window) {
    if (views_.contains(&window))
        return;
    auto view = makeView(window, *this);
    if (mainView_ == nullptr)
        mainView_ = view.get();
    views_.emplace(&window, std::move(view));
}

void QtToolkit::unload(windows::Window& window) {
    input_.forget(window);
    const auto view = views_.find(&window);
    if (view == views_.end())
        return;
    if (view->second.get() == mainView_)
        mainView_ = nullptr;
    // Qt deletes the children of a widget with it, but these have an owner.
    for (const auto& other : views_)
        if (other.second->parentWidget() == view->second.get())
            other.second->setParent(nullptr);
    views_.erase(view);
}

void QtToolkit::open(windows::Window& window, Qt::WindowModality modality) {
    auto* view = viewOf(window);
    window.setVisible(true);
    input_.opened(window, modality != Qt::NonModal);
    refresher_.flush(Pace::pausing);
    view->setWindowModality(modality);
    const bool isFirst = view == mainView_ && !view->testAttribute(Qt::WA_WState_Created);
    const bool hasOldPlace = isFirst && view->takeOldPlace();
    putOverOwner(*view);
    if (!hasOldPlace || !isOnScreen(*view))
        keepOnScreen(*view);
    view->show();
}

/// An old place is that of the window without its frame, so nothing is added here.
bool QtToolkit::isOnScreen(const WindowView& view) {
    const auto place = view.geometry();
    const auto* screen = QApplication::screenAt(place.center());
    return view.isMaximized() || (screen != nullptr && screen->availableGeometry().contains(place));
}

/// No window is larger than what the screen has free, or reaches out of it.
void QtToolkit::keepOnScreen(WindowView& view) {
    constexpr QSize frame(8, 40); ///< about what a window manager adds
    const auto* screen = QApplication::screenAt(view.geometry().center());
    const auto room = (screen != nullptr ? screen : view.screen())->availableGeometry();
    const auto most = (room.size() - frame).expandedTo(view.minimumSize());
    view.resize(view.size().boundedTo(most));
    if (view.pos().isNull())
        return;
    view.move(std::clamp(view.x(), room.left(), std::max(room.left(), room.right() - view.width())),
              std::clamp(view.y(), room.top(),
                         std::max(room.top(), room.bottom() - view.height() - frame.height())));
}

void QtToolkit::rememberIn(const std::string& file) {
    memory_ = std::make_unique<QSettings>(shown(file), QSettings::IniFormat);
    lastFolder_ = memory_->value("dialogs/folder").toString();
}

void QtToolkit::show(windows::Window& window) {
    open(window, Qt::NonModal);
    viewOf(window)->activateWindow();
    processEvents(false);
}

/// Every window but the first belongs over that one, or over the wizard that stands over it.
void QtToolkit::putOverOwner(WindowView& view) {
    if (mainView_ == nullptr || mainView_ == &view)
        return;
    QWidget* owner = qobject_cast<WindowView*>(QApplication::activeModalWidget());
    if (owner == nullptr || owner == &view)
        owner = mainView_;
    if (view.parentWidget() != owner)
        view.setParent(owner, view.windowFlags() | Qt::Window);
    // Qt would tell the window manager of a base size of -1, which one of them takes for 65535.
    view.winId();
    view.windowHandle()->setBaseSize(QSize(0, 0));
    // Over a window that is empty yet it would look lost.
    const auto below =
        mainView_->isFilled() ? owner->geometry() : view.screen()->availableGeometry();
    view.move(below.center() - view.rect().center());
}

void QtToolkit::raise() {
    QWidget* front = QApplication::activeModalWidget();
    if (front == nullptr)
        front = mainView_;
    if (mainView_ == nullptr || front == nullptr)
        return;
    bringToFront(*mainView_);
    bringToFront(*front);
    front->activateWindow();
}

void QtToolkit::bringToFront(QWidget& window) {
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.raise();
}

void QtToolkit::minimize(windows::Window& window) {
    processEvents(false);
    viewOf(window)->showMinimized();
}

/// Where the desktop lets no window come to the front by itself, it asks for attention.
void QtToolkit::restore(windows::Window& window) {
    auto* view = viewOf(window);
    bringToFront(*view);
    view->activateWindow();
    QApplication::alert(view);
    processEvents(false);
}

void QtToolkit::closeMain() {
    if (mainView_ != nullptr)
        mainView_->close();
}

void QtToolkit::hide(windows::Window& window) {
    window.setVisible(false);
    input_.closed(window);
    viewOf(window)->hide();
}

void QtToolkit::showModal(windows::Window& window) {
    open(window, Qt::ApplicationModal);
    while (window.visible())
        waitForUser();
}

/// Between two boxes no window is active, but a modal one stays what all else stands over.
QWidget* QtToolkit::boxParent() const {
    if (auto* modal = QApplication::activeModalWidget())
        return modal;
    if (auto* active = QApplication::activeWindow())
        return active;
    return mainView_ != nullptr && mainView_->isVisible() ? mainView_ : nullptr;
}

windows::MessageAnswer QtToolkit::showMessage(const windows::MessageBox& box) {
    refresher_.flush(Pace::pausing);
    QMessageBox dialog(boxParent());
    dialog.setObjectName("messageBox");
    dialog.setWindowTitle(shown(box.title));
    dialog.setTextFormat(Qt::PlainText);
    dialog.setText(shown(box.text));
    dialog.setInformativeText(shown(box.detail));
    dialog.setTextInteractionFlags(Qt::TextSelectableByMouse);
    std::vector<QPushButton*> buttons;
    for (const auto& caption : box.buttons)
        buttons.push_back(dialog.addButton("&" + shown(caption), QMessageBox::ActionRole));
    dialog.setDefaultButton(buttons[box.defaultButton]);
    dialog.setEscapeButton(buttons[answerOfEscape(box.buttons)]);
    dialog.setIcon(iconOf(box));
    QCheckBox same("&Do the same for the rest");
    if (box.offersSameForRest)
        dialog.setCheckBox(&same);
    QCheckBox remember("&Remember this");
    remember.setObjectName("remember");
    if (box.offersRemembering)
        addBelowText(dialog, remember);
    dialog.exec();
    remember.setParent(nullptr);
    const auto at = std::find(buttons.begin(), buttons.end(), dialog.clickedButton());
    const bool isAnswered = at != buttons.end();
    const bool sameForRest = box.offersSameForRest && same.isChecked();
    if (box.offersSameForRest)
        dialog.setCheckBox(nullptr);
    return {isAnswered ? static_cast<std::size_t>(at - buttons.begin()) : box.defaultButton,
            sameForRest, box.offersRemembering && remember.isChecked()};
}

std::optional<std::string> QtToolkit::askForText(const windows::InputBox& box) {
    refresher_.flush(Pace::pausing);
    bool accepted = false;
    const auto text = QInputDialog::getText(boxParent(), shown(box.title), shown(box.text),
                                            QLineEdit::Normal, shown(box.preset), &accepted);
    return accepted ? std::optional(entered(text)) : std::nullopt;
}

/// A dialog begins where it is told to, or else where the last one ended.
QString QtToolkit::folderFor(const windows::FileDialog& dialog) const {
    return dialog.folder.empty() ? lastFolder_ : shown(dialog.folder);
}

void QtToolkit::noteFolder(const QString& folder) {
    lastFolder_ = folder;
    if (memory_ != nullptr)
        memory_->setValue("dialogs/folder", folder);
}

std::optional<std::string> QtToolkit::askForFile(const windows::FileDialog& dialog) {
    refresher_.flush(Pace::pausing);
    const auto path = QFileDialog::getOpenFileName(boxParent(), shown(dialog.title),
                                                   folderFor(dialog), nameFilters(dialog.filter));
    if (path.isEmpty())
        return std::nullopt;
    noteFolder(QFileInfo(path).path());
    return nativePath(path);
}

std::vector<std::string> QtToolkit::askForFiles(const windows::FileDialog& dialog) {
    refresher_.flush(Pace::pausing);
    std::vector<std::string> files;
    for (const auto& path : QFileDialog::getOpenFileNames(
             boxParent(), shown(dialog.title), folderFor(dialog), nameFilters(dialog.filter))) {
        noteFolder(QFileInfo(path).path());
        files.push_back(nativePath(path));
    }
    return files;
}

std::optional<std::string> QtToolkit::askForFolder(const windows::FileDialog& dialog) {
    refresher_.flush(Pace::pausing);
    const auto path =
        QFileDialog::getExistingDirectory(boxParent(), shown(dialog.title), folderFor(dialog));
    if (path.isEmpty())
        return std::nullopt;
    noteFolder(QFileInfo(path).path());
    return nativePath(path);
}

std::string QtToolkit::saveText(const windows::FileDialog& dialog, const std::string& name,
                                const std::string& text) {
    refresher_.flush(Pace::pausing);
    QFileDialog box(boxParent(), shown(dialog.title), folderFor(dialog),
                    nameFilters(dialog.filter));
    box.setAcceptMode(QFileDialog::AcceptSave);
    box.setFileMode(QFileDialog::AnyFile);
    box.selectFile(shown(name));
    box.setDefaultSuffix(QFileInfo(shown(name)).suffix());
    if (box.exec() != QDialog::Accepted || box.selectedFiles().isEmpty())
        return {};
    const auto path = box.selectedFiles().front();
    noteFolder(QFileInfo(path).path());
    QSaveFile file(path);
    const auto bytes = QByteArray::fromStdString(text);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit())
        return {};
    return nativePath(path) + ": " + file.errorString().toStdString();
}

void QtToolkit::setClipboard(const std::string& text) {
    QApplication::clipboard()->setText(shown(text));
}

windows::Input::Fate QtToolkit::post(windows::Action action) {
    return input_.offer(std::move(action), moment_);
}

void QtToolkit::processEvents(bool wait) {
    refresher_.flush(wait ? Pace::pausing : Pace::working);
    QCoreApplication::processEvents(wait ? QEventLoop::WaitForMoreEvents : QEventLoop::AllEvents);
    lastEvents_ = std::chrono::steady_clock::now();
}

void QtToolkit::whileWaiting(const std::function<void()>& call) {
    moment_ = windows::Input::Moment::waiting;
    call();
    moment_ = windows::Input::Moment::working;
}

void QtToolkit::doEvents() {
    if (std::chrono::steady_clock::now() - lastEvents_ < betweenEvents)
        return;
    processEvents(false);
    input_.runTicks();
}

void QtToolkit::waitForUser() {
    while (!input_.runNext()) {
        whileWaiting([this] { processEvents(true); });
        input_.runTicks();
    }
}

void QtToolkit::waitForTimer() {
    if (input_.runTicks())
        return;
    processEvents(true);
    input_.runTicks();
}

} // namespace views
