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
    void mousePressEvent(QMouseEvent*) override
    {
        auto* offered = new QMimeData;
        offered->setUrls({QUrl::fromLocalFile(QApplication::arguments().value(1))});
        auto* drag = new QDrag(this);
        drag->setMimeData(offered);
        connect(drag, &QDrag::actionChanged, this, [this](Qt::DropAction action) {
            setWindowTitle(action == Qt::IgnoreAction ? QStringLiteral("Offer") : QStringLiteral("Taken"));
        });
        drag->exec(Qt::CopyAction);
    }
};

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    Offer offer;
    offer.setWindowTitle(QStringLiteral("Offer"));
    offer.setGeometry(2200, 300, 200, 200); // on the second display
    offer.show();
    return QApplication::exec();
}
