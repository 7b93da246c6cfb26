// The settings of Windows, by its registry.
#include "dark_desktop.h"

#include <QSettings>

namespace views {

bool settingsSayDark() {
    const QSettings personal(
        R"(HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Themes\Personalize)",
        QSettings::NativeFormat);
    return personal.value("AppsUseLightTheme", 1).toInt() == 0;
}

} // namespace views
