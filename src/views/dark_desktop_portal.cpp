// The settings of Linux desktops, by their portal.
#include "dark_desktop.h"

#include <QDBusInterface>
#include <QDBusReply>

namespace views {

bool settingsSayDark() {
    if (!QDBusConnection::sessionBus().isConnected())
        return false;
    QDBusInterface portal("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
                          "org.freedesktop.portal.Settings");
    portal.setTimeout(300);
    const QDBusReply<QVariant> reply =
        portal.call("Read", "org.freedesktop.appearance", "color-scheme");
    if (!reply.isValid())
        return false;
    auto value = reply.value();
    while (value.userType() == qMetaTypeId<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    // 1 stands for dark.
    return value.toUInt() == 1;
}

} // namespace views
