// SPDX-License-Identifier: MIT
#pragma once

#include "ui/program_under_test.h"

#include <QString>
#include <functional>
#include <random>
#include <vector>

namespace wallgrid {

/// Works with the program as fast as it can: edits, adds, removes, opens, saves, exports, takes back and does again.
/// The same seed does the same.
class RandomUser {
public:
    /// Writes and opens stage.mpr, presets, stage.png and stage.psd in the folder.
    RandomUser(ProgramUnderTest& program, const QString& folder, unsigned seed);

    /// One of all the things, and what follows of it in the run loop.
    void act();
    /// The same document, presets and empty history each time.
    void startAnew();

private:
    std::size_t below(std::size_t count) { return m_random() % count; }
    std::int32_t number(int from, int to)
    {
        return from + static_cast<std::int32_t>(below(std::size_t(to - from) + 1));
    }
    /// Selects it; null when there is none.
    GXItem* anyLayer();
    QAction& menuAction(const QString& text);
    /// Runs a command on several layers, takes it back and does it again.
    void arrange(QAction& action);
    /// What is exported of the document now, and once it has been saved and opened again, is the same.
    void compareWithReopened();
    void editField();
    void chooseFile(const char* name);

    ProgramUnderTest& m_program;
    QString m_folder;
    std::mt19937 m_random;
    std::vector<std::function<void()>> m_actions;
    std::vector<QAction*> m_arrange; ///< the commands on several layers
};

} // namespace wallgrid
