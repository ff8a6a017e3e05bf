// SPDX-License-Identifier: MIT
#include "support/KernelFigures.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace vtx::e2e::kernel {

std::uint64_t memoryBytes(const std::string& line) {
    std::ifstream file("/proc/meminfo");
    constexpr std::uint64_t bytesPerUnit = 1024;
    for (std::string text; std::getline(file, text);) {
        std::istringstream words(text);
        std::string name;
        std::uint64_t value = 0;
        if (words >> name >> value && name == line + ":") return value * bytesPerUnit;
    }
    throw std::runtime_error("/proc/meminfo has no " + line);
}

bool hasDrive() {
    std::error_code none;
    for (const auto& disk : std::filesystem::directory_iterator("/sys/block", none)) {
        std::uint64_t sectors = 0;  // 0 for a slot without its card
        std::ifstream(disk.path() / "size") >> sectors;
        if (sectors > 0 && std::filesystem::exists(disk.path() / "device")) return true;
    }
    return false;
}

Moved movedByDisk(const std::string& device) {
    std::ifstream file("/sys/block/" + device + "/stat");
    constexpr std::uint64_t bytesPerSector = 512;  // of this file, whatever the disk's own are
    constexpr std::size_t sectorsRead = 2, sectorsWritten = 6;
    std::array<std::uint64_t, sectorsWritten + 1> fields{};
    for (auto& field : fields) file >> field;
    if (!file) throw std::runtime_error("no counters of " + device);
    return {fields[sectorsRead] * bytesPerSector, fields[sectorsWritten] * bytesPerSector};
}

std::map<std::string, Moved> movedByInterface() {
    std::ifstream file("/proc/net/dev");
    std::map<std::string, Moved> all;
    for (std::string text; std::getline(file, text);) {
        const auto colon = text.find(':');
        if (colon == std::string::npos) continue;  // the two lines of titles
        std::istringstream name(text.substr(0, colon)), words(text.substr(colon + 1));
        std::string interface;
        name >> interface;
        Moved& moved = all[interface];
        constexpr int otherReceived = 7;
        words >> moved.in;
        std::uint64_t ignored = 0;
        for (int i = 0; i < otherReceived; ++i) words >> ignored;
        words >> moved.out;
    }
    return all;
}

}  // namespace vtx::e2e::kernel
