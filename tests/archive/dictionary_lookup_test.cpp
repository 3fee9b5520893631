// SPDX-License-Identifier: MIT
#include "archive/dictionary_lookup.h"
#include "archive/property_list_writer.h"

#include <gtest/gtest.h>

using namespace wallgrid;

TEST(DictionaryLookup, FindsTheFirstOfEqualKeysInSmallAndLargeDictionaries)
{
    for (const unsigned size : {1U, 48U, 49U, 25000U}) {
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
        keys.push_back(values[0]);
        values.push_back(values[0]);
        const auto opened = PropertyList::open(writer.write(writer.dictionary(keys, values))).value();
        DictionaryLookup lookup;
        for (unsigned i = 0; i < size; ++i) {
            const auto value = lookup.value(opened->top(), "key" + std::to_string(i * 7919 % size));
            ASSERT_TRUE(value) << size << ' ' << i;
            EXPECT_EQ(value->integer().value, i);
        }
        EXPECT_FALSE(lookup.value(opened->top(), "absent"));
    }
}
