// SPDX-License-Identifier: MIT
#include "MachineFacts.h"

#include <sys/utsname.h>
#include <unistd.h>

#include <fstream>
#include <string_view>

namespace vtx::bench {
namespace {

/// Columns of /proc/stat that follow the name of the line of sums; guest time is part of the first.
constexpr int columnCount = 8;
constexpr int idleColumn = 3;
constexpr int iowaitColumn = 4;

std::string processorName() {
    std::ifstream file("/proc/cpuinfo");
    for (std::string line; std::getline(file, line);) {
        const auto colon = line.find(": ");
        if (line.starts_with("model name") && colon != std::string::npos) {
            return line.substr(colon + 2);
        }
    }
    return {};
}

}  // namespace

MachineFacts machineFacts() {
    utsname system{};
    uname(&system);
    std::ifstream release("/etc/os-release");
    return {processorName(), sysconf(_SC_NPROCESSORS_ONLN), system.release, prettyNameOf(release),
            VANTRIX_QT_VERSION};
}

std::string prettyNameOf(std::istream& text) {
    constexpr std::string_view key = "PRETTY_NAME=";
    for (std::string line; std::getline(text, line);) {
        if (!line.starts_with(key)) continue;
        std::string name = line.substr(key.size());
        const bool isQuoted =
            name.size() >= 2 && name.front() == name.back() && (name[0] == '"' || name[0] == '\'');
        return isQuoted ? name.substr(1, name.size() - 2) : name;
    }
    return {};
}

ProcessorTime processorTime() {
    ProcessorTime time;
    std::ifstream file("/proc/stat");
    std::string name;
    file >> name;
    std::uint64_t ticks = 0;
    for (int column = 0; column < columnCount && file >> ticks; ++column) {
        time.all += ticks;
        if (column != idleColumn && column != iowaitColumn) time.busy += ticks;
    }
    return time;
}

std::optional<double> busyFraction(const ProcessorTime& begin, const ProcessorTime& end) {
    if (end.all <= begin.all || end.busy < begin.busy) return std::nullopt;
    return static_cast<double>(end.busy - begin.busy) / static_cast<double>(end.all - begin.all);
}

}  // namespace vtx::bench
