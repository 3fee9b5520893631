// SPDX-License-Identifier: MIT
#include "app/undo_history.h"

#include "items/gx_still.h"

#include <unordered_set>
#include <utility>

namespace wallgrid {

namespace {

std::vector<std::string> itemProperties()
{
    std::vector<std::string> keys{"ImageURL", "thumbnail"};
    for (const GXItem::Field& field : GXItem::fields())
        keys.emplace_back(field.property);
    return keys;
}

/// How much of the images of stills only the state before holds. Images may share their pixels.
std::size_t removedImageBytes(const DocumentState& before, const DocumentState& after)
{
    const auto pixelsOf = [](const DocumentState::Entry& entry) {
        const ImageRef& image = entry.values->image;
        return image ? image->firstRepresentation().get() : nullptr;
    };
    std::unordered_set<const Bitmap*> counted{nullptr};
    for (const auto* list : {&after.layers, &after.presets}) {
        for (const DocumentState::Entry& entry : *list)
            counted.insert(pixelsOf(entry));
    }
    std::size_t bytes = 0;
    for (const auto* list : {&before.layers, &before.presets}) {
        for (const DocumentState::Entry& entry : *list) {
            if (const Bitmap* pixels = pixelsOf(entry); counted.insert(pixels).second)
                bytes += pixels->bytesPerRow() * static_cast<std::size_t>(pixels->height());
        }
    }
    return bytes;
}

} // namespace

UndoHistory::UndoHistory(GXAppDelegate& delegate, RunLoop& runLoop)
    : m_delegate(delegate)
    , m_runLoop(runLoop)
{
    m_observations.push_back(m_delegate.observe([this](std::string_view) { changed(); }));
    for (auto* list : {&m_delegate.arraycontroller(), &m_delegate.presetarraycontroller()}) {
        m_observations.push_back(list->observeArrangedObjects(itemProperties(), [this] { changed(); }));
        m_observations.push_back(list->observeSelection([this] { selectionChanged(); }));
    }
    start();
}

void UndoHistory::start()
{
    m_changed = false;
    m_open = false;
    m_current = 0;
    m_steps = {{captureState(m_delegate, {})}};
    takeSelection();
    m_observers.tell();
}

const DocumentChange* UndoHistory::undoable() const
{
    return m_current > 0 ? &m_steps[m_current].change : nullptr;
}

const DocumentChange* UndoHistory::redoable() const
{
    return m_current + 1 < m_steps.size() ? &m_steps[m_current + 1].change : nullptr;
}

void UndoHistory::undo()
{
    commit();
    if (undoable() && m_interactions == 0)
        go(m_current - 1, m_steps[m_current].selectedBefore);
}

void UndoHistory::redo()
{
    commit();
    if (redoable() && m_interactions == 0)
        go(m_current + 1, m_steps[m_current + 1].selectedAfter);
}

void UndoHistory::go(std::size_t step, const SelectionRef& selection)
{
    const DocumentStateRef left = state();
    m_current = step;
    restoreState(m_delegate, *state());
    m_delegate.arraycontroller().setSelectionIndexes(selection->layers);
    m_delegate.presetarraycontroller().setSelectionIndexes(selection->presets);
    releaseAbsentPictures(*left, *state());
    m_changed = false;
    m_open = false;
    takeSelection();
    m_observers.tell();
}

void UndoHistory::closeStep()
{
    commit();
    m_open = false;
}

void UndoHistory::beginInteraction()
{
    if (m_interactions == 0)
        commit();
    ++m_interactions;
    m_open = false;
}

void UndoHistory::endInteraction()
{
    --m_interactions;
    commit();
    m_open = false;
}

void UndoHistory::changed()
{
    m_changed = true;
    scheduleCommit();
}

void UndoHistory::selectionChanged()
{
    m_selectionChanged = true;
    scheduleCommit();
}

void UndoHistory::scheduleCommit()
{
    if (m_commit)
        return;
    m_commit = m_runLoop.scheduleTimer(0, [this] {
        m_commit = {};
        commit();
    });
}

void UndoHistory::commit()
{
    if (m_interactions > 0)
        return;
    if (std::exchange(m_changed, false)) {
        DocumentStateRef now = captureState(m_delegate, *state());
        DocumentChange change = changeBetween(*state(), *now);
        if (change.what != DocumentChange::What::Nothing)
            return record(std::move(now), std::move(change));
    }
    takeSelection();
}

void UndoHistory::takeSelection()
{
    if (m_selection && !std::exchange(m_selectionChanged, false))
        return;
    m_selection = std::make_shared<const Selection>(Selection{m_delegate.arraycontroller().selectionIndexes(),
                                                              m_delegate.presetarraycontroller().selectionIndexes()});
}

void UndoHistory::record(DocumentStateRef now, DocumentChange change)
{
    const SelectionRef selectedBefore = m_selection;
    takeSelection();
    const bool continues = continuesLastStep(change);
    m_steps.resize(m_current + 1);
    if (continues) {
        Step& last = m_steps.back();
        last.state = std::move(now);
        last.selectedAfter = m_selection;
        if (changeBetween(*m_steps[m_current - 1].state, *last.state).what == DocumentChange::What::Nothing) {
            m_steps.pop_back();
            --m_current;
        }
    } else {
        releaseAbsentPictures(*state(), *now);
        const std::size_t imageBytes =
            change.what == DocumentChange::What::Property ? 0 : removedImageBytes(*state(), *now);
        m_steps.push_back({std::move(now), std::move(change), selectedBefore, m_selection, imageBytes});
        ++m_current;
        forgetOldSteps();
    }
    awaitPause();
    m_observers.tell();
}

bool UndoHistory::continuesLastStep(const DocumentChange& change) const
{
    return m_open && m_current > 0 && change.gradual && change == m_steps[m_current].change;
}

void UndoHistory::awaitPause()
{
    m_open = true;
    m_pause = m_runLoop.scheduleTimer(kPauseSeconds, [this] { m_open = false; });
}

void UndoHistory::forgetOldSteps()
{
    std::size_t imageBytes = 0;
    std::size_t kept = 0; // of the newest
    while (kept < m_current && kept < kMaximumSteps) {
        imageBytes += m_steps[m_current - kept].imageBytes;
        if (imageBytes > kLargestImages && kept > 0)
            break;
        ++kept;
    }
    // The state before the first step that is kept becomes the start.
    const std::size_t forgotten = m_current - kept;
    m_steps.erase(m_steps.begin(), m_steps.begin() + static_cast<std::ptrdiff_t>(forgotten));
    m_current = kept;
    m_steps.front().change = {};
    m_steps.front().imageBytes = 0;
}

} // namespace wallgrid
