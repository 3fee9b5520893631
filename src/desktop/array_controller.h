// SPDX-License-Identifier: MIT
#pragma once

#include "base/key_value_observing.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace wallgrid {

/// Stands between a list and everyone who shows or edits it: every insertion and removal goes through it, so that
/// observers are told, and it holds the list's selection. The arranged order is the list's own order.
///
/// Observers are told once for each change of membership and once for each change of an observed property of an
/// object in the list, before the changing call returns. An inserted object is selected before they are told.
/// `Object` is a KeyValueObservable. Indexes outside the list are ignored. A call that runs out of memory before it
/// tells anyone has changed nothing.
template <class Object>
class ArrayController {
public:
    using Array = std::vector<std::shared_ptr<Object>>;
    using ContentRef = std::shared_ptr<Array>;
    using Indexes = std::set<std::size_t>;

    ArrayController() = default;
    ArrayController(const ArrayController&) = delete;
    ArrayController& operator=(const ArrayController&) = delete;

    /// The list, shared with its owner; its first row becomes selected. Observers are told.
    void setContent(ContentRef content)
    {
        m_content = std::move(content);
        m_observations.clear();
        for (const auto& object : arrangedObjects())
            watch(object);
        select(arrangedObjects().empty() ? Indexes{} : Indexes{0});
        membershipChanged();
    }

    /// Empty before it is set.
    const ContentRef& content() const { return m_content; }

    const Array& arrangedObjects() const
    {
        static const Array empty;
        return m_content ? *m_content : empty;
    }

    /// Calls the handler for every change of membership and of the named properties.
    Registration observeArrangedObjects(std::vector<std::string> keys, std::function<void()> handler)
    {
        return m_observers.add([keys = std::move(keys), handler = std::move(handler)](std::string_view key) {
            if (key == kMembership || std::find(keys.begin(), keys.end(), key) != keys.end())
                handler();
        });
    }

    /// Calls the handler after the set of selected rows, or the objects they hold, may have changed.
    Registration observeSelection(std::function<void()> handler)
    {
        return m_selectionObservers.add(std::move(handler));
    }

    /// How many handlers are registered, of both kinds.
    std::size_t observers() const { return m_observers.count() + m_selectionObservers.count(); }

    void insertObjectAtArrangedObjectIndex(std::shared_ptr<Object> object, std::size_t index)
    {
        if (!m_content || index > m_content->size())
            return;
        insertWatched({&object, 1}, index);
    }

    /// Inserts the objects one below the other, the first at the index.
    void insertObjectsAtArrangedObjectIndex(const Array& objects, std::size_t index)
    {
        if (!m_content || objects.empty() || index > m_content->size())
            return;
        insertWatched(objects, index);
    }

    void addObjects(const Array& objects)
    {
        if (!m_content || objects.empty())
            return;
        insertWatched(objects, m_content->size());
    }

    void removeObjectAtArrangedObjectIndex(std::size_t index) { removeObjectsAtArrangedObjectIndexes({index}); }

    void removeObjectsAtArrangedObjectIndexes(const Indexes& indexes)
    {
        removeIf([&](std::size_t index, const auto&) { return indexes.contains(index); });
    }

    /// Removes every occurrence of each of the objects.
    void removeObjects(const Array& objects)
    {
        const std::unordered_set<std::shared_ptr<Object>> doomed(objects.begin(), objects.end());
        removeIf([&](std::size_t, const auto& object) { return doomed.contains(object); });
    }

    const Indexes& selectionIndexes() const { return m_selection; }
    /// The first selected row.
    std::optional<std::size_t> selectionIndex() const
    {
        return m_selection.empty() ? std::nullopt : std::optional(*m_selection.begin());
    }
    void setSelectionIndex(std::size_t index) { setSelectionIndexes({index}); }
    void setSelectionIndexes(const Indexes& indexes)
    {
        Indexes valid;
        for (const std::size_t index : indexes) {
            if (index < arrangedObjects().size())
                valid.insert(valid.end(), index);
        }
        if (valid != m_selection)
            select(std::move(valid));
    }
    /// The object of the first selected row, or empty.
    std::shared_ptr<Object> selectedObject() const
    {
        return m_selection.empty() ? nullptr : arrangedObjects()[*m_selection.begin()];
    }

private:
    /// What observers are told in the place of a property's name.
    static constexpr std::string_view kMembership = "";

    /// An object may stand in the list more than once and is still watched once.
    struct Watch {
        std::size_t count = 0;
        Registration observation;
    };

    typename Array::iterator position(std::size_t index)
    {
        return m_content->begin() + static_cast<typename Array::difference_type>(index);
    }

    void insertWatched(std::span<const std::shared_ptr<Object>> objects, std::size_t index)
    {
        Indexes inserted;
        for (std::size_t i = 0; i < objects.size(); ++i)
            inserted.insert(inserted.end(), index + i);
        m_content->insert(position(index), objects.begin(), objects.end());
        std::size_t watched = 0;
        try {
            for (; watched < objects.size(); ++watched)
                watch(objects[watched]);
        } catch (...) {
            while (watched > 0)
                unwatch(objects[--watched]);
            m_content->erase(position(index), position(index + objects.size()));
            throw;
        }
        select(std::move(inserted));
        membershipChanged();
    }

    void watch(const std::shared_ptr<Object>& object)
    {
        Watch& entry = m_observations[object.get()];
        if (entry.count == 0)
            entry.observation = object->observe([this](std::string_view key) { m_observers.tell(key); });
        ++entry.count;
    }

    void unwatch(const std::shared_ptr<Object>& object)
    {
        const auto entry = m_observations.find(object.get());
        if (--entry->second.count == 0)
            m_observations.erase(entry);
    }

    /// The selection stays on the objects it was on; when none of them is left, it falls to the row that took the
    /// first one's place, or to the last row.
    template <class Predicate>
    void removeIf(Predicate doomed)
    {
        if (!m_content)
            return;
        Array kept;
        Array removed; // kept alive until observers have been told
        Indexes selection;
        for (std::size_t index = 0; index < m_content->size(); ++index) {
            auto& object = (*m_content)[index];
            if (doomed(index, object)) {
                removed.push_back(object);
                continue;
            }
            if (m_selection.contains(index))
                selection.insert(selection.end(), kept.size());
            kept.push_back(object);
        }
        if (removed.empty())
            return;
        if (selection.empty() && !m_selection.empty() && !kept.empty())
            selection.insert(std::min(*m_selection.begin(), kept.size() - 1));
        for (const auto& object : removed)
            unwatch(object);
        *m_content = std::move(kept);
        select(std::move(selection));
        membershipChanged();
    }

    void select(Indexes selection)
    {
        m_selection = std::move(selection);
        m_selectionObservers.tell();
    }

    void membershipChanged() { m_observers.tell(kMembership); }

    ContentRef m_content;
    std::unordered_map<const Object*, Watch> m_observations;
    Observers<std::string_view> m_observers;
    Observers<> m_selectionObservers;
    Indexes m_selection;
};

} // namespace wallgrid
