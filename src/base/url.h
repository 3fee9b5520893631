// SPDX-License-Identifier: MIT
#pragma once

#include "base/archived_form.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace wallgrid {

class Url;

/// Locations are values that never change, shared by everyone who refers to them. An empty reference is "no location".
using UrlRef = std::shared_ptr<const Url>;

/// A location as URL text: percent-escaped ASCII after RFC 3986, kept exactly as it was given.
class Url {
public:
    /// Nothing when the text holds a character that a URL may not hold (a space, a control, anything outside ASCII,
    /// one of "<>\^`{|}) or a % without two hexadecimal digits. A relative reference is fine.
    static std::optional<Url> fromString(std::string_view text);

    /// The same with what a URL may not hold percent-escaped, UTF-8 byte by byte: "file:///a b" as "file:///a%20b".
    static Url fromLooseString(std::string_view utf8);

    /// "/a b" becomes "file:///a%20b". The path is absolute and taken byte for byte.
    static Url fromFilePath(std::string_view absolutePath);

    /// `relative` as seen from `base`, dot segments taken out (RFC 3986, 5.2). Nothing when it is no URL text.
    static std::optional<Url> resolve(const Url& base, std::string_view relative);

    const std::string& absoluteString() const { return m_text; }

    /// The path component, percent escapes undone, whatever the scheme; "" when there is none.
    std::string path() const;

    /// The file that this names: the scheme is `file`, the host empty or `localhost`, the path absolute and without
    /// NUL. Nothing for any other location.
    std::optional<std::string> filePath() const;

    /// What follows the last point of the last path component, escapes undone: "MPR" of "wall.MPR". "" when there is
    /// no point, nothing after it, or nothing before it.
    std::string pathExtension() const;
    /// With a further extension on the last path component ("wall.MPR" becomes "wall.MPR.mpr").
    Url appendingPathExtension(std::string_view extension) const;

    /// The same location, written to an archive as the record that it was read from.
    Url withArchivedForm(std::shared_ptr<const ArchivedForm> form) const;
    const std::shared_ptr<const ArchivedForm>& archivedForm() const { return m_archivedForm; }

    bool operator==(const Url&) const = default;

private:
    explicit Url(std::string text);

    std::string m_text;
    std::shared_ptr<const ArchivedForm> m_archivedForm;
};

} // namespace wallgrid
