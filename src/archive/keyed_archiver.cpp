// SPDX-License-Identifier: MIT
#include "archive/keyed_archiver.h"

#include "archive/archived_color.h"
#include "archive/archived_entry.h"
#include "archive/component_text.h"

#include <utility>

namespace wallgrid {

KeyedArchiver::KeyedArchiver()
    : m_copier(m_writer, m_objects)
{
    m_objects.push_back(m_writer.string("$null"));
}

Bytes KeyedArchiver::archivedDataWithRootObject(const ArchiveValue& root, const NamedValues& beside)
{
    KeyedArchiver archiver;
    Record names;
    archiver.set(names, "root", archiver.m_writer.uid(archiver.add(root)));
    for (const auto& [name, value] : beside)
        archiver.set(names, name, archiver.m_writer.uid(archiver.add(value)));
    return archiver.finish(std::move(names));
}

Bytes KeyedArchiver::finish(Record names)
{
    Record top;
    set(top, "$version", m_writer.integer(100000));
    set(top, "$objects", m_writer.array(m_objects));
    set(top, "$archiver", m_writer.string("NSKeyedArchiver"));
    set(top, "$top", m_writer.dictionary(std::move(names.keys), names.values));
    return m_writer.write(m_writer.dictionary(std::move(top.keys), top.values));
}

void KeyedArchiver::set(Record& record, std::string_view key, Ref value)
{
    record.keys.push_back(m_writer.string(key));
    record.values.push_back(value);
}

KeyedArchiver::Uid KeyedArchiver::newEntry()
{
    m_objects.push_back(0); // replaced when the entry is finished
    return static_cast<Uid>(m_objects.size() - 1);
}

std::pair<KeyedArchiver::Uid, bool> KeyedArchiver::entryOf(const std::shared_ptr<const void>& object)
{
    const auto [entry, isNew] = m_entries.try_emplace(object);
    if (isNew)
        entry->second = newEntry();
    return {entry->second, isNew};
}

void KeyedArchiver::finish(Uid uid, Record& record, std::initializer_list<std::string_view> classes)
{
    const std::string name(*classes.begin());
    const auto [entry, isNew] = m_classes.try_emplace(name);
    if (isNew) { // after the contents of the first object of the class
        entry->second = newEntry();
        std::vector<Ref> names;
        for (const std::string_view each : classes)
            names.push_back(m_writer.string(each));
        Record description;
        set(description, "$classname", m_writer.string(name));
        set(description, "$classes", m_writer.array(std::move(names)));
        m_objects[entry->second] = m_writer.dictionary(std::move(description.keys), description.values);
    }
    set(record, "$class", m_writer.uid(entry->second));
    m_objects[uid] = m_writer.dictionary(std::move(record.keys), record.values);
}

KeyedArchiver::Uid KeyedArchiver::add(const ArchiveValue& value)
{
    return std::visit([this](const auto& each) { return add(each); }, value);
}

KeyedArchiver::Uid KeyedArchiver::add(std::int64_t number)
{
    const auto [entry, isNew] = m_numbers.try_emplace(number);
    if (isNew) {
        entry->second = newEntry();
        m_objects[entry->second] = m_writer.integer(number);
    }
    return entry->second;
}

KeyedArchiver::Uid KeyedArchiver::add(const std::shared_ptr<const Archivable>& object)
{
    const auto [uid, isNew] = entryOf(object);
    if (isNew) {
        m_record = {};
        object->encodeWithCoder(*this);
        finish(uid, m_record, {object->archivedClassName(), "NSObject"});
    }
    return uid;
}

KeyedArchiver::Uid KeyedArchiver::add(const std::shared_ptr<const ArchiveArray>& array)
{
    const Uid uid = newEntry();
    std::vector<Ref> elements;
    for (const ArchiveValue& element : *array)
        elements.push_back(m_writer.uid(add(element)));
    Record record;
    set(record, "NS.objects", m_writer.array(std::move(elements)));
    // Whoever reads a list goes on to edit it, so it is a mutable one.
    finish(uid, record, {"NSMutableArray", "NSArray", "NSObject"});
    return uid;
}

KeyedArchiver::Uid KeyedArchiver::add(const StringRef& string)
{
    if (!string)
        return 0;
    const auto [uid, isNew] = entryOf(string);
    if (isNew)
        m_objects[uid] = m_writer.string(*string);
    return uid;
}

KeyedArchiver::Uid KeyedArchiver::add(const UrlRef& url)
{
    if (!url)
        return 0;
    if (const auto* form = dynamic_cast<const ArchivedEntry*>(url->archivedForm().get()))
        return m_copier.copy(form->archive(), form->uid());
    const auto [uid, isNew] = entryOf(url);
    if (isNew) {
        Record record;
        set(record, "NS.base", m_writer.uid(0));
        const Uid text = newEntry();
        m_objects[text] = m_writer.string(url->absoluteString());
        set(record, "NS.relative", m_writer.uid(text));
        finish(uid, record, {"NSURL", "NSObject"});
    }
    return uid;
}

KeyedArchiver::Uid KeyedArchiver::add(const ColorRef& color)
{
    if (!color)
        return 0;
    if (const auto* form = dynamic_cast<const ArchivedEntry*>(color->archivedForm().get()))
        return m_copier.copy(form->archive(), form->uid());
    const auto [uid, isNew] = entryOf(color);
    if (isNew) {
        const PlainColorForm form = plainColorForm(color->space());
        const ComponentText numbers{color->components(), color->alpha()};
        Record record;
        set(record, form.componentKey, m_writer.data(numbers.format(color->componentCount())));
        set(record, "NSColorSpace", m_writer.integer(form.colorSpace));
        finish(uid, record, {"NSColor", "NSObject"});
    }
    return uid;
}

void KeyedArchiver::encodeInt(std::int32_t value, std::string_view key)
{
    set(m_record, key, m_writer.integer(value));
}

void KeyedArchiver::encodeBool(bool value, std::string_view key)
{
    set(m_record, key, m_writer.boolean(value));
}

void KeyedArchiver::encodeObject(const StringRef& string, std::string_view key)
{
    set(m_record, key, m_writer.uid(add(string)));
}

void KeyedArchiver::encodeObject(const ColorRef& color, std::string_view key)
{
    set(m_record, key, m_writer.uid(add(color)));
}

void KeyedArchiver::encodeObject(const UrlRef& url, std::string_view key)
{
    set(m_record, key, m_writer.uid(add(url)));
}

void KeyedArchiver::encodeObject(const Bytes& data, std::string_view key)
{
    const Uid uid = newEntry();
    Record record;
    set(record, "NS.data", m_writer.data({reinterpret_cast<const char*>(data.data()), data.size()}));
    finish(uid, record, {"NSMutableData", "NSData", "NSObject"});
    set(m_record, key, m_writer.uid(uid));
}

} // namespace wallgrid
