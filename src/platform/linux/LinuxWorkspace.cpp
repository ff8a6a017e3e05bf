// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxWorkspace.h"

#include <utility>

namespace vtx {
namespace {

const BusObject& loginManager() {
    static const BusObject object{"org.freedesktop.login1", "/org/freedesktop/login1",
                                  "org.freedesktop.login1.Manager"};
    return object;
}

}  // namespace

LinuxWorkspace::LinuxWorkspace(SystemBus& bus, Executor& main, FrontmostProcess frontmost)
    : bus_(bus),
      main_(main),
      frontmost_(std::move(frontmost)),
      self_(std::make_shared<LinuxWorkspace*>(this)) {}

std::optional<std::int32_t> LinuxWorkspace::frontmostApplication() {
    return frontmost_ ? frontmost_() : std::nullopt;
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
