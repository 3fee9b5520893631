// SPDX-License-Identifier: MIT
#include "platform/dictionary_lookup.h"
#include "platform/property_list_writer.h"

#include <gtest/gtest.h>

using namespace wallgrid;

TEST(DictionaryLookup, FindsTheFirstOfEqualKeysInSmallAndLargeDictionaries)
{
    for (const unsigned size : {1U, 48U, 49U, 1000U}) {
        // Each key twice, once in ASCII and once in UTF-16; and what is no key that could be asked for.
        PropertyListWriter writer;
        std::vector<PropertyListWriter::Ref> keys, values;
        for (unsigned i = 0; i < 2 * size; ++i) {
            const std::string key = "key" + std::to_string(i * 7919 % size);
            std::string wide(1, static_cast<char>(0x60 + key.size()));
            for (const char letter : key)
                wide += {'\0', letter};
            const std::span bytes(reinterpret_cast<const std::uint8_t*>(wide.data()), wide.size());
            keys.push_back(i % 2 == i / size ? writer.string(key) : writer.encodedScalar(bytes));
            values.push_back(writer.integer(i));
        }
        for (const auto odd : {writer.integer(7), writer.string(std::string(100, 'k'))}) {
            keys.push_back(odd);
            values.push_back(odd);
        }
        const auto opened = PropertyList::open(writer.write(writer.dictionary(keys, values))).value();
        DictionaryLookup lookup;
        for (unsigned i = 0; i < size; ++i) {
            const auto value = lookup.value(opened->top(), "key" + std::to_string(i * 7919 % size));
            ASSERT_TRUE(value) << size << ' ' << i;
            EXPECT_EQ(value->integer().value, i);
        }
        for (const char* absent : {"", "key", "key1000", "zzz", "7"})
            EXPECT_FALSE(lookup.value(opened->top(), absent)) << absent;
    }
}

TEST(PropertyListWriter, WritesEachCountAndWidthAtItsEdge)
{
    for (const std::size_t size : {0U, 14U, 15U, 255U, 256U, 65536U}) {
        PropertyListWriter writer;
        std::vector<PropertyListWriter::Ref> elements;
        for (std::size_t i = 0; i < size; ++i)
            elements.push_back(writer.integer(static_cast<std::int64_t>(i)));
        const std::u16string wide(size, u'\u00e4');
        const auto top =
            writer.array({writer.array(elements), writer.string(std::string(size, 'x')), writer.string(wide),
                          writer.data(std::string(size, 'd')), writer.set(elements),
                          writer.dictionary(elements, elements), writer.uid(static_cast<std::uint32_t>(size))});
        const auto list = PropertyList::open(writer.write(top));
        ASSERT_TRUE(list) << size << list.error().message;
        const PlistObject read = (*list)->top();
        for (std::uint32_t i = 0; i < 6; ++i)
            EXPECT_EQ(read.element(i).size(), size) << i;
        for (std::uint32_t i = 0; i < size; ++i) {
            ASSERT_EQ(read.element(0).element(i).integer().value, i);
            ASSERT_EQ(read.element(5).value(i).index(), read.element(0).element(i).index());
        }
        EXPECT_EQ(read.element(2).text(), wide);
        EXPECT_EQ(read.element(6).uid(), size);
    }
    PropertyListWriter writer;
    EXPECT_EQ(writer.write(writer.integer(-1)).size(), 8 + 9 + 1 + 32U);
    EXPECT_EQ(writer.write(writer.integer(0xFFFFFFFF)).size(), 8 + 5 + 1 + 32U);
}
