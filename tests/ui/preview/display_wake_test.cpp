// SPDX-License-Identifier: MIT
#include "ui/preview/display_wake.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QProcess>
#include <QtTest>
#include <optional>

using namespace wallgrid;

/// What a desktop offers, on a bus of the test's own.
class ScreenSaver : public QObject, public QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.ScreenSaver")

public:
    QStringList asked;
    QString asker;

public slots:
    uint Inhibit(const QString& program, const QString& reason) // NOLINT: the name is the interface's
    {
        asked.append(program + ": " + reason);
        asker = message().service();
        return 1;
    }
};

class DisplayWakeTest : public QObject {
    Q_OBJECT

private slots:
    void theDesktopIsAskedAndLetGo()
    {
        QProcess daemon;
        daemon.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
        QVERIFY(daemon.waitForReadyRead());
        const QByteArray address = daemon.readLine().trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        auto desktop = QDBusConnection::connectToBus(QString::fromLatin1(address), "desktop");
        ScreenSaver saver;
        QVERIFY(desktop.registerObject("/org/freedesktop/ScreenSaver", &saver, QDBusConnection::ExportAllSlots));
        QVERIFY(desktop.registerService("org.freedesktop.ScreenSaver"));

        std::optional<DisplayWake> wake(std::in_place, "Show");
        QTRY_COMPARE(saver.asked, QStringList{QCoreApplication::applicationName() + ": Show"});
        QDBusServiceWatcher watcher(saver.asker, desktop);
        QSignalSpy gone(&watcher, &QDBusServiceWatcher::serviceUnregistered);
        QCOMPARE(gone.count(), 0);
        wake.reset();
        QTRY_COMPARE(gone.count(), 1); // which ends the request
        QDBusConnection::disconnectFromBus("desktop");
        daemon.terminate();
        QVERIFY(daemon.waitForFinished());
    }
};

QTEST_MAIN(DisplayWakeTest)
#include "display_wake_test.moc"
