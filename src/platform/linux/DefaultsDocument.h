// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "base/Data.h"

namespace vtx {

/// What the settings file holds. The file is one JSON object in UTF-8:
///
///     {
///       "displayPreferences.v3": "{\"showCPU\":true, ...}",
///       "some.picture": {"base64": "iVBORw0KGgo="}
///     }
///
/// A value whose bytes are UTF-8 is a string, so that it can be read and edited; any other is an
/// object whose only member "base64" holds the bytes. Everything else that a member may be is not
/// ours to understand and is written back as it was read.
struct DefaultsDocument {
    std::map<std::string, Data, std::less<>> values;
    /// Members of other forms, as JSON text. No key is in both maps.
    std::map<std::string, std::string, std::less<>> foreign;

    bool operator==(const DefaultsDocument&) const = default;
};

/// Absent where the text is no JSON object, is not UTF-8 or nests deeper than 512 levels.
[[nodiscard]] std::optional<DefaultsDocument> parseDefaults(std::string_view text);

/// The file's text, one member a line, in order of the keys. A key that is not UTF-8, which no file
/// can hold, is left out.
[[nodiscard]] std::string formatDefaults(const DefaultsDocument& document);

}  // namespace vtx
