// SPDX-License-Identifier: MIT
#include "ui/preview/output_preview.h"

#include <QGuiApplication>
#include <QPointer>
#include <QScreen>
#include <utility>

namespace wallgrid {

namespace {

class PreviewController final : public WindowController {
public:
    explicit PreviewController(OutputPreview* preview)
        : m_preview(preview)
    {
    }
    void showWindow() override
    {
        if (m_preview)
            m_preview->show();
    }

private:
    QPointer<OutputPreview> m_preview;
};

Display displayOf(const QScreen& screen)
{
    const double scale = screen.devicePixelRatio();
    return {screen.name(), (QSizeF(screen.size()) * scale).toSize(), scale};
}

QScreen* screenNamed(const QString& name)
{
    for (QScreen* screen : QGuiApplication::screens()) {
        if (screen->name() == name)
            return screen;
    }
    return nullptr;
}

} // namespace

OutputPreview::OutputPreview(const QWidget& owner)
    : m_owner(owner)
{
    connect(&m_window, &RasterWindow::leaveWanted, this, &OutputPreview::leave);
    connect(qApp, &QGuiApplication::screenAdded, this, &OutputPreview::screenAdded);
    connect(qApp, &QGuiApplication::screenRemoved, this, &OutputPreview::screenRemoved);
    for (QScreen* screen : QGuiApplication::screens())
        follow(screen);
}

std::shared_ptr<WindowController> OutputPreview::windowControllerWithNibName(std::string_view)
{
    return std::make_shared<PreviewController>(this);
}

void OutputPreview::setImage(const ImageRef& image)
{
    m_window.setImage(image);
    const BitmapRef raster = image ? image->firstRepresentation() : nullptr;
    const QSize output = raster ? QSize(raster->width(), raster->height()) : QSize();
    if (std::exchange(m_output, output) != output) {
        showNote();
        emit changed();
    }
}

QList<Display> OutputPreview::displays() const
{
    QList<Display> displays;
    for (const QScreen* screen : QGuiApplication::screens())
        displays.append(displayOf(*screen));
    return displays;
}

QString OutputPreview::display() const
{
    if (screenNamed(m_chosen))
        return m_chosen;
    for (const QScreen* screen : QGuiApplication::screens()) {
        if (screen != m_owner.screen())
            return screen->name();
    }
    return m_owner.screen()->name();
}

void OutputPreview::show()
{
    m_shownOn = display();
    if (!m_wake)
        m_wake.emplace(tr("Output Preview"));
    present(*screenNamed(m_shownOn), RasterWindow::Keyboard::Take);
    emit changed();
}

void OutputPreview::present(QScreen& screen, RasterWindow::Keyboard keyboard)
{
    m_window.showOn(screen, keyboard);
    showNote();
}

void OutputPreview::showNote()
{
    const QScreen* screen = screenNamed(m_shownOn);
    if (!screen)
        return;
    const bool needed = screen == m_owner.screen() || !showsExactly(displayOf(*screen), m_output);
    m_window.showNote(needed ? report() + '\n' + tr("Esc ends it") : QString());
}

void OutputPreview::leave()
{
    m_shownOn.clear();
    m_wake.reset();
    m_window.hide();
    emit changed();
}

QString OutputPreview::report() const
{
    if (!isActive())
        return {};
    const QScreen* screen = screenNamed(m_shownOn);
    if (!screen || !m_window.isVisible())
        return tr("The display %1 is gone. The Output Preview comes back with it.").arg(m_shownOn);
    return displayFit(displayOf(*screen), m_output);
}

void OutputPreview::follow(QScreen* screen)
{
    connect(screen, &QScreen::geometryChanged, this, [this, screen] {
        if (screen->name() == m_shownOn)
            present(*screen, RasterWindow::Keyboard::Leave);
        emit changed();
    });
}

void OutputPreview::screenAdded(QScreen* screen)
{
    follow(screen);
    if (screen->name() == m_shownOn)
        present(*screen, RasterWindow::Keyboard::Leave);
    emit changed();
}

void OutputPreview::screenRemoved(QScreen* screen)
{
    // Before the desktop puts the window onto another display, where nobody wants it.
    if (screen->name() == m_shownOn)
        m_window.hide();
    emit changed();
}

} // namespace wallgrid
