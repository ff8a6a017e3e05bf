// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace vtx::bench {

/// Stores, for a program that is started next with that folder of settings, that the strip shows
/// all of its tiles.
void storeEveryTile(const std::filesystem::path& configFolder);

/// Stores that the first start was made, with everything else as it is then: the language is not
/// asked for.
void storeFirstStart(const std::filesystem::path& configFolder);

/// The same with the mini widget shown.
void storeWidget(const std::filesystem::path& configFolder);

/// The tiles for which this machine has no figure, as words. Takes two seconds.
[[nodiscard]] std::vector<std::string> tilesWithoutSource();

}  // namespace vtx::bench
