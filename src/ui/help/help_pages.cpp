// SPDX-License-Identifier: MIT
#include "ui/help/help_pages.h"

#include "ui/base/first_size.h"

#include <QDialogButtonBox>
#include <QImage>
#include <QPushButton>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace wallgrid {

namespace {

constexpr QSize kSize(860, 720);
constexpr int kWidestPicture = 780;

class PageBrowser final : public QTextBrowser {
public:
    using QTextBrowser::QTextBrowser;

protected:
    /// Pictures of windows are wider than the page.
    QVariant loadResource(int type, const QUrl& name) override
    {
        const QVariant resource = QTextBrowser::loadResource(type, name);
        const QImage picture =
            type == QTextDocument::ImageResource ? QImage::fromData(resource.toByteArray()) : QImage();
        return picture.width() > kWidestPicture ? picture.scaledToWidth(kWidestPicture, Qt::SmoothTransformation)
                                                : resource;
    }
};

} // namespace

HelpPages::HelpPages(QWidget* parent)
    : QDialog(parent)
    , m_browser(new PageBrowser(this))
{
    setWindowTitle(tr("Guide"));
    m_browser->setAccessibleName(tr("Guide"));
    m_browser->setOpenExternalLinks(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton* back = buttons->addButton(tr("&Back"), QDialogButtonBox::ActionRole);
    back->setEnabled(false);
    connect(back, &QPushButton::clicked, m_browser, &QTextBrowser::backward);
    connect(m_browser, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_browser);
    layout->addWidget(buttons);
    resize(firstSize(*this, kSize));
}

void HelpPages::showPage(const QString& page)
{
    m_browser->setSource(QUrl("qrc:/docs/" + page));
    show();
    raise();
    activateWindow();
    m_browser->setFocus();
}

} // namespace wallgrid
