// SPDX-License-Identifier: MIT
#pragma once

#include <QToolButton>

namespace wallgrid {

/// The title of a group in a window. A click folds the group away or shows it again; so does its underlined letter. Tab
/// passes over it.
class FoldHeading final : public QToolButton {
    Q_OBJECT

public:
    /// The name tells the headings of a window apart, for whoever remembers them.
    FoldHeading(const QString& name, const QString& title, QWidget& group, QWidget* parent = nullptr);

    bool isFolded() const { return m_folded; }
    void setFolded(bool folded);

private:
    QWidget& m_group;
    bool m_folded = false;
};

} // namespace wallgrid
