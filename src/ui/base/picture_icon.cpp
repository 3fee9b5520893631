// SPDX-License-Identifier: MIT
#include "ui/base/picture_icon.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>

namespace wallgrid {

namespace {

class PictureEngine final : public QIconEngine {
public:
    explicit PictureEngine(const QPixmap& picture)
        : m_picture(picture)
    {
    }

    void paint(QPainter* painter, const QRect& place, QIcon::Mode, QIcon::State) override
    {
        painter->drawPixmap(place, m_picture);
    }

    QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override
    {
        const QSize own = m_picture.deviceIndependentSize().toSize();
        return own.boundedTo(size) == own ? own : own.scaled(size, Qt::KeepAspectRatio);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        if (size == m_picture.size())
            return m_picture;
        QPixmap result(size);
        result.fill(Qt::transparent);
        QPainter painter(&result);
        paint(&painter, result.rect(), mode, state);
        return result;
    }

    QIconEngine* clone() const override { return new PictureEngine(*this); }

private:
    QPixmap m_picture;
};

} // namespace

QIcon pictureIcon(const QPixmap& picture)
{
    return QIcon(new PictureEngine(picture));
}

} // namespace wallgrid
