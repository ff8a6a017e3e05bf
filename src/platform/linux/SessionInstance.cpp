// SPDX-License-Identifier: MIT
#include "platform/linux/SessionInstance.h"

#include <poll.h>
#include <systemd/sd-bus.h>

#include <algorithm>
#include <cerrno>
#include <chrono>

#include "base/Log.h"

namespace vtx {
namespace {

constexpr Logger logger{"SessionInstance"};
constexpr auto interface = "org.freedesktop.Application";
constexpr std::chrono::milliseconds busPatience{1000};
constexpr std::uint64_t answerPatienceUs = 5'000'000;

using Steady = std::chrono::steady_clock;

std::string pathOf(std::string name) {
    std::ranges::replace(name, '.', '/');
    return "/" + name;
}

/// Whether the bus has let us in before then; one that hangs would keep a plain call waiting.
bool isReadyBefore(sd_bus* bus, Steady::time_point deadline) {
    for (;;) {
        const int processed = sd_bus_process(bus, nullptr);
        if (processed < 0) return false;
        if (sd_bus_is_ready(bus) > 0) return true;
        if (processed > 0) continue;
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Steady::now());
        if (left.count() <= 0) return false;
        pollfd state{sd_bus_get_fd(bus), static_cast<short>(sd_bus_get_events(bus)), 0};
        if (::poll(&state, 1, static_cast<int>(left.count())) < 0 && errno != EINTR) return false;
    }
}

}  // namespace

/// What later starts, and desktops, call.
struct SessionInstance::Table {
    static int activate(sd_bus_message* call, void* self, sd_bus_error*) {
        const int sent = sd_bus_reply_method_return(call, "");
        // A copy: what it does may end the listening.
        if (const auto tell = static_cast<SessionInstance*>(self)->onActivate_) tell();
        return sent;
    }
    static const sd_bus_vtable rows[];
};

const sd_bus_vtable SessionInstance::Table::rows[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("Activate", "a{sv}", "", activate, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END};

SessionInstance::SessionInstance(std::string name, std::string busAddress)
    : name_(std::move(name)), path_(pathOf(name_)), busAddress_(std::move(busAddress)) {}

SessionInstance::~SessionInstance() { close(); }

void SessionInstance::close() {
    watch_.cancel();
    bus_ = sd_bus_close_unref(bus_);
}

bool SessionInstance::connect() {
    return sd_bus_new(&bus_) >= 0 && sd_bus_set_address(bus_, busAddress_.c_str()) >= 0 &&
           sd_bus_set_bus_client(bus_, 1) >= 0 && sd_bus_start(bus_) >= 0 &&
           isReadyBefore(bus_, Steady::now() + busPatience) &&
           sd_bus_set_method_call_timeout(bus_, answerPatienceUs) >= 0 &&
           // Before the name, whose first caller may be quick.
           sd_bus_add_object_vtable(bus_, nullptr, path_.c_str(), interface, Table::rows, this) >=
               0;
}

SessionInstance::Claim SessionInstance::claim() {
    hasClaimed_ = true;
    const int result = connect() ? sd_bus_request_name(bus_, name_.c_str(), 0) : -ENOTCONN;
    if (result >= 0) return Claim::first;
    Claim claim = result == -EEXIST ? askFirst() : Claim::noBus;
    // One that was just ending answers no more, and leaves the name.
    if (claim == Claim::unanswered && sd_bus_request_name(bus_, name_.c_str(), 0) >= 0)
        return Claim::first;
    close();
    return claim;
}

SessionInstance::Claim SessionInstance::askFirst() {
    sd_bus_message* call = nullptr;
    int result = sd_bus_message_new_method_call(bus_, &call, name_.c_str(), path_.c_str(),
                                                interface, "Activate");
    if (result >= 0) result = sd_bus_message_set_auto_start(call, 0);
    if (result >= 0) result = sd_bus_message_append(call, "a{sv}", 0);
    if (result >= 0) result = sd_bus_call(bus_, call, 0, nullptr, nullptr);
    sd_bus_message_unref(call);
    return result < 0 ? Claim::unanswered : Claim::handedOver;
}

void SessionInstance::listen(RunLoop& loop, Executor& main, std::function<void()> onActivate) {
    if (!hasClaimed_) return;
    if (!bus_) {
        logger.standard("There is no session bus: a second start will not find this one");
        return;
    }
    onActivate_ = std::move(onActivate);
    watch_ = loop.watch(sd_bus_get_fd(bus_), POLLIN, [this] { process(); });
    // What was read with the answers to the claim makes no descriptor ready.
    self_ = std::make_shared<SessionInstance*>(this);
    main.post([weak = std::weak_ptr(self_)] {
        if (const auto self = weak.lock()) (*self)->process();
    });
}

void SessionInstance::process() {
    int result = 1;
    while (bus_ && result > 0) result = sd_bus_process(bus_, nullptr);
    if (result < 0) close();
}

}  // namespace vtx
