// SPDX-License-Identifier: MIT
#include "ui/preview/display_wake.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QGuiApplication>

namespace wallgrid {

namespace {

/// A connection of its own: a request holds until the connection that made it ends, so nothing has to be remembered.
constexpr auto kConnection = "wallgrid-display-wake";

} // namespace

DisplayWake::DisplayWake(const QString& reason)
{
    // Without an address the library would start a bus, on which nobody listens.
    if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
        return;
    auto request = QDBusMessage::createMethodCall("org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver",
                                                  "org.freedesktop.ScreenSaver", "Inhibit");
    request.setArguments({QGuiApplication::applicationDisplayName(), reason});
    QDBusConnection::connectToBus(QDBusConnection::SessionBus, kConnection).send(request);
}

DisplayWake::~DisplayWake()
{
    QDBusConnection::disconnectFromBus(kConnection);
}

} // namespace wallgrid
