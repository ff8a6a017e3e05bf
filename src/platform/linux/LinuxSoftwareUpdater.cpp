// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxSoftwareUpdater.h"

#include <fmt/format.h>
#include <systemd/sd-bus.h>

#include <algorithm>
#include <charconv>
#include <utility>

#include "base/Log.h"
#include "platform/UserDefaults.h"
#include "platform/UserNotificationCenter.h"

namespace vtx {
namespace {

constexpr Logger logger{"LinuxSoftwareUpdater"};
constexpr std::string_view on = "true";
constexpr std::string_view off = "false";
constexpr Duration tolerance = std::chrono::minutes(10);
constexpr auto notificationID = "vantrix.update";

const BusObject bus{"org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus"};

std::int64_t secondsOf(Date date) {
    return std::chrono::floor<std::chrono::seconds>(date.time_since_epoch()).count();
}

std::optional<std::int64_t> numberIn(const std::optional<Data>& stored) {
    if (!stored) return std::nullopt;
    const std::string_view text = asText(*stored);
    std::int64_t number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (read.ec != std::errc{} || read.ptr != text.data() + text.size()) return std::nullopt;
    return number;
}

bool isNewer(const ToldPackage& told, const PackageID& own) {
    return told.info != packageKit::infoBlocked && told.id.name == own.name &&
           told.id.architecture == own.architecture && told.id.version != own.version;
}

}  // namespace

LinuxSoftwareUpdater::LinuxSoftwareUpdater(const Tools& tools, std::string executable)
    : tools_(tools),
      executable_(std::move(executable)),
      isAutomatic_(tools.defaults.data(automaticKey) == toData(on)),
      question_(tools.bus, tools.clock),
      transaction_(tools.bus, tools.clock) {}

void LinuxSoftwareUpdater::start() {
    question_.start({bus, "ListActivatableNames", {}}, [this](BusMessage& answer) {
        const auto names = answer.texts().value_or(std::vector<std::string>());
        const bool canBeStarted = std::ranges::count(names, packageKit::serviceName) != 0;
        if (canBeStarted) return becomeAvailable();
        if (tools_.bus.isOpen()) askWhetherItRuns();
    });
}

/// One that the bus cannot start is there while it runs, once it was seen.
void LinuxSoftwareUpdater::askWhetherItRuns() {
    coming_ = tools_.bus.onOwnerChanged(packageKit::serviceName,
                                        [this](BusMessage&) { becomeAvailable(); });
    const auto append = [](sd_bus_message* message) {
        return sd_bus_message_append(message, "s", packageKit::serviceName);
    };
    question_.start({bus, "NameHasOwner", append}, [this](BusMessage& answer) {
        if (answer.boolean().value_or(false)) becomeAvailable();
    });
}

void LinuxSoftwareUpdater::becomeAvailable() {
    coming_.cancel();
    if (std::exchange(isAvailable_, true)) return;
    plan();
    availabilityChanged_.emit();
}

void LinuxSoftwareUpdater::setAutomaticallyChecksForUpdates(bool automatically) {
    if (std::exchange(isAutomatic_, automatically) == automatically) return;
    tools_.defaults.setData(automaticKey, toData(automatically ? on : off));
    plan();
}

void LinuxSoftwareUpdater::plan() {
    timer_.cancel();
    if (!isAvailable_ || !isAutomatic_ || !waiting_.empty()) return;
    timer_ = tools_.clock.schedule(tools_.clock.continuous() + delay(), tolerance,
                                   [this] { lookByItself(); });
}

Duration LinuxSoftwareUpdater::delay() const {
    if (isFailing_) return retryInterval;
    const auto last = numberIn(tools_.defaults.data(lastLookKey));
    const std::int64_t now = secondsOf(tools_.clock.now());
    // A date to come is that of a clock that was set since.
    if (!last || *last > now || *last < 0) return leastDelay;
    constexpr std::int64_t whole = interval / std::chrono::seconds(1);
    const std::chrono::seconds passed(std::min(now - *last, whole));
    return std::max<Duration>(interval - passed, leastDelay);
}

void LinuxSoftwareUpdater::lookByItself() {
    look(Interest::background, [this](const UpdateAnswer& found) {
        if (found.kind == UpdateAnswer::Kind::available) notify(found.version);
    });
}

void LinuxSoftwareUpdater::notify(const std::string& version) {
    tools_.notifications.add({notificationID, fmt::format("Vantrix {} is available", version),
                              "Install it with your system's updates."},
                             [](const std::optional<std::string>& error) {
                                 if (error) logger.info("Nobody showed of an update: {}", *error);
                             });
}

void LinuxSoftwareUpdater::checkForUpdates(Answered answered) {
    if (!isAvailable_) return answered({.kind = UpdateAnswer::Kind::failed});
    look(Interest::user, std::move(answered));
}

void LinuxSoftwareUpdater::look(Interest interest, Answered answered) {
    waiting_.push_back(std::move(answered));
    // One that is under way answers all.
    if (waiting_.size() > 1) return;
    timer_.cancel();
    interest_ = interest;
    const auto append = [this](sd_bus_message* message) {
        return sd_bus_message_append(message, "tas", packageKit::filterInstalled, 1,
                                     executable_.c_str());
    };
    run("SearchFiles", append, [this](const std::vector<ToldPackage>& told) {
        const auto own = std::ranges::find(told, packageKit::infoInstalled, &ToldPackage::info);
        if (own == told.end()) return answer({.kind = UpdateAnswer::Kind::notPackaged});
        fetchLists(own->id);
    });
}

void LinuxSoftwareUpdater::fetchLists(PackageID own) {
    const auto append = [](sd_bus_message* message) {
        constexpr int onlyIfOld = 0;
        return sd_bus_message_append(message, "b", onlyIfOld);
    };
    run("RefreshCache", append,
        [this, own = std::move(own)](const std::vector<ToldPackage>&) { findNewer(own); });
}

void LinuxSoftwareUpdater::findNewer(const PackageID& own) {
    const auto append = [](sd_bus_message* message) {
        return sd_bus_message_append(message, "t", packageKit::filterNone);
    };
    run("GetUpdates", append, [this, own](const std::vector<ToldPackage>& told) {
        const auto newer = std::ranges::find_if(
            told, [&own](const ToldPackage& package) { return isNewer(package, own); });
        if (newer == told.end()) return answer({.kind = UpdateAnswer::Kind::upToDate});
        answer({.kind = UpdateAnswer::Kind::available, .version = newer->id.version});
    });
}

void LinuxSoftwareUpdater::run(const std::string& method,
                               std::function<int(sd_bus_message*)> append,
                               std::function<void(const std::vector<ToldPackage>&)> succeeded) {
    transaction_.start({method, std::move(append), interest_},
                       [this, succeeded = std::move(succeeded)](const auto& result) {
                           if (!result.error) return succeeded(result.packages);
                           answer({.kind = UpdateAnswer::Kind::failed, .error = *result.error});
                       });
}

void LinuxSoftwareUpdater::answer(const UpdateAnswer& what) {
    const bool failed = what.kind == UpdateAnswer::Kind::failed;
    if (!failed)
        tools_.defaults.setData(lastLookKey, toData(std::to_string(secondsOf(tools_.clock.now()))));
    if (failed && !isFailing_) logger.standard("Looking for updates failed: {}", what.error);
    if (!failed && isFailing_) logger.info("Looking for updates works again");
    isFailing_ = failed;
    const auto told = std::exchange(waiting_, {});
    plan();
    for (const Answered& tell : told) tell(what);
}

}  // namespace vtx
