// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxUserNotificationCenter.h"

#include <systemd/sd-bus.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "base/Log.h"

namespace vtx {
namespace {

constexpr Logger logger{"LinuxUserNotificationCenter"};
constexpr auto serverName = "org.freedesktop.Notifications";
constexpr auto applicationName = "Vantrix";
/// Of the desktops' common set, so that every theme has it.
constexpr auto icon = "utilities-system-monitor";
constexpr auto sound = "dialog-warning";
constexpr std::uint8_t normalUrgency = 1;
constexpr std::int32_t asLongAsTheServerLikes = -1;

const BusObject bus{"org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus"};
const BusObject notifications{serverName, "/org/freedesktop/Notifications", serverName};

std::string withoutMarkup(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '&')
            escaped += "&amp;";
        else if (c == '<')
            escaped += "&lt;";
        else if (c == '>')
            escaped += "&gt;";
        else
            escaped += c;
    }
    return escaped;
}

int appendHints(sd_bus_message* message, bool withSound) {
    if (withSound)
        return sd_bus_message_append(message, "a{sv}", 2, "urgency", "y", normalUrgency,
                                     "sound-name", "s", sound);
    return sd_bus_message_append(message, "a{sv}", 1, "urgency", "y", normalUrgency);
}

}  // namespace

void LinuxUserNotificationCenter::requestAuthorization(Authorized completion) {
    if (!session_) return completion({});
    const auto append = [](sd_bus_message* message) {
        return sd_bus_message_append(message, "s", serverName);
    };
    const auto call = begin();
    call->start({bus, "NameHasOwner", append},
                [this, call, completion = std::move(completion)](BusMessage& answer) {
                    const bool isThere = answer.boolean().value_or(false);
                    if (!isThere && !answer.isFailure()) return askForActivatable(call, completion);
                    // Without a bus there is no server, which is no error.
                    Authorization told{isThere, std::nullopt};
                    if (!isThere && session_->isOpen()) told.error = answer.error();
                    calls_.erase(call);
                    completion(told);
                });
}

void LinuxUserNotificationCenter::askForActivatable(Calls::iterator call, Authorized completion) {
    call->start({bus, "ListActivatableNames", {}},
                [this, call, completion = std::move(completion)](BusMessage& answer) {
                    const auto names = answer.texts().value_or(std::vector<std::string>());
                    Authorization told{std::ranges::find(names, serverName) != names.end(), {}};
                    if (answer.isFailure())
                        told.error = answer.error();
                    else if (!told.isGranted)
                        logger.info("The session has no notification server");
                    calls_.erase(call);
                    completion(told);
                });
}

void LinuxUserNotificationCenter::add(const NotificationRequest& request, Added completion) {
    if (!session_) return completion("there is no session bus");
    const auto call = begin();
    call->start({notifications, "GetCapabilities", {}, BusCall::Activation::ifNeeded},
                [this, call, request, completion = std::move(completion)](BusMessage& answer) {
                    // Also to one that gave no answer, which may just be starting.
                    notify(call, request, serverOf(answer), completion);
                });
}

void LinuxUserNotificationCenter::notify(Calls::iterator call, const NotificationRequest& request,
                                         const Server& server, Added completion) {
    const std::string body = server.takesMarkup ? withoutMarkup(request.body) : request.body;
    const auto append = [&](sd_bus_message* message) {
        const int fixed = sd_bus_message_append(message, "susssas", applicationName,
                                                replacedBy(request.identifier, server.owner), icon,
                                                request.title.c_str(), body.c_str(), 0);
        if (fixed < 0) return fixed;
        const int hints = appendHints(message, server.playsSound);
        if (hints < 0) return hints;
        return sd_bus_message_append(message, "i", asLongAsTheServerLikes);
    };
    call->start({notifications, "Notify", append, BusCall::Activation::ifNeeded},
                [this, call, identifier = request.identifier,
                 completion = std::move(completion)](BusMessage& answer) {
                    std::optional<std::string> error;
                    if (answer.isFailure())
                        error = answer.error();
                    else
                        remember(identifier, answer);
                    calls_.erase(call);
                    completion(error);
                });
}

LinuxUserNotificationCenter::Server LinuxUserNotificationCenter::serverOf(
    BusMessage& capabilities) {
    Server server;
    server.owner = capabilities.sender();
    for (const auto& capability : capabilities.texts().value_or(std::vector<std::string>())) {
        if (capability == "body-markup") server.takesMarkup = true;
        if (capability == "sound") server.playsSound = true;
    }
    return server;
}

std::uint32_t LinuxUserNotificationCenter::replacedBy(const std::string& identifier,
                                                      const std::string& owner) const {
    const auto older = shown_.find(identifier);
    // The number of an earlier server may be that of another program's notification by now.
    return older != shown_.end() && older->second.owner == owner ? older->second.id : 0;
}

void LinuxUserNotificationCenter::remember(const std::string& identifier, BusMessage& answer) {
    const std::uint32_t id = answer.unsignedNumber().value_or(0);
    if (id != 0)
        shown_[identifier] = {answer.sender(), id};
    else
        shown_.erase(identifier);
    const bool isOdd = id == 0;
    if (isOdd && !isOddAnswerLogged_)
        logger.standard("The notification server gives its notifications no numbers");
    isOddAnswerLogged_ = isOdd;
}

}  // namespace vtx
