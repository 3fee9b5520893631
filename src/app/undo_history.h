// SPDX-License-Identifier: MIT
#pragma once

#include "app/document_state.h"
#include "base/run_loop.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

namespace wallgrid {

/// The steps in which the document was changed, to take back and to do again. It stands beside the controller and
/// watches it: whatever setters and list operations run before control is back in the run loop is one step. Steps that
/// type or drag the same property of the same items without a pause are one as well.
class UndoHistory {
public:
    static constexpr std::size_t kMaximumSteps = 200;
    /// Steps that hold more bytes of removed images than this are forgotten, the oldest first.
    static constexpr std::size_t kLargestImages = std::size_t{1} << 30;
    static constexpr double kPauseSeconds = 1;

    UndoHistory(GXAppDelegate& delegate, RunLoop& runLoop);
    UndoHistory(const UndoHistory&) = delete;
    UndoHistory& operator=(const UndoHistory&) = delete;

    /// Forgets all steps; the present document is the new start.
    void start();

    /// What undo() would take back and redo() do again; null when there is nothing.
    const DocumentChange* undoable() const;
    const DocumentChange* redoable() const;
    // Neither does anything during an interaction.
    void undo();
    void redo();

    /// Ends the step that is under way, if any.
    void commit();
    /// The same, and the next change is a step of its own even where it could continue that one.
    void closeStep();
    /// Puts the document back to the last step, as when memory ran out in the middle of the next.
    void takeBackUnfinished() { go(m_current, m_selection); }
    /// Everything between the two is one step, as when the mouse drags an item. May be nested.
    void beginInteraction();
    void endInteraction();

    /// The document after the last step: another object after each step, the same one again when it is taken back.
    const DocumentStateRef& state() const { return m_steps[m_current].state; }
    /// Calls the handler after steps were made, taken back, done again or forgotten.
    Registration observe(std::function<void()> handler) { return m_observers.add(std::move(handler)); }
    std::size_t observers() const { return m_observers.count(); }

private:
    struct Selection {
        GXAppDelegate::ItemController::Indexes layers;
        GXAppDelegate::ItemController::Indexes presets;
    };
    using SelectionRef = std::shared_ptr<const Selection>;
    struct Step {
        DocumentStateRef state; ///< after it
        DocumentChange change = {};
        SelectionRef selectedBefore = {};
        SelectionRef selectedAfter = {};
        std::size_t imageBytes = 0; ///< of the stills that it removed
    };

    void changed();
    void selectionChanged();
    void scheduleCommit();
    void takeSelection();
    void record(DocumentStateRef state, DocumentChange change);
    bool continuesLastStep(const DocumentChange& change) const;
    void awaitPause();
    void forgetOldSteps();
    void go(std::size_t step, const SelectionRef& selection);

    GXAppDelegate& m_delegate;
    RunLoop& m_runLoop;
    Observers<> m_observers;

    std::vector<Step> m_steps; ///< the first one is the start and has no change
    std::size_t m_current = 0;
    SelectionRef m_selection; ///< as of the last commit
    bool m_changed = false;
    bool m_selectionChanged = false;
    bool m_open = false; ///< the last step goes on when the same property changes again
    int m_interactions = 0;
    Registration m_pause;
    Registration m_commit; ///< while one is scheduled
    std::vector<Registration> m_observations;
};

} // namespace wallgrid
