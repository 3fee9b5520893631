// SPDX-License-Identifier: MIT
#include "platform/url.h"

#include <gtest/gtest.h>

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
    for (int c = 0; c < 256; ++c) {
        const std::string text = "/a"s + static_cast<char>(c) + "41";
        EXPECT_EQ(Url::fromString(text).has_value(),
                  c == '%' || (c != 0 && legal.find(static_cast<char>(c)) != legal.npos))
            << c;
    }
    for (const char* text : {"%", "a%4", "%4g", "%g4", "%%41"})
        EXPECT_FALSE(Url::fromString(text)) << text;
}

TEST(Url, NamesFilesByPercentEscapedPath)
{
    const std::pair<std::string, std::string> rows[] = {
        {"/Users/x/a b.png", "file:///Users/x/a%20b.png"},
        {"/", "file:///"},
        {"/100%/w\xC3\xA4nde/#1?.mpr", "file:///100%25/w%C3%A4nde/%231%3F.mpr"},
        {"/a;b[c]\"\\\x7F\n\xFF", "file:///a%3Bb%5Bc%5D%22%5C%7F%0A%FF"},
        {"/!$&'()*+,=:@-._~", "file:///!$&'()*+,=:@-._~"},
    };
    for (const auto& [path, text] : rows) {
        const Url made = Url::fromFilePath(path);
        EXPECT_EQ(made.absoluteString(), text);
        EXPECT_EQ(made.filePath(), path);
        EXPECT_EQ(Url::fromString(text), made);
    }
}

TEST(Url, GivesAFilePathForFilesOnly)
{
    const std::pair<std::string_view, std::optional<std::string>> rows[] = {
        {"file:/a", "/a"},
        {"FILE://LocalHost/a%20b?q#f", "/a b"},
        {"file:///.file/id=6571367.2", "/.file/id=6571367.2"},
        {"file://server/a", std::nullopt},
        {"file:a", std::nullopt},
        {"file:///a%00b", std::nullopt},
        {"http:///a", std::nullopt},
        {"/a", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& [text, path] : rows)
        EXPECT_EQ(url(text).filePath(), path) << text;
    EXPECT_EQ(url("/tmp/a%20b.mpr?x").path(), "/tmp/a b.mpr");
}

TEST(Url, EditsTheExtensionOfTheLastComponent)
{
    struct Row {
        const char* text;
        const char* extension;
        const char* without;
        const char* with;
    };
    const Row rows[] = {
        {"file:///w/wall.MPR", "MPR", "file:///w/wall", "file:///w/wall.MPR.mpr"},
        {"file:///w.d/wall", "", "file:///w.d/wall", "file:///w.d/wall.mpr"},
        {"file:///w.d/", "d", "file:///w/", "file:///w.d.mpr/"},
        {"file:///.hidden", "", "file:///.hidden", "file:///.hidden.mpr"},
        {"file:///wall.", "", "file:///wall.", "file:///wall..mpr"},
        {"wall.a%20b?q.x#f.y", "a b", "wall?q.x#f.y", "wall.a%20b.mpr?q.x#f.y"},
        {"file:///", "", "file:///", "file:///"},
        {"file://host.name", "", "file://host.name", "file://host.name"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(url(row.text).pathExtension(), row.extension) << row.text;
        EXPECT_EQ(url(row.text).deletingPathExtension(), url(row.without)) << row.text;
        EXPECT_EQ(url(row.text).appendingPathExtension("mpr"), url(row.with)) << row.text;
    }
}

/// Of the examples of RFC 3986, 5.4.1 and 5.4.2, one of each kind, and what they leave out.
TEST(Url, ResolvesReferences)
{
    const std::pair<const char*, const char*> rows[] = {
        {"g:h", "g:h"},
        {"g", "http://a/b/c/g"},
        {"/g", "http://a/g"},
        {"//g", "http://g"},
        {"?y", "http://a/b/c/d;p?y"},
        {"g;x?y#s", "http://a/b/c/g;x?y#s"},
        {"", "http://a/b/c/d;p?q"},
        {".", "http://a/b/c/"},
        {"../g", "http://a/b/g"},
        {"../../../../g", "http://a/g"},
        {"/../g", "http://a/g"},
        {"..g", "http://a/b/c/..g"},
        {"./../g", "http://a/b/g"},
        {"g/../h/.", "http://a/b/c/h/"},
        {"g#s/../x", "http://a/b/c/g#s/../x"},
        {"http:g", "http:g"},
    };
    for (const auto& [reference, target] : rows)
        EXPECT_EQ(Url::resolve(url("http://a/b/c/d;p?q"), reference), url(target)) << reference;
    EXPECT_EQ(Url::resolve(url("http://a"), "g"), url("http://a/g"));
    EXPECT_EQ(Url::resolve(url("a:b"), "../..//c"), url("a:/c"));
    EXPECT_EQ(Url::resolve(url("a:/b"), "..//c"), url("a:/.//c"));
    EXPECT_EQ(Url::resolve(url("b/c"), "../../d"), url("/d"));
    EXPECT_FALSE(Url::resolve(url("http://a"), "b c"));
}
