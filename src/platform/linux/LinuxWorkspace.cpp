// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxWorkspace.h"

#include <systemd/sd-bus.h>

#include <string_view>
#include <utility>

#include "base/Log.h"
#include "platform/linux/FileURI.h"

namespace vtx {
namespace {

constexpr Logger logger{"LinuxWorkspace"};
constexpr std::string_view noBus = "there is no session bus";

const BusObject& fileManager() {
    static const BusObject object{"org.freedesktop.FileManager1", "/org/freedesktop/FileManager1",
                                  "org.freedesktop.FileManager1"};
    return object;
}

const BusObject& loginManager() {
    static const BusObject object{"org.freedesktop.login1", "/org/freedesktop/login1",
                                  "org.freedesktop.login1.Manager"};
    return object;
}

}  // namespace

LinuxWorkspace::LinuxWorkspace(SystemBus& bus, Executor& main, Desktop desktop)
    : bus_(bus),
      main_(main),
      desktop_(std::move(desktop)),
      self_(std::make_shared<LinuxWorkspace*>(this)) {}

LinuxWorkspace::LinuxWorkspace(SystemBus& bus, Executor& main)
    : LinuxWorkspace(bus, main, Desktop()) {}

std::optional<std::int32_t> LinuxWorkspace::frontmostApplication() {
    return desktop_.frontmost ? desktop_.frontmost() : std::nullopt;
}

void LinuxWorkspace::selectFile(const std::string& path) {
    if (!desktop_.session) return showFolderOf(path, noBus);
    const std::string uri = fileURI(path);
    const auto append = [&uri](sd_bus_message* message) {
        return sd_bus_message_append(message, "ass", 1, uri.c_str(), "");
    };
    fileManager_ =
        desktop_.session->call({fileManager(), "ShowItems", append, BusCall::Activation::ifNeeded},
                               [this, path](BusMessage& answer) {
                                   if (answer.isFailure()) showFolderOf(path, answer.error());
                               });
    if (!fileManager_) showFolderOf(path, noBus);
}

void LinuxWorkspace::showFolderOf(const std::string& file, std::string_view why) {
    logger.error("No file manager shows {}: {}", file, why);
    if (desktop_.openFolder) desktop_.openFolder(file.substr(0, file.rfind('/') + 1));
}

bool LinuxWorkspace::hasSystemMonitor() {
    return desktop_.monitor && desktop_.monitor->command().has_value();
}

void LinuxWorkspace::openSystemMonitor() {
    if (desktop_.monitor) desktop_.monitor->open();
}

Subscription LinuxWorkspace::onWillSleep(std::function<void()> handler) {
    auto token = willSleep_.subscribe(std::move(handler));
    listen();
    if (!isAsleep_) takeInhibitor();
    return token;
}

Subscription LinuxWorkspace::onDidWake(std::function<void()> handler) {
    auto token = didWake_.subscribe(std::move(handler));
    listen();
    return token;
}

void LinuxWorkspace::listen() {
    if (isListening_) return;
    isListening_ = true;
    sleepSignal_ = bus_.onSignal(loginManager(), "PrepareForSleep", [this](BusMessage& message) {
        if (const auto isStarting = message.boolean()) prepareForSleep(*isStarting);
    });
}

void LinuxWorkspace::prepareForSleep(bool isStarting) {
    // Each edge once; a wake without its sleep is of a sleep that nobody was told of.
    if (isStarting == isAsleep_) return;
    isAsleep_ = isStarting;
    if (isStarting) {
        willSleep_.emit();
        // Behind the jobs that the handlers have posted.
        main_.post([weak = std::weak_ptr(self_)] {
            if (const auto self = weak.lock()) (*self)->releaseInhibitor();
        });
    } else {
        if (willSleep_.hasSubscribers()) takeInhibitor();
        didWake_.emit();
    }
}

void LinuxWorkspace::takeInhibitor() {
    if (inhibitor_ || inhibitCall_) return;
    inhibitCall_ =
        bus_.call(loginManager(), "Inhibit",
                  {"sleep", "Vantrix", "Sampling pauses before the machine sleeps", "delay"},
                  [this](BusMessage& answer) {
                      FileDescriptor given = answer.descriptor();
                      inhibitCall_ = {};
                      if (!isAsleep_) inhibitor_ = std::move(given);
                  });
}

void LinuxWorkspace::releaseInhibitor() {
    if (!isAsleep_) return;  // it woke meanwhile and holds a new one
    inhibitCall_ = {};
    inhibitor_.reset();
}

}  // namespace vtx
