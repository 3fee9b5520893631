// SPDX-License-Identifier: MIT
#include "app/layer_names.h"

#include "app/new_items.h"
#include "base/unicode.h"

#include <algorithm>
#include <string_view>

namespace wallgrid {

namespace {

/// With a number behind it, such a start of a name fits the 255 units that every reader of a file takes.
constexpr std::size_t kLongestStart = 240;

/// Tells names that are there already. It refers to their texts and copies none.
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
    return std::u16string(startOfText(name, kLongestStart)) + u' ';
}

/// A name in front of the number that it ends with, and that number.
struct NumberedName {
    std::u16string start;
    std::int64_t number = 1; ///< of a name without one
    std::size_t digits = 1;  ///< zeros in front included
};

NumberedName parsed(const std::u16string& name)
{
    constexpr std::size_t kMostDigits = 9; // more are no running number
    std::size_t digits = 0;
    while (digits < name.size() && name[name.size() - 1 - digits] >= u'0' && name[name.size() - 1 - digits] <= u'9')
        ++digits;
    if (digits == 0 || digits > kMostDigits)
        return {startOf(name)};
    std::int64_t number = 0;
    for (const char16_t digit : name.substr(name.size() - digits))
        number = number * 10 + (digit - u'0');
    return {name.substr(0, name.size() - digits), number, digits};
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

RunningNames::RunningNames(const ItemArray& items)
{
    for (const ItemRef& item : items)
        take(textOf(item->label()));
}

void RunningNames::take(const std::u16string& name)
{
    const NumberedName parts = parsed(name);
    std::int64_t& highest = m_highest[parts.start];
    highest = std::max(highest, parts.number);
    m_taken.insert(name);
}

StringRef RunningNames::unused(const StringRef& name)
{
    if (textOf(name).empty())
        return name;
    StringRef result = name;
    if (m_taken.contains(textOf(name))) {
        const NumberedName parts = parsed(textOf(name));
        const std::string number = std::to_string(m_highest.at(parts.start) + 1);
        std::u16string text = parts.start;
        text.append(parts.digits - std::min(parts.digits, number.size()), u'0');
        result = makeString(text.append(number.begin(), number.end()));
    }
    take(textOf(result));
    return result;
}

StringRef nameWithNumber(std::u16string_view typed, std::size_t number)
{
    const std::size_t begin = std::min(typed.find(u'#'), typed.size());
    const std::size_t end = std::min(typed.find_first_not_of(u'#', begin), typed.size());
    std::u16string name(typed.substr(0, begin));
    if (begin < end) {
        const std::string digits = std::to_string(number);
        name.append(end - begin - std::min(end - begin, digits.size()), u'0');
        name.append(digits.begin(), digits.end());
    }
    return makeString(name.append(typed.substr(end)));
}

} // namespace wallgrid
