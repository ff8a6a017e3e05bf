// SPDX-License-Identifier: MIT
#include "app/CommandLine.h"

#include <cstdio>
#include <string_view>

#include "base/Version.h"

namespace vtx {
namespace {

constexpr auto help =
    "Usage: vantrix [--pictures FOLDER]\n"
    "\n"
    "Shows in a strip, about once a second, how the machine is doing. All settings are made in\n"
    "the program itself.\n"
    "\n"
    "  --pictures FOLDER  show every surface once, save a picture of each, and end\n"
    "  --version          say the version and end\n";

}  // namespace

std::optional<int> readCommandLine(int argc, const char* const* argv, LaunchOptions& options) {
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (argument == "--help") {
            std::fputs(help, stdout);
            return 0;
        }
        if (argument == "--version") {
            std::printf("Vantrix %s\n", programVersion().data());
            return 0;
        }
        if (argument == "--pictures" && i + 1 < argc) {
            options.picturesFolder = QString::fromLocal8Bit(argv[++i]);
            continue;
        }
        std::fprintf(stderr, "vantrix: cannot make anything of \"%s\"; try --help\n", argv[i]);
        return 2;
    }
    return std::nullopt;
}

}  // namespace vtx
