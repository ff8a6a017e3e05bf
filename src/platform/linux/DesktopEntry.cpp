// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopEntry.h"

#include "platform/linux/Parse.h"

namespace vtx {
namespace {

constexpr std::string_view group = "[Desktop Entry]";

/// A value as its text: the file escapes a few characters.
std::string unescaped(std::string_view value) {
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] != '\\' || i + 1 == value.size()) {
            text += value[i];
            continue;
        }
        const char next = value[++i];
        const char plain = next == 's' ? ' ' : next == 'n' ? '\n' : next == 't' ? '\t' : next;
        // A backslash stays one for the command line, where it escapes in its turn.
        text += next == 'r' ? '\r' : plain;
    }
    return text;
}

/// Takes the next word off a command line: quoted whole, or up to a blank.
std::string takeWord(std::string_view& line) {
    std::string word;
    bool isQuoted = false;
    std::size_t i = 0;
    for (; i < line.size() && (isQuoted || line[i] != ' '); ++i) {
        if (line[i] == '"') {
            isQuoted = !isQuoted;
        } else if (isQuoted && line[i] == '\\' && i + 1 < line.size()) {
            word += line[++i];
        } else {
            word += line[i];
        }
    }
    line.remove_prefix(i);
    return word;
}

/// Without the codes that stand for files, icon and name; a doubled sign is one.
std::string withoutCodes(std::string_view word) {
    std::string text;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (word[i] != '%') {
            text += word[i];
        } else if (++i < word.size() && word[i] == '%') {
            text += '%';
        }
    }
    return text;
}

std::vector<std::string> commandOf(const std::string& value) {
    std::vector<std::string> command;
    for (std::string_view rest = value; !rest.empty();) {
        if (rest.front() == ' ') {
            rest.remove_prefix(1);
            continue;
        }
        auto word = withoutCodes(takeWord(rest));
        if (!word.empty()) command.push_back(std::move(word));
    }
    return command;
}

}  // namespace

std::optional<DesktopEntry> parseDesktopEntry(std::string_view text) {
    DesktopEntry entry;
    bool isInGroup = false;
    while (!text.empty()) {
        const auto line = trimmed(takeLine(text));
        if (line.starts_with('[')) isInGroup = line == group;
        const auto equals = line.find('=');
        if (!isInGroup || equals == std::string_view::npos) continue;
        const auto key = trimmed(line.substr(0, equals));
        const auto value = trimmed(line.substr(equals + 1));
        if (key == "Exec" && entry.command.empty()) entry.command = commandOf(unescaped(value));
        if (key == "Terminal") entry.needsTerminal = value == "true";
        if (key == "Hidden") entry.isHidden = value == "true";
    }
    if (entry.command.empty()) return std::nullopt;
    return entry;
}

}  // namespace vtx
