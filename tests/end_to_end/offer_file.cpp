// SPDX-License-Identifier: MIT
//
// offer_file FILE: another program, from whose window "Offer" a file can be dragged. While a window below the mouse
// would take it, the title is "Taken".
#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace {

class Offer final : public QWidget {
public:
    explicit Offer(const QString& path)
        : m_file(QUrl::fromLocalFile(path))
    {
        setWindowTitle(QStringLiteral("Offer"));
        setGeometry(2200, 300, 200, 200); // on the second display
    }

protected:
    void mousePressEvent(QMouseEvent*) override
    {
        auto* offered = new QMimeData;
        offered->setUrls({m_file});
        auto* drag = new QDrag(this);
        drag->setMimeData(offered);
        connect(drag, &QDrag::actionChanged, this, [this](Qt::DropAction action) {
            setWindowTitle(action == Qt::IgnoreAction ? QStringLiteral("Offer") : QStringLiteral("Taken"));
        });
        drag->exec(Qt::CopyAction);
    }

private:
    QUrl m_file;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    Offer offer(application.arguments().value(1));
    offer.show();
    return QApplication::exec();
}
