// SPDX-License-Identifier: MIT
#include "base/unicode.h"

#include <gtest/gtest.h>

using namespace wallgrid;

TEST(Unicode, WritesUtf8AndReplacesLoneSurrogates)
{
    EXPECT_EQ(toUtf8(u"A\u007F\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF"),
              "A\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
    const char16_t broken[] = {0xDC00, u'a', 0xD800, u'b', 0xD800};
    EXPECT_EQ(toUtf8({broken, 5}), "\xEF\xBF\xBD"
                                   "a\xEF\xBF\xBD"
                                   "b\xEF\xBF\xBD");
    EXPECT_EQ(toUtf8(std::u16string_view(u"\0", 1)), std::string(1, '\0'));
}
