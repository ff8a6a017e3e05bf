// SPDX-License-Identifier: MIT
#include "platform/linux/SystemSoftware.h"

#include <algorithm>
#include <array>

namespace vtx {
namespace {

/// Programs that other programs start.
constexpr std::array<std::string_view, 8> systemFolders{
    "/usr/libexec/", "/usr/lib/systemd/",  "/lib/systemd/",  "/usr/sbin/",
    "/sbin/",        "/usr/lib/polkit-1/", "/usr/lib/gvfs/", "/usr/lib/at-spi2-core/"};

/// A desktop cannot do without these: its display, its windows, its session, its messages, its
/// sound, its input, its keys. Sorted.
constexpr std::array<std::string_view, 58> desktopPrograms{"(sd-pam)",
                                                           "Hyprland",
                                                           "Xorg",
                                                           "Xwayland",
                                                           "at-spi-bus-laun",
                                                           "at-spi2-registr",
                                                           "budgie-panel",
                                                           "budgie-wm",
                                                           "cinnamon",
                                                           "cinnamon-session",
                                                           "compiz",
                                                           "dbus-broker",
                                                           "dbus-broker-lau",
                                                           "dbus-broker-launch",
                                                           "dbus-daemon",
                                                           "dconf-service",
                                                           "fcitx5",
                                                           "gdm-wayland-session",
                                                           "gdm-x-session",
                                                           "gnome-keyring-daemon",
                                                           "gnome-session-b",
                                                           "gnome-session-binary",
                                                           "gnome-shell",
                                                           "gpg-agent",
                                                           "ibus-daemon",
                                                           "kded5",
                                                           "kded6",
                                                           "ksmserver",
                                                           "kwin_wayland",
                                                           "kwin_wayland_wrapper",
                                                           "kwin_x11",
                                                           "labwc",
                                                           "lxqt-panel",
                                                           "lxqt-session",
                                                           "lxsession",
                                                           "marco",
                                                           "mate-panel",
                                                           "mate-session",
                                                           "metacity",
                                                           "muffin",
                                                           "mutter",
                                                           "openbox",
                                                           "pipewire",
                                                           "pipewire-pulse",
                                                           "plasma_session",
                                                           "plasmashell",
                                                           "pulseaudio",
                                                           "ssh-agent",
                                                           "startplasma-wayland",
                                                           "startplasma-x11",
                                                           "sway",
                                                           "systemd",
                                                           "wayfire",
                                                           "weston",
                                                           "wireplumber",
                                                           "xfce4-panel",
                                                           "xfce4-session",
                                                           "xfwm4"};
static_assert(std::ranges::is_sorted(desktopPrograms));

bool isDesktopProgram(std::string_view name) {
    return std::ranges::binary_search(desktopPrograms, name);
}

}  // namespace

bool isSystemSoftware(ControlGroupRole role, std::string_view name, std::string_view path) {
    if (role == ControlGroupRole::application) return false;
    if (role == ControlGroupRole::system) return true;
    const auto lies = [path](std::string_view folder) { return path.starts_with(folder); };
    return std::ranges::any_of(systemFolders, lies) || isDesktopProgram(name) ||
           isDesktopProgram(path.substr(path.rfind('/') + 1));
}

}  // namespace vtx
