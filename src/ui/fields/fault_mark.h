// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace wallgrid {

/// Says beside a field why its text does not count, and turns the field red for as long. Whoever lays out the field
/// lays out the mark, which takes no room while there is no reason.
class FaultMark final : public QLabel {
    Q_OBJECT

public:
    /// The field must outlive the mark, or both belong to one window.
    explicit FaultMark(QWidget& field);

    /// None takes the mark away.
    void setReason(const QString& reason);

private:
    QWidget& m_field;
};

} // namespace wallgrid
