// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxProcessInfo.h"

#include "platform/linux/Parse.h"

namespace vtx {
namespace {

/// A value as a shell reads it: in quotes of either kind, with backslashes in double ones.
std::string unquoted(std::string_view value) {
    const char quote = value.empty() ? '\0' : value.front();
    if (quote != '"' && quote != '\'') return std::string(value);
    std::string text;
    for (std::size_t i = 1; i < value.size() && value[i] != quote; ++i) {
        if (quote == '"' && value[i] == '\\' && i + 1 < value.size()) ++i;
        text += value[i];
    }
    return text;
}

std::string systemName(const LinuxRoot& root) {
    for (const auto* path : {"/etc/os-release", "/usr/lib/os-release"}) {
        const auto file = root.read(path);
        if (!file) continue;
        if (auto name = LinuxProcessInfo::prettyName(*file)) return *std::move(name);
    }
    const auto release = root.readText("/proc/sys/kernel/osrelease");
    return release ? "Linux " + *release : "Linux";
}

}  // namespace

LinuxProcessInfo::LinuxProcessInfo(const LinuxRoot& root, Environment environment, SystemBus& bus)
    : version_(systemName(root)), environment_(std::move(environment)), profiles_(bus) {}

std::optional<std::string> LinuxProcessInfo::environment(std::string_view name) const {
    return environment_(name);
}

Subscription LinuxProcessInfo::onPowerStateDidChange(std::function<void()> handler) {
    return profiles_.onChange(std::move(handler));
}

ActivityToken LinuxProcessInfo::beginActivity(std::uint64_t /*options*/,
                                              std::string_view /*reason*/) {
    activities_.insert(++lastToken_);
    return lastToken_;
}

std::optional<std::string> LinuxProcessInfo::prettyName(std::string_view osRelease) {
    constexpr std::string_view key = "PRETTY_NAME=";
    while (!osRelease.empty()) {
        const auto line = trimmed(takeLine(osRelease));
        if (!line.starts_with(key)) continue;
        auto name = unquoted(trimmed(line.substr(key.size())));
        if (!name.empty()) return name;
    }
    return std::nullopt;
}

}  // namespace vtx
