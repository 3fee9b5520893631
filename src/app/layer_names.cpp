// SPDX-License-Identifier: MIT
#include "app/layer_names.h"

#include "app/new_items.h"
#include "base/unicode.h"

#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace wallgrid {

namespace {

/// With a number behind it, such a start of a name fits the 255 units that every reader of a file takes.
constexpr std::size_t kLongestStart = 240;

/// Tells names that are there already. Their texts must outlive it.
class Names {
public:
    /// False when it is there already. A text is read once, however many items share it.
    bool insert(const StringRef& name) { return m_strings.insert(name.get()).second && insertText(textOf(name)); }
    bool insertText(std::u16string_view text) { return m_texts.insert(text).second; }

private:
    std::unordered_set<const std::u16string*> m_strings;
    std::unordered_set<std::u16string_view> m_texts;
};

std::u16string startOf(const std::u16string& name)
{
    std::u16string start = name.substr(0, kLongestStart);
    if (start.size() < name.size() && isHighSurrogate(start.back()))
        start.pop_back();
    return start + u' ';
}

} // namespace

bool haveEqualNames(const ItemArray& items)
{
    Names names;
    for (const ItemRef& item : items) {
        if (!textOf(item->label()).empty() && !names.insert(item->label()))
            return true;
    }
    return false;
}

std::vector<StringRef> namesWithNumbers(const ItemArray& items)
{
    Names taken;
    for (const ItemRef& item : items)
        taken.insert(item->label());

    std::vector<StringRef> names;
    Names seen;
    std::unordered_map<std::u16string, std::int32_t> numbers; // the last one that a start was given
    for (const ItemRef& item : items) {
        StringRef name = item->label();
        if (!seen.insert(name)) {
            const std::u16string start = startOf(textOf(name));
            std::int32_t& number = numbers.try_emplace(start, 1).first->second;
            do
                name = numberedName(start, ++number);
            while (!taken.insertText(textOf(name)));
        }
        names.push_back(std::move(name));
    }
    return names;
}

} // namespace wallgrid
