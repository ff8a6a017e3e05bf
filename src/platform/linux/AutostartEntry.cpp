// SPDX-License-Identifier: MIT
#include "platform/linux/AutostartEntry.h"

#include <fmt/format.h>

#include <vector>

namespace vtx::autostart {
namespace {

constexpr std::string_view group = "[Desktop Entry]";
constexpr std::string_view space = " \t\r";

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(space);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(space) - first + 1);
}

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const auto end = text.find('\n');
        lines.push_back(text.substr(0, end));
        text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    }
    return lines;
}

/// What the line gives the key; absent for every other line.
std::optional<std::string_view> valueIn(std::string_view line, std::string_view key) {
    const auto equals = line.find('=');
    if (equals == std::string_view::npos || trimmed(line.substr(0, equals)) != key) return {};
    return trimmed(line.substr(equals + 1));
}

/// A value of the file as the text that it stands for.
std::string unescaped(std::string_view value) {
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] != '\\' || i + 1 == value.size()) {
            text += value[i];
            continue;
        }
        const char next = value[++i];
        text += next == 'n' ? '\n' : next == 't' ? '\t' : next == 's' ? ' ' : next;
    }
    return text;
}

bool isTrue(const std::optional<std::string>& value) { return value == "true" || value == "1"; }

}  // namespace

// Quoted for the command line, then once more for the file, in which a backslash escapes, too.
std::string commandFor(std::string_view executable) {
    std::string command = "\"";
    for (const char c : executable) {
        switch (c) {
            case '"':
            case '`':
            case '$':
                command += R"(\\)";
                command += c;
                break;
            case '\\':
                command += R"(\\\\)";
                break;
            case '%':
                command += "%%";
                break;
            case '\n':
                command += R"(\n)";
                break;
            default:
                command += c;
        }
    }
    return command + '"';
}

std::string textFor(std::string_view executable) {
    return fmt::format(
        "{}\nType=Application\nName=Vantrix\nComment=System monitor\nExec={}\nTerminal=false\n",
        group, commandFor(executable));
}

std::optional<std::string> value(std::string_view text, std::string_view key) {
    bool isInGroup = false;
    for (const std::string_view line : linesOf(text)) {
        if (trimmed(line).starts_with('[')) isInGroup = trimmed(line) == group;
        if (!isInGroup) continue;
        if (const auto found = valueIn(line, key)) return std::string(*found);
    }
    return std::nullopt;
}

std::string withValue(std::string_view text, std::string_view key, std::string_view value) {
    const std::string entry = fmt::format("{}={}\n", key, value);
    std::string result;
    bool isInGroup = false;
    bool isSet = false;
    for (const std::string_view line : linesOf(text)) {
        const bool begins = trimmed(line).starts_with('[');
        if (begins && isInGroup && !isSet) {
            result += entry;
            isSet = true;
        }
        if (begins) isInGroup = trimmed(line) == group;
        if (isInGroup && valueIn(line, key)) {
            if (!isSet) result += entry;
            isSet = true;
            continue;
        }
        result.append(line).append("\n");
    }
    if (isInGroup && !isSet) result += entry;
    return result;
}

bool isEnabled(std::string_view text) {
    const auto command = value(text, "Exec");
    return command && !command->empty() && !isTrue(value(text, "Hidden")) &&
           value(text, "X-GNOME-Autostart-enabled") != "false";
}

std::string programOf(std::string_view value) {
    const std::string command = unescaped(value);
    std::string program;
    bool isQuoted = false;
    for (std::size_t i = 0; i < command.size(); ++i) {
        const char c = command[i];
        const bool hasNext = i + 1 < command.size();
        if (c == '"') {
            isQuoted = !isQuoted;
        } else if (c == ' ' && !isQuoted) {
            break;
        } else if ((c == '\\' && hasNext) || (c == '%' && hasNext && command[i + 1] == '%')) {
            program += command[++i];
        } else {
            program += c;
        }
    }
    return program;
}

}  // namespace vtx::autostart
