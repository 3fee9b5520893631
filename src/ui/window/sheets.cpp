// SPDX-License-Identifier: MIT
#include "ui/window/sheets.h"

#include "ui/base/heading.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QImageReader>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace wallgrid {

namespace {

/// Ends the dialog when it is let go; the dialog's window may have ended before.
class DialogSheet final : public Sheet {
public:
    explicit DialogSheet(QDialog* dialog)
        : m_dialog(dialog)
    {
    }
    ~DialogSheet() override
    {
        // Later, because it may be one of the dialog's own buttons that is at work.
        if (m_dialog)
            m_dialog->deleteLater();
    }
    DialogSheet(const DialogSheet&) = delete;
    DialogSheet& operator=(const DialogSheet&) = delete;

    void begin() override { m_dialog->open(); }
    void end() override
    {
        if (m_dialog)
            m_dialog->hide();
    }

private:
    QPointer<QDialog> m_dialog;
};

QString imageFilter()
{
    QStringList patterns;
    for (const QByteArray& format : QImageReader::supportedImageFormats())
        patterns.append("*." + QString::fromLatin1(format));
    return Sheets::tr("Images (%1)").arg(patterns.join(u' '));
}

QPushButton* addChoice(QGridLayout& choices, const QString& text, const QString& description)
{
    auto* button = new QPushButton(text);
    button->setAccessibleDescription(description);
    const int row = choices.rowCount();
    choices.addWidget(button, row, 0);
    choices.addWidget(new QLabel(description), row, 1);
    return button;
}

} // namespace

Sheets::Sheets(GXAppDelegate& delegate, NewLayers& newLayers, QWidget& window)
    : m_delegate(delegate)
    , m_newLayers(newLayers)
    , m_window(window)
{
}

std::shared_ptr<Sheet> Sheets::loadNibNamed(std::string_view name)
{
    return std::make_shared<DialogSheet>(name == "AddWindow" ? makeAddSheet() : makeAboutSheet());
}

QDialog* Sheets::makeAddSheet()
{
    auto* sheet = new QDialog(&m_window, Qt::Sheet);
    sheet->setWindowTitle(tr("Add"));
    auto* layout = new QVBoxLayout(sheet);
    layout->setSpacing(12);
    layout->addWidget(makeHeading(tr("Add to the layers"), sheet));
    auto* choices = new QGridLayout;
    choices->setHorizontalSpacing(12);
    layout->addLayout(choices);

    auto* screen = addChoice(*choices, tr("&Screen"), tr("A wall of LED panels"));
    screen->setDefault(true);
    connect(screen, &QAbstractButton::clicked, this, [this] { m_newLayers.addScreen(); });

    auto* image = addChoice(*choices, tr("&Image…"), tr("A picture from a file"));
    connect(image, &QAbstractButton::clicked, this, [this] {
        emit panelAhead({tr("Add Image"), QStringLiteral("image"), imageFilter(), {}});
        m_newLayers.addImage();
    });

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::rejected, sheet, &QDialog::reject);
    connect(sheet, &QDialog::rejected, this, [this] { m_delegate.CancelAddWindow(); });
    return sheet;
}

QDialog* Sheets::makeAboutSheet()
{
    auto* sheet = new QDialog(&m_window, Qt::Sheet);
    sheet->setWindowTitle(tr("About Wallgrid"));
    auto* layout = new QVBoxLayout(sheet);
    layout->setSpacing(12);
    layout->addWidget(makeHeading(tr("Wallgrid %1").arg(WALLGRID_VERSION), sheet));
    layout->addWidget(new QLabel(tr("Pixel-map test images for LED video walls.")));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::rejected, sheet, &QDialog::reject);
    connect(sheet, &QDialog::rejected, this, [this] { m_delegate.closeAbout(); });
    return sheet;
}

} // namespace wallgrid
