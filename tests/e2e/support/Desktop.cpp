// SPDX-License-Identifier: MIT
#include "support/Desktop.h"

#include <unistd.h>

#include <fstream>
#include <random>
#include <stdexcept>

namespace vtx::e2e {
namespace {

/// What a program needs of the surroundings; everything else would tell of the user's own session.
Environment passedOn() {
    Environment kept;
    for (const char* name : {"PATH", "LD_LIBRARY_PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS", "TMPDIR"})
        if (const char* value = std::getenv(name)) kept[name] = value;
    return kept;
}

/// A field of the authority file: two bytes of length, most significant first, and the bytes.
std::string field(const std::string& text) {
    return {std::string{static_cast<char>(text.size() >> 8U), static_cast<char>(text.size())} +
            text};
}

/// Keeps the bus from starting the machine's own notification server, whose windows would take the
/// keyboard.
void leaveOutNotifications(const std::filesystem::path& services) {
    std::ofstream(services / "org.freedesktop.Notifications.service")
        << "[D-BUS Service]\nName=org.freedesktop.Notifications\nExec=/bin/false\n";
}

std::string randomBytes(std::size_t count) {
    std::random_device source;
    std::string bytes;
    while (bytes.size() < count) bytes += static_cast<char>(source());
    return bytes;
}

}  // namespace

Desktop::Desktop() : environment_(passedOn()) {
    environment_["HOME"] = folder_.sub("home");
    environment_["XDG_CONFIG_HOME"] = folder_.sub("config");
    environment_["XDG_RUNTIME_DIR"] = folder_.sub("runtime");
    environment_["XDG_CACHE_HOME"] = folder_.sub("cache");
    environment_["XDG_DATA_HOME"] = folder_.sub("data");
    environment_["LC_ALL"] = "C.UTF-8";
    environment_["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1";
    environment_["XAUTHORITY"] = (folder_.path() / "authority").string();
    writeAuthority();
    writeProfile();
    leaveOutNotifications(folder_.sub("data/dbus-1/services"));

    server_ = launch({"Xvfb", "-displayfd", "3", "-screen", "0", "1280x800x24", "-nolisten", "tcp",
                      "-noreset", "-auth", environment_["XAUTHORITY"]});
    environment_["DISPLAY"] = ":" + server_->announcement();
    ::setenv("XAUTHORITY", environment_["XAUTHORITY"].c_str(), 1);
    display_ = std::make_unique<XDisplay>(environment_["DISPLAY"]);
    user_ = std::make_unique<UserInput>(*display_);

    windowManager_ = launch({"openbox", "--sm-disable"});
    const auto managed = [this] {
        return !display_->numbers(display_->root(), "_NET_SUPPORTING_WM_CHECK").empty();
    };
    if (!eventually(managed))
        throw std::runtime_error("openbox did not start: " + windowManager_->errors());

    sessionBus_ = launch({"dbus-daemon", "--session", "--nofork", "--print-address=3"});
    environment_["DBUS_SESSION_BUS_ADDRESS"] = sessionBus_->announcement();
    accessibility_ = std::make_unique<AccessibleTree>(environment_["DBUS_SESSION_BUS_ADDRESS"]);
}

/// One entry for any display: its number is not known before the server has started.
void Desktop::writeAuthority() const {
    constexpr std::size_t cookieSize = 16;
    std::ofstream file(environment_.at("XAUTHORITY"), std::ios::binary);
    file << "\xFF\xFF" << field("") << field("") << field("MIT-MAGIC-COOKIE-1")
         << field(randomBytes(cookieSize));
}

/// Any record of preferences tells that the program was started before.
void Desktop::writeProfile() const {
    const std::filesystem::path settings = folder_.sub("config/vantrix");
    std::ofstream(settings / "defaults.json") << R"({"displayPreferences.v3": "{}"})";
}

void Desktop::forgetProfile() const {
    std::filesystem::remove_all(folder_.path() / "config" / "vantrix");
}

std::unique_ptr<ChildProcess> Desktop::launch(std::vector<std::string> command) const {
    const auto name = std::filesystem::path(command.at(0)).filename().string();
    return std::make_unique<ChildProcess>(
        ChildProcess::Launch{std::move(command), environment_, folder_.path() / (name + ".log")});
}

std::unique_ptr<ChildProcess> Desktop::start(std::vector<std::string> command) const {
    return launch(std::move(command));
}

std::optional<Accessible> Desktop::application(const std::string& name) {
    for (const Accessible& one : accessibility_->applications())
        if (one.name() == name) return one;
    return std::nullopt;
}

std::string Desktop::complaints() const {
    std::string all;
    for (const auto* part : {&server_, &windowManager_, &sessionBus_})
        if (*part) all += (*part)->name() + ":\n" + (*part)->errors();
    return all;
}

}  // namespace vtx::e2e
