// SPDX-License-Identifier: MIT
#include "support/AccessibleTree.h"

#include <systemd/sd-bus.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <stdexcept>

namespace vtx::e2e {
namespace {

constexpr auto accessibleInterface = "org.a11y.atspi.Accessible";
constexpr auto registryName = "org.a11y.atspi.Registry";
constexpr auto rootPath = "/org/a11y/atspi/accessible/root";
constexpr std::uint64_t callTimeoutMicroseconds = 5'000'000;

void check(int result, const char* what) {
    if (result < 0) throw std::runtime_error(std::string(what) + ": " + std::to_string(-result));
}

sd_bus* connected(const std::string& address) {
    sd_bus* bus = nullptr;
    check(sd_bus_new(&bus), "bus");
    check(sd_bus_set_address(bus, address.c_str()), "address of the bus");
    check(sd_bus_set_bus_client(bus, 1), "client of the bus");
    check(sd_bus_start(bus), "connection to the bus");
    return bus;
}

/// The session's bus starts the other one when it is asked for its address.
std::string accessibilityBus(const std::string& sessionBus) {
    sd_bus* session = connected(sessionBus);
    sd_bus_message* reply = nullptr;
    const char* address = nullptr;
    const int called = sd_bus_call_method(session, "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus",
                                          "GetAddress", nullptr, &reply, "");
    if (called >= 0) sd_bus_message_read(reply, "s", &address);
    const std::string found = address ? address : "";
    sd_bus_message_unref(reply);
    sd_bus_flush_close_unref(session);
    check(called, "accessibility bus");
    return found;
}

}  // namespace

void AccessibleTree::Unref::operator()(sd_bus_message* message) const {
    sd_bus_message_unref(message);
}

AccessibleTree::AccessibleTree(const std::string& sessionBus)
    : bus_(connected(accessibilityBus(sessionBus))) {
    check(sd_bus_set_method_call_timeout(bus_, callTimeoutMicroseconds), "timeout");
    const auto handler = [](sd_bus_message* message, void* self, sd_bus_error*) {
        return onSignal(message, self, nullptr);
    };
    check(sd_bus_match_signal(bus_, nullptr, nullptr, nullptr, "org.a11y.atspi.Event.Object",
                              nullptr, handler, this),
          "match");
    listenTo("object:property-change:accessible-name");
    listenTo("object:property-change");
    listenTo("object:state-changed:focused");
    listenTo("object:state-changed");
}

AccessibleTree::~AccessibleTree() { sd_bus_flush_close_unref(bus_); }

void AccessibleTree::listenTo(const char* event) {
    sd_bus_error error{};
    const int result =
        sd_bus_call_method(bus_, registryName, "/org/a11y/atspi/registry", registryName,
                           "RegisterEvent", &error, nullptr, "sass", event, 0, "");
    sd_bus_error_free(&error);
    check(result, "events of the accessibility bus");
}

AccessibleTree::Message AccessibleTree::call(const std::string& bus, const std::string& path,
                                             const char* interface, const char* method,
                                             std::optional<unsigned> argument) {
    sd_bus_error error{};
    sd_bus_message* reply = nullptr;
    if (argument)
        sd_bus_call_method(bus_, bus.c_str(), path.c_str(), interface, method, &error, &reply, "u",
                           *argument);
    else
        sd_bus_call_method(bus_, bus.c_str(), path.c_str(), interface, method, &error, &reply, "");
    sd_bus_error_free(&error);
    return Message(reply);
}

std::string AccessibleTree::property(const std::string& bus, const std::string& path,
                                     const char* name) {
    sd_bus_error error{};
    char* text = nullptr;
    sd_bus_get_property_string(bus_, bus.c_str(), path.c_str(), accessibleInterface, name, &error,
                               &text);
    sd_bus_error_free(&error);
    const std::unique_ptr<char, decltype(&std::free)> owned(text, std::free);
    return text ? text : "";
}

std::vector<Accessible> AccessibleTree::referencesIn(sd_bus_message* message) {
    std::vector<Accessible> found;
    if (!message || sd_bus_message_enter_container(message, 'a', "(so)") < 0) return found;
    const char *bus = nullptr, *path = nullptr;
    while (sd_bus_message_read(message, "(so)", &bus, &path) > 0)
        found.emplace_back(*this, bus, path);
    return found;
}

std::vector<Accessible> AccessibleTree::applications() {
    return referencesIn(call(registryName, rootPath, accessibleInterface, "GetChildren").get());
}

std::vector<AccessibleEvent> AccessibleTree::newEvents(const std::string& kind) {
    while (sd_bus_process(bus_, nullptr) > 0) continue;
    std::vector<AccessibleEvent> found;
    std::ranges::copy_if(events_, std::back_inserter(found),
                         [&kind](const AccessibleEvent& event) { return event.kind == kind; });
    std::erase_if(events_, [&kind](const AccessibleEvent& event) { return event.kind == kind; });
    return found;
}

int AccessibleTree::onSignal(sd_bus_message* message, void* self, void* /*error*/) {
    static_cast<AccessibleTree*>(self)->collect(message);
    return 0;
}

void AccessibleTree::collect(sd_bus_message* signal) {
    const char* detail = nullptr;
    std::int32_t value = 0;
    if (sd_bus_message_read(signal, "si", &detail, &value) <= 0) return;
    events_.push_back(
        {std::string(sd_bus_message_get_member(signal)) + ":" + detail,
         Accessible(*this, sd_bus_message_get_sender(signal), sd_bus_message_get_path(signal)),
         value});
}

std::string Accessible::property(const char* name) const {
    return tree_->property(bus_, path_, name);
}

std::string Accessible::role() const {
    const auto reply = tree_->call(bus_, path_, accessibleInterface, "GetRoleName");
    const char* text = nullptr;
    if (reply) sd_bus_message_read(reply.get(), "s", &text);
    return text ? text : "";
}

bool Accessible::hasState(unsigned number) const {
    const auto reply = tree_->call(bus_, path_, accessibleInterface, "GetState");
    const void* words = nullptr;
    std::size_t size = 0;
    if (!reply || sd_bus_message_read_array(reply.get(), 'u', &words, &size) < 0) return false;
    constexpr unsigned wordBits = 32;
    if (size < (number / wordBits + 1) * sizeof(std::uint32_t)) return false;
    const auto word = static_cast<const std::uint32_t*>(words)[number / wordBits];
    return (word >> (number % wordBits) & 1U) != 0;
}

Place Accessible::place() const {
    constexpr unsigned onTheScreen = 0;
    const auto reply =
        tree_->call(bus_, path_, "org.a11y.atspi.Component", "GetExtents", onTheScreen);
    Place place;
    if (reply)
        sd_bus_message_read(reply.get(), "(iiii)", &place.x, &place.y, &place.width, &place.height);
    return place;
}

std::vector<Accessible> Accessible::children() const {
    return tree_->referencesIn(tree_->call(bus_, path_, accessibleInterface, "GetChildren").get());
}

std::optional<Accessible> Accessible::parent() const {
    sd_bus_error error{};
    sd_bus_message* reply = nullptr;
    sd_bus_get_property(tree_->bus_, bus_.c_str(), path_.c_str(), accessibleInterface, "Parent",
                        &error, &reply, "(so)");
    sd_bus_error_free(&error);
    const AccessibleTree::Message owned(reply);
    const char *bus = nullptr, *path = nullptr;
    if (!reply || sd_bus_message_read(reply, "(so)", &bus, &path) <= 0) return std::nullopt;
    return Accessible(*tree_, bus, path);
}

std::optional<Accessible> Accessible::find(
    const std::function<bool(const Accessible&)>& wanted) const {
    if (wanted(*this)) return *this;
    for (const Accessible& child : children())
        if (auto found = child.find(wanted)) return found;
    return std::nullopt;
}

std::optional<Accessible> Accessible::findNamed(const std::string& wanted) const {
    return find([&wanted](const Accessible& one) { return one.name() == wanted; });
}

std::optional<Accessible> Accessible::findRole(const std::string& wanted) const {
    return find([&wanted](const Accessible& one) { return one.role() == wanted; });
}

std::string Accessible::drawing(int indent) const {
    std::string text =
        std::string(static_cast<std::size_t>(indent) * 2, ' ') + role() + " \"" + name() + "\"";
    if (const auto more = description(); !more.empty()) text += " (" + more + ")";
    text += isShowing() ? "\n" : " hidden\n";
    for (const Accessible& child : children()) text += child.drawing(indent + 1);
    return text;
}

}  // namespace vtx::e2e
