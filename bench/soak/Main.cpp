// SPDX-License-Identifier: MIT
// vantrix-soak: uses the resident program at random for a long time and tells whether it holds more
// at the end than at the beginning.
#include <fmt/format.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "Soak.h"

namespace vtx::bench {
namespace {

constexpr std::string_view usageText = R"(Usage: vantrix-soak [OPTION...]

Starts vantrix on the present display, which it must have for itself, opens, uses
and closes its surfaces at random, and prints in sixths of the time what it held.
Fails where it, or the X server, holds more in the last sixth than in the second,
where too many steps had to be repeated, where the strip stands still, or where
it ends.

  --minutes N       for how long, 60 when not said; less than 12 tell nothing of
                    the memory
  --seed N          of what is done, 1 when not said
  --accessibility   as with assistive software
  --csv FILE        saves each sample
  --program FILE    another vantrix than the one beside this program
  --help            shows this text
)";

template <class Number>
Number number(const std::string& text) {
    Number value{};
    const auto end = text.data() + text.size();
    if (std::from_chars(text.data(), end, value).ptr != end || !(value > 0)) {
        throw std::runtime_error(fmt::format("'{}' is no number above 0", text));
    }
    return value;
}

/// Absent where the text about the options was asked for.
std::optional<SoakOptions> parse(const std::vector<std::string>& arguments) {
    SoakOptions options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const auto& argument = arguments[i];
        const auto value = [&]() -> const std::string& {
            if (i + 1 == arguments.size()) {
                throw std::runtime_error(fmt::format("{} needs a value", argument));
            }
            return arguments[++i];
        };
        if (argument == "--minutes") {
            options.minutes = number<double>(value());
        } else if (argument == "--seed") {
            options.seed = number<std::uint64_t>(value());
        } else if (argument == "--accessibility") {
            options.withAccessibility = true;
        } else if (argument == "--csv") {
            options.csv = value();
        } else if (argument == "--program") {
            options.program = value();
        } else if (argument == "--help") {
            return std::nullopt;
        } else {
            throw std::runtime_error(fmt::format("unknown option {}", argument));
        }
    }
    return options;
}

int run(const std::vector<std::string>& arguments) {
    const auto options = parse(arguments);
    if (!options) {
        std::fwrite(usageText.data(), 1, usageText.size(), stdout);
        return EXIT_SUCCESS;
    }
    Soak soak(*options);
    std::string failure;
    try {
        soak.walk();
    } catch (const std::exception& error) {
        failure = error.what();
    }
    const SoakReport& report = soak.report();
    std::fputs(table(report).c_str(), stdout);
    auto found = complaints(report);
    if (!failure.empty()) found = {fmt::format("seed {}: {}", report.seed, failure)};
    for (const auto& words : found)
        std::fputs(fmt::format("Not well: {}\n", words).c_str(), stdout);
    if (found.empty()) std::fputs("All is well.\n", stdout);
    std::fflush(stdout);
    if (options->csv) saveCsv(report, *options->csv);
    return found.empty() ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace
}  // namespace vtx::bench

int main(int argc, char** argv) {
    try {
        return vtx::bench::run({argv + 1, argv + argc});
    } catch (const std::exception& error) {
        std::fprintf(stderr, "vantrix-soak: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
