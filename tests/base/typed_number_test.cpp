// SPDX-License-Identifier: MIT
#include "base/typed_number.h"

#include <gtest/gtest.h>
#include <string>

using namespace wallgrid;

namespace {

std::string read(std::u16string_view text)
{
    static const char* const faults[] = {"unfinished", "unreadable", "by zero", "too large", "too long"};
    const auto number = readTypedNumber(text);
    if (!number)
        return faults[static_cast<int>(number.error())];
    return (number->relative ? "by " : "") + std::to_string(number->value);
}

std::u16string times(std::size_t count, char16_t letter)
{
    return std::u16string(count, letter);
}

} // namespace

TEST(TypedNumber, IsComputedExactlyAndRoundedDown)
{
    const std::pair<const char16_t*, const char*> texts[] = {{u"11*192", "2112"},
                                                             {u"1920-2*128", "1664"},
                                                             {u"(3840-512)/2", "1664"},
                                                             {u" 7 x 3px X 2 \u00D7 1 px ", "42"},
                                                             {u"5/2", "2"},
                                                             {u"-5/2", "-3"},
                                                             {u"5/2*2", "5"},
                                                             {u"8-3-2", "3"},
                                                             {u"64/4/2", "8"},
                                                             {u"7\u00F7-2", "-4"},
                                                             {u"--3", "3"},
                                                             {u"2*-(1\u22123)", "4"},
                                                             {u"2147483647", "2147483647"},
                                                             {u"-2147483648", "-2147483648"},
                                                             {u"9223372036854775807/9223372036854775807", "1"},
                                                             {u"007", "7"},
                                                             {u"+128", "by 128"},
                                                             {u"+=2*64", "by 128"},
                                                             {u" -= 64", "by -64"},
                                                             {u"-=5/2", "by -3"},
                                                             {u"+-1", "by -1"},
                                                             {u"", "unfinished"},
                                                             {u" ", "unfinished"},
                                                             {u"11*", "unfinished"},
                                                             {u"-", "unfinished"},
                                                             {u"+=", "unfinished"},
                                                             {u"(2+3", "unfinished"},
                                                             {u"(", "unfinished"},
                                                             {u"1 920", "unreadable"},
                                                             {u"1,920", "unreadable"},
                                                             {u"1.5", "unreadable"},
                                                             {u"2)", "unreadable"},
                                                             {u"()", "unreadable"},
                                                             {u"3 pixels", "unreadable"},
                                                             {u"2**3", "unreadable"},
                                                             {u"0x10", "0"},
                                                             {u"1e3", "unreadable"},
                                                             {u"\u0663", "unreadable"},
                                                             {u"1/0", "by zero"},
                                                             {u"1/(2-2)", "by zero"},
                                                             {u"2147483648", "too large"},
                                                             {u"-2147483649", "too large"},
                                                             {u"9223372036854775808", "too large"},
                                                             {u"9223372036854775807+1", "too large"},
                                                             {u"-9223372036854775807-1", "too large"},
                                                             {u"4294967296*4294967296", "too large"},
                                                             {u"1/4294967296/4294967297", "too large"}};
    for (const auto& [text, result] : texts)
        EXPECT_EQ(read(text), result) << std::string(text, text + std::char_traits<char16_t>::length(text));
}

TEST(TypedNumber, IsNeverReadDeeperOrLongerThanItsBound)
{
    EXPECT_EQ(read(times(99, u'(') + u"7" + times(99, u')')), "7");
    EXPECT_EQ(read(times(200, u'(')), "unfinished");
    EXPECT_EQ(read(times(199, u'-') + u"7"), "-7");
    EXPECT_EQ(read(times(200, u' ')), "unfinished");
    EXPECT_EQ(read(times(200, u'9')), "too large");
    EXPECT_EQ(read(times(201, u'1')), "too long");
    EXPECT_EQ(read(times(10'000'000, u'(')), "too long");
    EXPECT_EQ(read(std::u16string_view(u"1\0", 2)), "unreadable");
}
