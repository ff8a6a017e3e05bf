// SPDX-License-Identifier: MIT
#include "Subject.h"

#include <fstream>
#include <utility>

#include "EveryTile.h"

namespace vtx::bench {
namespace {

namespace fs = std::filesystem;

Program::Environment complete(Program::Environment environment, const fs::path& home) {
    environment.insert({{"HOME", home},
                        {"XDG_CONFIG_HOME", home / "config"},
                        {"XDG_CACHE_HOME", home / "cache"},
                        {"XDG_DATA_HOME", home / "data"},
                        {"XDG_RUNTIME_DIR", home}});
    return environment;
}

void store(Subject::Stored stored, const fs::path& folder) {
    switch (stored) {
        case Subject::Stored::everyTile:
            return storeEveryTile(folder);
        case Subject::Stored::widget:
            return storeWidget(folder);
        case Subject::Stored::ofAFirstStart:
            break;
    }
    storeFirstStart(folder);
}

void store(const Subject::Settings& settings, const fs::path& folder) {
    for (const auto& [path, text] : settings) {
        fs::create_directories((folder / path).parent_path());
        std::ofstream(folder / path) << text;
    }
}

}  // namespace

Subject::Subject(std::string shownName, const std::vector<std::string>& command,
                 Program::Environment environment, Stored stored, Output output,
                 const Settings& settings)
    : terminal(output == Output::terminal ? std::make_unique<PseudoTerminal>() : nullptr),
      name(std::move(shownName)),
      program(
          command,
          [&] {
              const auto ours = home.path() / "config/vantrix";
              store(stored, ours);
              store(settings, home.path() / "config");
              return complete(std::move(environment), home.path());
          }(),
          terminal.get()) {}

}  // namespace vtx::bench
