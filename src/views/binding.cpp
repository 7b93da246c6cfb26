// Changes are noted at once and shown later.
#include "views/binding.h"

#include <utility>

#include <QDir>
#include <QFile>

#include "platform/text.h"

namespace views {

void Refresher::forget(const Binding* binding) {
    std::erase(dirty_, binding);
    std::erase(putOff_, binding);
}

void Refresher::flush(Pace pace) {
    pace_ = pace;
    if (pace == Pace::pausing)
        for (auto* binding : std::exchange(putOff_, {}))
            binding->changed();
    // A window that begins to rest has its controls shown anew.
    while (!dirty_.empty())
        for (auto* binding : std::exchange(dirty_, {}))
            binding->refresh();
}

Binding::Binding(Refresher& refresher, windows::Element& element, std::function<void()> refresh)
    : refresher_(refresher), element_(element), refresh_(std::move(refresh)) {
    element_.view = this;
    changed();
}

Binding::~Binding() {
    element_.view = nullptr;
    refresher_.forget(this);
}

void Binding::changed() {
    if (std::exchange(dirty_, true))
        return;
    refresher_.add(this);
}

void Binding::refresh() {
    dirty_ = false;
    refresh_();
}

QString shown(std::string_view bytes) {
    return QString::fromStdString(platform::toUtf8(bytes)).replace("\r\n", "\n");
}

std::string nativePath(const QString& path) {
    const auto native = QDir::toNativeSeparators(path);
#ifdef Q_OS_WIN
    // Qt would go by the code page of the user.
    return native.toStdString();
#else
    return QFile::encodeName(native).toStdString();
#endif
}

std::string entered(const QString& text) {
    return QString(text).replace("\n", "\r\n").toStdString();
}

} // namespace views
