// SPDX-License-Identifier: MIT
#include "comparison/OtherMonitors.h"

#include <fmt/format.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace vtx::bench {

std::vector<OtherMonitor> otherMonitors() {
    using enum Subject::Output;
    // btop alone takes its pace from its settings only; what they do not name stays its default.
    // The pace of conky is a second by itself.
    return {{"procps", {"top", "-d", "1"}, terminal, {}},
            {"htop", {"htop", "-d", "10"}, terminal, {}},
            {"btop",
             {"btop"},
             terminal,
             {{"btop/btop.conf", "#? Config file for btop\nupdate_ms = 1000\n"}}},
            {"conky-std", {"conky"}, nowhere, {}}};
}

bool isInstalled(const OtherMonitor& monitor) {
    const auto question = fmt::format("command -v {} >/dev/null 2>&1", monitor.program());
    return std::system(question.c_str()) == 0;
}

std::string shownName(const OtherMonitor& monitor) {
    const auto question =
        fmt::format("dpkg-query -W -f='${{Version}}' {} 2>/dev/null", monitor.package);
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> answer(popen(question.c_str(), "r"),
                                                                 pclose);
    std::array<char, 80> version{};
    if (!answer || !std::fgets(version.data(), version.size(), answer.get()))
        return monitor.program();
    return fmt::format("{} {}", monitor.program(), upstreamVersion(version.data()));
}

std::string_view upstreamVersion(std::string_view version) {
    const auto epoch = version.find(':');
    if (epoch != std::string_view::npos) version.remove_prefix(epoch + 1);
    return version.substr(0, version.rfind('-'));
}

}  // namespace vtx::bench
