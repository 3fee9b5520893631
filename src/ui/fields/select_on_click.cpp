// SPDX-License-Identifier: MIT
#include "ui/fields/select_on_click.h"

#include <QFocusEvent>
#include <QLineEdit>

namespace wallgrid {

namespace {

class SelectOnClick final : public QObject {
public:
    SelectOnClick(QLineEdit& line, QWidget& focused)
        : QObject(&line)
        , m_line(line)
    {
        line.installEventFilter(this);
        focused.installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::FocusIn)
            m_first = static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason;
        // At the release, because the press places the cursor. The frame around the line counts, too.
        if (event->type() == QEvent::MouseButtonRelease && m_first) {
            m_first = false;
            if (!m_line.hasSelectedText())
                m_line.selectAll();
        }
        return false;
    }

private:
    QLineEdit& m_line;
    bool m_first = false;
};

} // namespace

void selectAllOnFirstClick(QLineEdit& line, QWidget& focused)
{
    new SelectOnClick(line, focused);
}

} // namespace wallgrid
