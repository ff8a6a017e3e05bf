// SPDX-License-Identifier: MIT
#include "platform/linux/PackageKit.h"

#include <systemd/sd-bus.h>

#include <utility>

namespace vtx {
namespace {

const BusObject service{packageKit::serviceName, "/org/freedesktop/PackageKit",
                        "org.freedesktop.PackageKit"};
constexpr auto transactionInterface = "org.freedesktop.PackageKit.Transaction";

constexpr std::uint32_t exitSuccess = 1;
/// What stands above may say how grave an update is.
constexpr std::uint32_t infoMask = 0xFFFF;
/// A machine has no more packages than that.
constexpr std::size_t mostPackages = 200'000;
constexpr Duration tolerance = std::chrono::seconds(10);

std::string_view takeField(std::string_view& text) {
    const auto end = text.find(';');
    const auto field = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return field;
}

int appendHints(sd_bus_message* message, PackageTransaction::Interest interest) {
    const bool waits = interest == PackageTransaction::Interest::user;
    return sd_bus_message_append(message, "as", 2, waits ? "background=false" : "background=true",
                                 waits ? "interactive=true" : "interactive=false");
}

}  // namespace

std::optional<PackageID> PackageID::parse(std::string_view text) {
    PackageID id;
    id.name = takeField(text);
    id.version = takeField(text);
    id.architecture = takeField(text);
    if (id.name.empty() || id.version.empty()) return std::nullopt;
    return id;
}

PackageTransaction::PackageTransaction(SystemBus& bus, Clock& clock)
    : bus_(bus), clock_(clock), creation_(bus, clock) {}

void PackageTransaction::start(Request request, Finished finished) {
    running_.clear();
    request_ = std::move(request);
    finished_ = std::move(finished);
    result_ = {};
    creation_.start({service, "CreateTransaction", {}, BusCall::Activation::ifNeeded},
                    [this](BusMessage& answer) {
                        const auto path = answer.objectPath();
                        if (path) return begin(*path);
                        fail(answer.error());
                    });
}

void PackageTransaction::begin(const std::string& path) {
    transaction_ = {service.service, path, transactionInterface};
    listen(transaction_);
    running_.push_back(clock_.schedule(clock_.continuous() + patience, tolerance, [this] {
        // Nobody waits for what it may still come to.
        (void)bus_.call(transaction_, "Cancel", {}, [](BusMessage&) {});
        fail("there was no answer in time");
    }));
    const auto hints = [interest = request_.interest](sd_bus_message* message) {
        return appendHints(message, interest);
    };
    // One that knows no hints does without.
    running_.push_back(bus_.call({transaction_, "SetHints", hints}, [](BusMessage&) {}));
    running_.push_back(
        bus_.call({transaction_, request_.method, request_.append}, [this](BusMessage& answer) {
            if (answer.isFailure()) fail(answer.error());
        }));
    if (!running_.back()) fail("there is no bus that takes the call");
}

void PackageTransaction::listen(const BusObject& transaction) {
    running_.push_back(
        bus_.onSignal(transaction, "Package", [this](BusMessage& package) { take(package); }));
    running_.push_back(bus_.onSignal(transaction, "ErrorCode", [this](BusMessage& error) {
        if (error.unsignedNumber()) result_.error = error.text().value_or(std::string());
    }));
    running_.push_back(bus_.onSignal(transaction, "Finished", [this](BusMessage& end) {
        const bool succeeded = end.unsignedNumber() == exitSuccess;
        if (!succeeded) return fail(result_.error.value_or(std::string()));
        result_.error.reset();
        finish();
    }));
    running_.push_back(bus_.onOwnerChanged(
        service.service, [this](BusMessage&) { fail("PackageKit has gone away"); }));
}

void PackageTransaction::take(BusMessage& package) {
    const auto info = package.unsignedNumber();
    const auto text = package.text();
    if (!info || !text || result_.packages.size() >= mostPackages) return;
    if (auto id = PackageID::parse(*text))
        result_.packages.push_back({*info & infoMask, *std::move(id)});
}

void PackageTransaction::fail(std::string error) {
    result_.packages.clear();
    result_.error = std::move(error);
    finish();
}

void PackageTransaction::finish() {
    running_.clear();
    const Finished tell = std::exchange(finished_, nullptr);
    const Result told = std::exchange(result_, {});
    if (tell) tell(told);
}

}  // namespace vtx
