// SPDX-License-Identifier: MIT
#include "base/url.h"

#include <gtest/gtest.h>
#include <vector>

using namespace wallgrid;
using namespace std::string_literals;

namespace {

Url url(std::string_view text)
{
    return Url::fromString(text).value();
}

} // namespace

TEST(Url, TakesEveryCharacterOfAUrlAndNoOther)
{
    const std::string legal = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._~:/?#[]@!$&'()*+,;=";
    EXPECT_EQ(url(legal + "%2f%C3").absoluteString(), legal + "%2f%C3");
    for (int c = 1; c < 256; ++c) {
        const char letter = static_cast<char>(c);
        EXPECT_EQ(Url::fromString("/a"s + letter + "41").has_value(),
                  letter == '%' || legal.find(letter) != legal.npos);
    }
    for (const char* text : {"%", "a%4", "%4g", "%g4", "%%41"})
        EXPECT_FALSE(Url::fromString(text)) << text;
}

TEST(Url, NamesFilesByPercentEscapedPath)
{
    for (const auto& [path, text] : std::vector<std::pair<std::string, std::string>>{
             {"/100%/w\xC3\xA4nde/#1?.mpr", "file:///100%25/w%C3%A4nde/%231%3F.mpr"},
             {"/a;b[c]\n\xFF", "file:///a%3Bb%5Bc%5D%0A%FF"},
             {"/!$&'()*+,=:@-._~", "file:///!$&'()*+,=:@-._~"}}) {
        const Url made = Url::fromFilePath(path);
        EXPECT_EQ(made.absoluteString(), text);
        EXPECT_EQ(made.filePath(), path);
    }
    EXPECT_EQ(url("file:/a").filePath(), "/a");
    EXPECT_EQ(url("FILE://LocalHost/a%20b?q#f").filePath(), "/a b");
    for (const char* other : {"file://server/a", "file:a", "file:///a%00b", "http:///a", "/a", ""})
        EXPECT_FALSE(url(other).filePath()) << other;
    EXPECT_EQ(url("/tmp/a%20b.mpr?x").path(), "/tmp/a b.mpr");
}

/// Of the examples of RFC 3986, 5.4.1 and 5.4.2, one of each kind, and what they leave out.
TEST(Url, ResolvesReferences)
{
    constexpr auto base = "http://a/b/c/d;p?q";
    const char* const rows[][3] = {
        {base, "?y", "http://a/b/c/d;p?y"},
        {base, "g;x?y#s", "http://a/b/c/g;x?y#s"},
        {base, "", base},
        {base, "../../../../g", "http://a/g"},
        {base, "g/../h/.", "http://a/b/c/h/"},
        {"http://a", "g", "http://a/g"},
        {"a:b", "../..//c", "a:/c"},
        {"a:/b", "..//c", "a:/.//c"},
        {"b/c", "../../d", "/d"},
    };
    for (const auto& [from, reference, target] : rows)
        EXPECT_EQ(Url::resolve(url(from), reference), url(target)) << reference;
    EXPECT_FALSE(Url::resolve(url("http://a"), "b c"));
}
