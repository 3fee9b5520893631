// SPDX-License-Identifier: MIT
#include "ui/desktop/qt_progress.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QProgressDialog>
#include <QScopedValueRollback>
#include <memory>

namespace wallgrid {

namespace {

constexpr qint64 kPatienceMilliseconds = 500;
/// How often the dialog is brought up to date.
constexpr qint64 kIntervalMilliseconds = 30;
constexpr int kSteps = 1000;
constexpr int kWidth = 360;

} // namespace

QString QtProgress::text(LongWork kind)
{
    switch (kind) {
    case LongWork::SaveProject:
        return tr("Saving the project…");
    case LongWork::OpenProject:
        return tr("Opening the project…");
    case LongWork::ExportPNG:
        return tr("Exporting the PNG…");
    case LongWork::ExportPSD:
        return tr("Exporting the layered PSD…");
    }
    return {};
}

void QtProgress::run(LongWork kind, const std::function<void(const Report&)>& work)
{
    // An event of the dialog may ask for more work (a file that the desktop wants opened); that goes without.
    if (m_running)
        return work({});
    const QScopedValueRollback<bool> running(m_running, true);

    std::unique_ptr<QProgressDialog> dialog;
    QElapsedTimer clock;
    clock.start();
    qint64 next = kPatienceMilliseconds;
    bool goesOn = true;
    work([&](double done) {
        if (!goesOn || clock.elapsed() < next)
            return goesOn;
        if (!dialog) {
            dialog =
                std::make_unique<QProgressDialog>(text(kind), tr("Cancel"), 0, kSteps, QApplication::activeWindow());
            dialog->setWindowTitle(QApplication::applicationDisplayName());
            dialog->setMinimumWidth(kWidth);
            dialog->setWindowModality(Qt::ApplicationModal);
            dialog->setMinimumDuration(0);
            dialog->setAutoReset(false);
        }
        dialog->setValue(static_cast<int>(done * kSteps));
        QCoreApplication::processEvents();
        next = clock.elapsed() + kIntervalMilliseconds;
        goesOn = !dialog->wasCanceled();
        return goesOn;
    });
}

} // namespace wallgrid
