// SPDX-License-Identifier: MIT
#include "Options.h"

#include <fmt/format.h>

#include <charconv>
#include <stdexcept>

namespace vtx::bench {
namespace {

constexpr std::string_view usageText = R"(Usage: vantrix-bench [OPTION...] [COMMAND...]

Starts the floors, vantrix and each COMMAND (one argument each, its words
separated by spaces, NAME=VALUE first where it is to have a variable), measures
them at the same time, and prints what they cost.

  --seconds N   length of a window of time, 60 when not said
  --settle N    seconds that pass before a window, 5 when not said
  --json FILE   saves the figures too
  --threads     tells the figures of each thread too
  --sensors     measures alone what every tile costs where every sensor is there
  --help        shows this text
)";

int number(const std::string& text) {
    int value = 0;
    const auto end = text.data() + text.size();
    if (std::from_chars(text.data(), end, value).ptr != end || value < 1) {
        throw std::runtime_error(fmt::format("'{}' is no number of seconds", text));
    }
    return value;
}

}  // namespace

std::string_view usage() { return usageText; }

Options parse(const std::vector<std::string>& arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const auto& argument = arguments[i];
        const auto value = [&]() -> const std::string& {
            if (i + 1 == arguments.size()) {
                throw std::runtime_error(fmt::format("{} needs a value", argument));
            }
            return arguments[++i];
        };
        if (argument == "--seconds") {
            options.seconds = number(value());
        } else if (argument == "--settle") {
            options.settle = number(value());
        } else if (argument == "--json") {
            options.json = value();
        } else if (argument == "--threads") {
            options.threads = ThreadDetail::shown;
        } else if (argument == "--sensors") {
            options.everySensorAlone = true;
        } else if (argument == "--help") {
            options.help = true;
        } else if (argument.starts_with("--")) {
            throw std::runtime_error(fmt::format("unknown option {}", argument));
        } else {
            options.commands.push_back(argument);
        }
    }
    return options;
}

}  // namespace vtx::bench
