// SPDX-License-Identifier: MIT
#include "app/document_state.h"

#include "items/gx_still.h"

#include <algorithm>
#include <cstddef>
#include <unordered_map>
#include <unordered_set>

namespace wallgrid {

namespace {

using Entry = DocumentState::Entry;
using Entries = DocumentState::Entries;

bool holds(const GXItem& item, const ItemValues& values)
{
    auto value = values.fields.begin();
    for (const GXItem::Field& field : GXItem::fields()) {
        if (!item.hasValue(field, *value++))
            return false;
    }
    const auto* still = dynamic_cast<const GXStill*>(&item);
    return !still || (still->ImageURL() == values.imageURL && still->thumbnail() == values.image);
}

Entries captureList(const ItemArray& items, const Entries& before)
{
    std::unordered_map<const GXItem*, const Entry*> elsewhere;
    const auto entryBefore = [&](std::size_t row) -> const Entry* {
        // Most often the items stand where they stood.
        if (row < before.size() && before[row].item == items[row])
            return &before[row];
        if (elsewhere.empty()) {
            for (const Entry& entry : before)
                elsewhere.emplace(entry.item.get(), &entry);
        }
        const auto found = elsewhere.find(items[row].get());
        return found == elsewhere.end() ? nullptr : found->second;
    };

    Entries entries;
    entries.reserve(items.size());
    for (std::size_t row = 0; row < items.size(); ++row) {
        const Entry* entry = entryBefore(row);
        if (entry && holds(*items[row], *entry->values))
            entries.push_back(*entry);
        else
            entries.push_back({items[row], std::make_shared<const ItemValues>(ItemValues::of(*items[row]))});
    }
    return entries;
}

/// Leaves alone what is the same above and below. The new rows come before the old ones go, so that a list that has
/// items is never without.
void restoreList(GXAppDelegate::ItemController& controller, const Entries& entries)
{
    const ItemArray& present = controller.arrangedObjects();
    std::size_t first = 0;
    std::size_t presentEnd = present.size();
    std::size_t end = entries.size();
    while (first < std::min(presentEnd, end) && present[first] == entries[first].item)
        ++first;
    while (first < std::min(presentEnd, end) && present[presentEnd - 1] == entries[end - 1].item) {
        --presentEnd;
        --end;
    }

    ItemArray inserted;
    for (std::size_t row = first; row < end; ++row)
        inserted.push_back(entries[row].item);
    GXAppDelegate::ItemController::Indexes removed;
    for (std::size_t row = first; row < presentEnd; ++row)
        removed.insert(removed.end(), row + inserted.size());
    controller.insertObjectsAtArrangedObjectIndex(inserted, first);
    controller.removeObjectsAtArrangedObjectIndexes(removed);
}

/// Through the setters, and only what is different.
void setValues(GXItem& item, const ItemValues& values)
{
    auto value = values.fields.begin();
    for (const GXItem::Field& field : GXItem::fields()) {
        if (!item.hasValue(field, *value))
            item.setValue(field, *value);
        ++value;
    }
    if (auto* still = dynamic_cast<GXStill*>(&item)) {
        if (still->ImageURL() != values.imageURL)
            still->setImageURL(values.imageURL);
        if (still->thumbnail() != values.image)
            still->setThumbnail(values.image);
    }
}

void restoreItem(GXItem& item, const ItemValues& values)
{
    if (holds(item, values) && item.thumbnail())
        return;
    setValues(item, values);
    item.drawInRect();
    // The rendering has computed the sizes; an item that had not been rendered may have had others.
    setValues(item, values);
}

bool sameItems(const Entries& before, const Entries& after)
{
    return std::equal(before.begin(), before.end(), after.begin(), after.end(),
                      [](const Entry& a, const Entry& b) { return a.item == b.item; });
}

DocumentChange::What listChange(const Entries& before, const Entries& after)
{
    using What = DocumentChange::What;
    std::unordered_set<const GXItem*> old;
    for (const Entry& entry : before)
        old.insert(entry.item.get());
    const auto stayed =
        std::count_if(after.begin(), after.end(), [&](const Entry& entry) { return old.contains(entry.item.get()); });
    if (stayed < std::ssize(after))
        return stayed == 0 && !before.empty() ? What::Replaced : What::Added;
    if (after.size() == before.size())
        return What::Reordered;
    return after.size() < before.size() ? What::Removed : What::Added;
}

/// Collects the properties that are different.
class PropertyChanges {
public:
    void add(std::string_view property, bool gradual)
    {
        const std::string_view name = nameFor(property);
        if (m_change.what == DocumentChange::What::Nothing)
            m_change.property = name;
        else if (m_change.property != name)
            m_change.property = {};
        m_change.what = DocumentChange::What::Property;
        m_change.gradual = gradual;
    }

    void addItems(const Entries& before, const Entries& after)
    {
        for (std::size_t row = 0; row < before.size(); ++row) {
            const ItemValues& old = *before[row].values;
            const ItemValues& now = *after[row].values;
            if (&old != &now && addItem(old, now))
                m_change.items.push_back(after[row].item.get());
        }
    }

    DocumentChange result() &&
    {
        m_change.gradual = m_change.gradual && !m_change.property.empty();
        return std::move(m_change);
    }

private:
    static std::string_view nameFor(std::string_view property)
    {
        if (property == "xpoint" || property == "ypoint")
            return "position";
        if (property == "panelWidth" || property == "panelHeight")
            return "panelSize";
        if (property == "OutputWidth" || property == "OutputHeight")
            return "outputSize";
        return property;
    }

    bool addItem(const ItemValues& old, const ItemValues& now)
    {
        bool changed = false;
        for (std::size_t i = 0; i < old.fields.size(); ++i) {
            const std::string_view property = GXItem::fields()[i].property;
            if (old.fields[i] == now.fields[i] || property == "screenSizeWidth" || property == "screenSizeHeight")
                continue;
            add(property, !std::holds_alternative<bool>(now.fields[i]));
            changed = true;
        }
        if (old.imageURL == now.imageURL && old.image == now.image)
            return changed;
        add("ImageURL", false);
        return true;
    }

    DocumentChange m_change;
};

} // namespace

ItemValues ItemValues::of(const GXItem& item)
{
    ItemValues values;
    values.fields.reserve(GXItem::fields().size());
    for (const GXItem::Field& field : GXItem::fields())
        values.fields.push_back(item.value(field));
    if (const auto* still = dynamic_cast<const GXStill*>(&item)) {
        values.imageURL = still->ImageURL();
        values.image = still->thumbnail();
    }
    return values;
}

DocumentStateRef captureState(const GXAppDelegate& delegate, const DocumentState& before)
{
    return std::make_shared<const DocumentState>(DocumentState{
        delegate.OutputWidth(), delegate.OutputHeight(), delegate.bgColor(), delegate.edgeColor(),
        captureList(delegate.arraycontroller().arrangedObjects(), before.layers),
        captureList(delegate.presetarraycontroller().arrangedObjects(), before.presets), delegate.documentFile()});
}

void restoreState(GXAppDelegate& delegate, const DocumentState& state)
{
    delegate.setShouldUpdate(false);
    restoreList(delegate.arraycontroller(), state.layers);
    restoreList(delegate.presetarraycontroller(), state.presets);
    // The change handler renders the selected item at every change, with whatever it holds by then.
    delegate.arraycontroller().setSelectionIndexes({});
    delegate.presetarraycontroller().setSelectionIndexes({});

    delegate.setOutputWidth(state.outputWidth);
    delegate.setOutputHeight(state.outputHeight);
    delegate.setBgColor(state.bgColor);
    delegate.setEdgeColor(state.edgeColor);
    delegate.setDocumentFile(state.file);
    for (const Entries* list : {&state.layers, &state.presets}) {
        for (const Entry& entry : *list)
            restoreItem(*entry.item, *entry.values);
    }
    delegate.setShouldUpdate(true);
    delegate.update();
}

void releaseAbsentPictures(const DocumentState& before, const DocumentState& after)
{
    if (sameItems(before.layers, after.layers) && sameItems(before.presets, after.presets))
        return;
    std::unordered_set<const GXItem*> present;
    for (const Entries* list : {&after.layers, &after.presets}) {
        for (const Entry& entry : *list)
            present.insert(entry.item.get());
    }
    for (const Entries* list : {&before.layers, &before.presets}) {
        for (const Entry& entry : *list) {
            if (!present.contains(entry.item.get()))
                entry.item->releasePicture();
        }
    }
}

DocumentChange changeBetween(const DocumentState& before, const DocumentState& after)
{
    if (before.file != after.file)
        return {.what = DocumentChange::What::Replaced, .opened = after.file->location != nullptr};
    if (!sameItems(before.layers, after.layers))
        return {listChange(before.layers, after.layers)};
    if (!sameItems(before.presets, after.presets))
        return {listChange(before.presets, after.presets), true};
    PropertyChanges changes;
    if (before.outputWidth != after.outputWidth)
        changes.add("OutputWidth", true);
    if (before.outputHeight != after.outputHeight)
        changes.add("OutputHeight", true);
    if (before.bgColor != after.bgColor)
        changes.add("bgColor", true);
    if (before.edgeColor != after.edgeColor)
        changes.add("edgeColor", true);
    changes.addItems(before.layers, after.layers);
    changes.addItems(before.presets, after.presets);
    return std::move(changes).result();
}

} // namespace wallgrid
