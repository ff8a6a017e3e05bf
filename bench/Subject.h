// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Program.h"
#include "PseudoTerminal.h"
#include "TemporaryFolder.h"

namespace vtx::bench {

/// A program that is measured, with settings and a runtime folder that no other shares.
struct Subject {
    /// What our own program finds stored.
    enum class Stored { ofAFirstStart, everyTile, widget };
    enum class Output { nowhere, terminal };

    /// What another program finds among its settings, by the path below their folder.
    using Settings = std::map<std::filesystem::path, std::string>;

    /// Starts it. Throws `std::system_error` where that cannot be.
    Subject(std::string shownName, const std::vector<std::string>& command,
            Program::Environment environment = {}, Stored stored = Stored::ofAFirstStart,
            Output output = Output::nowhere, const Settings& settings = {});

    // In this order: the program uses the first two until it ends.
    TemporaryFolder home;
    std::unique_ptr<PseudoTerminal> terminal;
    std::string name;
    Program program;
};

}  // namespace vtx::bench
