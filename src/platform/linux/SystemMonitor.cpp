// SPDX-License-Identifier: MIT
#include "platform/linux/SystemMonitor.h"

#include <algorithm>
#include <array>
#include <functional>
#include <iterator>
#include <string_view>
#include <utility>

#include "platform/linux/DesktopEntry.h"
#include "platform/linux/DetachedProgram.h"

namespace vtx {
namespace {

/// A desktop as XDG_CURRENT_DESKTOP names it, and the monitor that it brings.
struct Known {
    std::string_view desktop;
    std::string_view entry;
};
constexpr std::array known{
    Known{"GNOME", "org.gnome.SystemMonitor"},
    Known{"GNOME", "gnome-system-monitor"},
    Known{"KDE", "org.kde.plasma-systemmonitor"},
    Known{"KDE", "org.kde.ksysguard"},
    Known{"XFCE", "xfce4-taskmanager"},
    Known{"MATE", "mate-system-monitor"},
    Known{"LXQt", "qps"},
    Known{"LXDE", "lxtask"},
    Known{"Deepin", "deepin-system-monitor"},
    Known{"", "io.missioncenter.MissionCenter"},
    Known{"", "net.nokyan.Resources"},
};

/// The parts of a list with colons, without the empty ones.
std::vector<std::string> partsOf(std::string_view list) {
    std::vector<std::string> parts;
    while (!list.empty()) {
        const auto end = std::min(list.find(':'), list.size());
        if (end > 0) parts.emplace_back(list.substr(0, end));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return parts;
}

}  // namespace

SystemMonitor::SystemMonitor(const LinuxRoot& root, Environment environment, Start start)
    : root_(&root), environment_(std::move(environment)), start_(std::move(start)) {
    if (!start_) start_ = [](const std::vector<std::string>& command) { startDetached(command); };
}

std::vector<std::string> SystemMonitor::folders() const {
    const auto valueOf = [this](const char* name, std::string otherwise) {
        const auto value = environment_(name).value_or("");
        return value.empty() ? std::move(otherwise) : value;
    };
    const std::string home = environment_("HOME").value_or("");
    std::vector<std::string> all{valueOf("XDG_DATA_HOME", home + "/.local/share")};
    for (auto& folder : partsOf(valueOf("XDG_DATA_DIRS", "/usr/local/share:/usr/share")))
        all.push_back(std::move(folder));
    return all;
}

bool SystemMonitor::isInstalled(const std::string& program) const {
    if (program.find('/') != std::string::npos) return root_->exists(program);
    const auto path = partsOf(environment_("PATH").value_or("/usr/local/bin:/usr/bin:/bin"));
    return std::ranges::any_of(
        path, [&](const std::string& folder) { return root_->exists(folder + "/" + program); });
}

std::optional<std::vector<std::string>> SystemMonitor::command() const {
    const auto desktops = partsOf(environment_("XDG_CURRENT_DESKTOP").value_or(""));
    const auto isOfThisDesktop = [&desktops](const Known& one) {
        return std::ranges::find(desktops, one.desktop) != desktops.end();
    };
    std::vector<Known> wanted;
    std::ranges::copy_if(known, std::back_inserter(wanted), isOfThisDesktop);
    std::ranges::copy_if(known, std::back_inserter(wanted), std::not_fn(isOfThisDesktop));
    const auto where = folders();
    for (const Known& one : wanted) {
        for (const std::string& folder : where) {
            const auto file =
                root_->read(folder + "/applications/" + std::string(one.entry) + ".desktop");
            if (!file) continue;
            auto entry = parseDesktopEntry(*file);
            const bool isUsable = entry && !entry->isHidden && !entry->needsTerminal &&
                                  isInstalled(entry->command.front());
            if (isUsable) return std::move(entry->command);
            break;  // the first one hides those behind it
        }
    }
    return std::nullopt;
}

void SystemMonitor::open() const {
    if (const auto found = command()) start_(*found);
}

}  // namespace vtx
