// SPDX-License-Identifier: MIT
#include "base/typed_number.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

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
    // By what is read.
    const std::pair<const char*, std::vector<std::u16string>> texts[] = {
        {"2112", {u"11*192"}},
        {"1664", {u"1920-2*128", u"(3840-512)/2"}},
        {"42", {u" 7 x 3px X 2 \u00D7 1 px "}},
        {"2", {u"5/2"}},
        {"-3", {u"-5/2"}},
        {"5", {u"5/2*2"}},
        {"3", {u"8-3-2", u"--3"}},
        {"8", {u"64/4/2"}},
        {"-4", {u"7\u00F7-2"}},
        {"4", {u"2*-(1\u22123)"}},
        {"2147483647", {u"2147483647"}},
        {"-2147483648", {u"-2147483648"}},
        {"1", {u"9223372036854775807/9223372036854775807"}},
        {"7", {u"007"}},
        {"by 128", {u"+128", u"+=2*64"}},
        {"by -64", {u" -= 64"}},
        {"by -3", {u"-=5/2"}},
        {"by -1", {u"+-1"}},
        {"unfinished", {u"", u" ", u"11*", u"-", u"+=", u"(2+3", u"("}},
        {"unreadable", {u"1 920", u"1,920", u"1.5", u"2)", u"()", u"3 pixels", u"2**3", u"1e3", u"\u0663"}},
        {"0", {u"0x10"}},
        {"by zero", {u"1/0", u"1/(2-2)"}},
        {"too large",
         {u"2147483648", u"-2147483649", u"9223372036854775808", u"9223372036854775807+1", u"-9223372036854775807-1",
          u"4294967296*4294967296", u"1/4294967296/4294967297"}},
    };
    for (const auto& [result, alike] : texts) {
        for (const std::u16string& text : alike)
            EXPECT_EQ(read(text), result) << std::string(text.begin(), text.end());
    }
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
