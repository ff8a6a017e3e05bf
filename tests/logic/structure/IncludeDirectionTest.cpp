// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace vtx {
namespace {

namespace fs = std::filesystem;

// What each layer may include besides itself. A folder that is not listed may not exist, so that
// every new one gets its place here first. The longest prefix of a path decides its layer.
const std::map<std::string, std::set<std::string>>& layers() {
    static const std::map<std::string, std::set<std::string>> all{
        {"base", {}},
        {"platform", {"base"}},
        {"platform/shapes", {"base"}},
        {"platform/linux", {"base", "platform", "platform/shapes"}},
        {"platform/simulated", {"base", "platform", "platform/shapes"}},
        {"telemetry", {"base", "platform"}},
        {"processes", {"base", "platform"}},
        {"memory", {"base", "platform", "telemetry", "processes"}},
        {"smc", {"base", "platform", "telemetry"}},
        {"fan", {"base", "platform", "smc"}},
        {"language", {"base", "platform"}},
        {"language/linux", {"base", "language"}},
        {"alerts", {"base", "platform", "telemetry", "memory", "smc", "language"}},
        {"core",
         {"base", "platform", "telemetry", "memory", "smc", "fan", "processes", "language",
          "alerts"}},
        {"ui/models",
         {"base", "telemetry", "memory", "smc", "fan", "processes", "language", "core"}},
        {"ui/controller",
         {"base", "platform", "telemetry", "memory", "language", "core", "ui/models"}},
        {"ui/kit", {"base"}},
        {"ui/shell", {"base", "platform", "platform/linux", "ui/kit"}},
        {"ui/surfaces",
         {"base", "platform", "telemetry", "memory", "processes", "language", "core", "ui/models",
          "ui/controller", "ui/kit", "ui/shell"}},
        {"pictures",
         {"base", "platform", "platform/simulated", "telemetry", "memory", "smc", "fan", "language",
          "core", "ui/models", "ui/kit", "ui/shell", "ui/surfaces"}},
        {"app",
         {"base", "platform", "platform/linux", "platform/simulated", "telemetry", "memory", "smc",
          "fan", "language", "language/linux", "core", "ui/models", "ui/controller", "ui/kit",
          "ui/shell", "ui/surfaces"}},
    };
    return all;
}

std::string layerOf(const std::string& path) {
    std::string best;
    for (const auto& [layer, allowed] : layers())
        if (path.starts_with(layer + "/") && layer.size() > best.size()) best = layer;
    return best;
}

fs::path sources() { return fs::path(VANTRIX_SOURCE_DIR) / "src"; }

std::vector<std::string> sourceFiles() {
    std::vector<std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(sources())) {
        const auto extension = entry.path().extension();
        if (extension == ".h" || extension == ".cpp")
            files.push_back(fs::relative(entry.path(), sources()).string());
    }
    return files;
}

struct Include {
    char kind;  // '"' for ours, '<' for others
    std::string path;
};

std::vector<Include> includesOf(const std::string& file) {
    std::vector<Include> includes;
    std::ifstream in(sources() / file);
    for (std::string line; std::getline(in, line);) {
        if (!line.starts_with("#include ")) continue;
        const auto open = line.find_first_of("\"<", 8);
        const auto close = line.find_first_of("\">", open + 1);
        if (open == std::string::npos || close == std::string::npos) continue;
        includes.push_back({line[open], line.substr(open + 1, close - open - 1)});
    }
    return includes;
}

bool belongsToAToolkitOrAnOperatingSystem(const std::string& header) {
    static const std::set<std::string> system{"unistd.h", "fcntl.h",  "poll.h", "pthread.h",
                                              "dlfcn.h",  "signal.h", "errno.h"};
    return header.starts_with("Q") || header.starts_with("qt") || header.starts_with("sys/") ||
           header.starts_with("linux/") || header.starts_with("xcb") ||
           header.starts_with("systemd/") || system.contains(header);
}

TEST(IncludeDirection, the_walk_sees_the_sources) { EXPECT_GT(sourceFiles().size(), 50U); }

TEST(IncludeDirection, every_source_file_lies_in_a_known_layer) {
    for (const auto& file : sourceFiles()) EXPECT_NE(layerOf(file), "") << file;
}

TEST(IncludeDirection, no_arrow_points_up) {
    for (const auto& file : sourceFiles()) {
        const std::string from = layerOf(file);
        for (const auto& include : includesOf(file)) {
            if (include.kind != '"') continue;
            const std::string to = layerOf(include.path);
            EXPECT_TRUE(to == from || layers().at(from).contains(to))
                << file << " includes " << include.path;
        }
    }
}

TEST(IncludeDirection, logic_includes_neither_a_toolkit_nor_the_operating_system) {
    const std::set<std::string> logic{"base",   "platform", "telemetry", "memory",
                                      "smc",    "fan",      "processes", "language",
                                      "alerts", "core",     "ui/models", "ui/controller"};
    for (const auto& file : sourceFiles()) {
        if (!logic.contains(layerOf(file))) continue;
        for (const auto& include : includesOf(file))
            EXPECT_FALSE(belongsToAToolkitOrAnOperatingSystem(include.path))
                << file << " includes " << include.path;
    }
}

// Two types of one name are one to the linker, which keeps the functions of either for both.
TEST(IncludeDirection, no_two_headers_define_a_type_of_the_same_name) {
    const std::regex definition("(?:class|struct|enum class) (\\w+)[^;]*");
    std::map<std::string, std::string> headerOf;
    for (const auto& file : sourceFiles()) {
        if (!file.ends_with(".h")) continue;
        std::ifstream in(sources() / file);
        for (std::string line; std::getline(in, line);) {
            std::smatch parts;
            if (!std::regex_match(line, parts, definition)) continue;
            const auto [other, isNew] = headerOf.try_emplace(parts[1], file);
            EXPECT_TRUE(isNew || other->second == file)
                << parts[1] << " is in " << other->second << " and in " << file;
        }
    }
    EXPECT_EQ(headerOf["GPUStats"], "telemetry/GPUStats.h");
}

TEST(IncludeDirection, heavy_libraries_stay_out_of_headers) {
    for (const auto& file : sourceFiles()) {
        if (!file.ends_with(".h")) continue;
        for (const auto& include : includesOf(file))
            EXPECT_FALSE(include.path.starts_with("nlohmann") ||
                         include.path.starts_with("systemd/"))
                << file << " includes " << include.path;
    }
}

TEST(IncludeDirection, only_the_platform_asks_which_operating_system_this_is) {
    const std::vector<std::string> names{"__linux__", "__APPLE__", "_WIN32", "Q_OS_"};
    for (const auto& file : sourceFiles()) {
        if (layerOf(file).starts_with("platform/")) continue;
        std::ifstream in(sources() / file);
        for (std::string line; std::getline(in, line);)
            for (const auto& name : names)
                EXPECT_FALSE(line.starts_with("#") && line.find(name) != std::string::npos)
                    << file << ": " << line;
    }
}

}  // namespace
}  // namespace vtx
