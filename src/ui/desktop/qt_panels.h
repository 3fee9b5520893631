// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/desktop.h"

#include <QObject>
#include <QString>
#include <QVariantMap>
#include <functional>

class QFileDialog;

namespace wallgrid {

/// What a file panel is about to be opened for.
struct PanelPurpose {
    QString title;
    QString kind;       ///< of file: panels of one kind open where the last one of it ended
    QString nameFilter; ///< as QFileDialog has it, may be empty; all files can always be chosen
    QString extension;  ///< what a new file gets unless it has exactly that one, without the point; may be empty
    bool whole = false; ///< the panel adds it, unless the file has it in any letters; else who writes the file does

    /// A check box in a save panel, unticked at first, and who is told its state when a file is chosen.
    struct Option {
        QString text; ///< empty: none
        QString reason;
        std::function<void(bool)> apply;
    };
    Option option = {};

    QString name = {};                               ///< proposed for a new file; may be empty
    QString folder = {};                             ///< where the panel opens, when not empty and whatever its kind
    QString own = {};                                ///< a file that is replaced as a rule; Return says yes to it
    QString answer = {};                             ///< a file that is written without a panel, when not empty
    std::function<void(const QString&)> chosen = {}; ///< told the path of the file that will be written; may be empty
};

/// Panels and alerts as dialogs of the desktop, modal to the active window. A panel opens in the folder where the last
/// file of its kind was chosen, or the last of any kind. It looks into no file: to read one of /proc can take for ever.
class QtPanels final : public QObject, public Panels {
    Q_OBJECT

public:
    /// Told before an action that opens a panel; holds for that panel.
    void prepare(const wallgrid::PanelPurpose& purpose) { m_purpose = purpose; }

    /// The folders by kind; "" is the last of any.
    const QVariantMap& folders() const { return m_folders; }
    /// Where the next panels open. A folder that is gone is passed over.
    void setFolders(const QVariantMap& folders) { m_folders = folders; }

    /// Asks before a file is replaced, also one whose name only the appended extension makes up.
    UrlRef runSavePanel() override;
    UrlRef runOpenPanel() override;
    void runAlert(std::string_view message, std::string_view informativeText) override;

private:
    void setUp(QFileDialog& dialog, const PanelPurpose& purpose) const;
    static bool mayReplace(const QString& path, const PanelPurpose& purpose);
    /// The chosen path, or empty.
    QString run(QFileDialog& dialog, const QString& kind);

    PanelPurpose m_purpose;
    QVariantMap m_folders;
};

} // namespace wallgrid
