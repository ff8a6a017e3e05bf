// SPDX-License-Identifier: MIT
#include "platform/linux/SystemBus.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <systemd/sd-bus.h>

#include "base/Log.h"

namespace vtx {
namespace {

constexpr Logger logger{"SystemBus"};

/// A flood of messages gives way to the main executor's other jobs after so many.
constexpr int messagesPerTurn = 32;

/// Dropped when leaving scope.
struct MessageOwner {
    sd_bus_message* message = nullptr;
    ~MessageOwner() { sd_bus_message_unref(message); }
};

/// What an answer says that is an error.
std::string errorOf(sd_bus_message* answer) {
    const sd_bus_error* error = sd_bus_message_get_error(answer);
    if (!error || !error->name) return {};
    return error->message && *error->message ? error->message : error->name;
}

int startConnection(const std::string& address, sd_bus** bus) {
    if (address.empty()) return sd_bus_open_system(bus);
    if (const int made = sd_bus_new(bus); made < 0) return made;
    if (const int set = sd_bus_set_address(*bus, address.c_str()); set < 0) return set;
    if (const int set = sd_bus_set_bus_client(*bus, 1); set < 0) return set;
    return sd_bus_start(*bus);
}

}  // namespace

std::optional<bool> BusMessage::boolean() {
    int value = 0;
    if (!message_ || sd_bus_message_read_basic(message_, 'b', &value) <= 0) return std::nullopt;
    return value != 0;
}

std::optional<std::string> BusMessage::text() {
    const char* value = nullptr;
    if (!message_ || sd_bus_message_read_basic(message_, 's', static_cast<void*>(&value)) <= 0)
        return std::nullopt;
    return value;
}

std::optional<std::vector<std::string>> BusMessage::texts() {
    if (!message_ || sd_bus_message_enter_container(message_, 'a', "s") <= 0) return std::nullopt;
    std::vector<std::string> all;
    while (auto one = text()) all.push_back(std::move(*one));
    sd_bus_message_exit_container(message_);
    return all;
}

std::optional<std::string> BusMessage::objectPath() {
    const char* value = nullptr;
    if (!message_ || sd_bus_message_read_basic(message_, 'o', static_cast<void*>(&value)) <= 0)
        return std::nullopt;
    return value;
}

std::optional<std::uint32_t> BusMessage::unsignedNumber() {
    std::uint32_t value = 0;
    if (!message_ || sd_bus_message_read_basic(message_, 'u', &value) <= 0) return std::nullopt;
    return value;
}

std::string BusMessage::sender() const {
    const char* name = message_ ? sd_bus_message_get_sender(message_) : nullptr;
    return name ? name : "";
}

std::optional<std::string> BusMessage::variantText() {
    if (!message_ || sd_bus_message_enter_container(message_, 'v', "s") <= 0) return std::nullopt;
    auto value = text();
    sd_bus_message_exit_container(message_);
    return value;
}

std::optional<bool> BusMessage::variantBoolean() {
    if (!message_ || sd_bus_message_enter_container(message_, 'v', "b") <= 0) return std::nullopt;
    const auto value = boolean();
    sd_bus_message_exit_container(message_);
    return value;
}

std::optional<std::uint32_t> BusMessage::variantUnsigned() {
    if (!message_) return std::nullopt;
    constexpr int deepest = 4;
    int depth = 0;
    while (depth < deepest && sd_bus_message_enter_container(message_, 'v', "v") > 0) ++depth;
    std::optional<std::uint32_t> value;
    if (sd_bus_message_enter_container(message_, 'v', "u") > 0) {
        value = unsignedNumber();
        sd_bus_message_exit_container(message_);
    }
    while (depth-- > 0) sd_bus_message_exit_container(message_);
    return value;
}

FileDescriptor BusMessage::descriptor() {
    int fd = -1;
    if (!message_ || sd_bus_message_read_basic(message_, 'h', &fd) <= 0) return {};
    return FileDescriptor(::fcntl(fd, F_DUPFD_CLOEXEC, 3));
}

/// A call under way or a match, with who is told. sd-bus knows it by its address.
struct SystemBus::Slot {
    explicit Slot(Handler h) : handler(std::move(h)) {}
    Slot(const Slot&) = delete;
    Slot& operator=(const Slot&) = delete;
    ~Slot() { sd_bus_slot_unref(slot); }

    static int onMessage(sd_bus_message* message, void* self, sd_bus_error* /*error*/) {
        const bool failed = sd_bus_message_is_method_error(message, nullptr) > 0;
        BusMessage told = failed ? BusMessage(nullptr, errorOf(message)) : BusMessage(message);
        // A copy: the handler may drop the token that owns it.
        const Handler tell = static_cast<Slot*>(self)->handler;
        tell(told);
        return 0;
    }
    /// How the bus answered the wish for a match: a refused one stays silent.
    static int onInstalled(sd_bus_message* /*answer*/, void* /*self*/, sd_bus_error* /*error*/) {
        return 0;
    }

    sd_bus_slot* slot = nullptr;
    Handler handler;
};

SystemBus::SystemBus(RunLoop& loop, Executor& main, std::string address)
    : loop_(loop),
      main_(main),
      address_(std::move(address)),
      self_(std::make_shared<SystemBus*>(this)) {}

SystemBus::~SystemBus() { close(); }

bool SystemBus::open() {
    if (wasOpened_) return bus_ != nullptr;
    wasOpened_ = true;
    if (const int result = startConnection(address_, &bus_); result < 0) {
        logger.debug("No system bus: error {}", -result);
        close();
        return false;
    }
    watch();
    return bus_ != nullptr;
}

void SystemBus::close() {
    watch_.cancel();
    // Without flushing, which could wait.
    bus_ = sd_bus_close_unref(bus_);
}

Subscription SystemBus::call(const BusCall& what, Handler answered) {
    if (!open()) return {};
    MessageOwner request;
    const BusObject& object = what.object;
    if (sd_bus_message_new_method_call(bus_, &request.message, object.service.c_str(),
                                       object.path.c_str(), object.interface.c_str(),
                                       what.method.c_str()) < 0) {
        return {};
    }
    sd_bus_message_set_auto_start(request.message,
                                  what.activation == BusCall::Activation::ifNeeded ? 1 : 0);
    if (what.append && what.append(request.message) < 0) return {};
    auto slot = std::make_shared<Slot>(std::move(answered));
    if (sd_bus_call_async(bus_, &slot->slot, request.message, &Slot::onMessage, slot.get(), 0) <
        0) {
        return {};
    }
    watch();
    return tokenOf(std::move(slot));
}

Subscription SystemBus::call(const BusObject& object, const std::string& method,
                             const std::vector<std::string>& arguments, Handler answered) {
    const auto append = [&arguments](sd_bus_message* request) {
        for (const auto& argument : arguments) {
            const int result = sd_bus_message_append_basic(request, 's', argument.c_str());
            if (result < 0) return result;
        }
        return 0;
    };
    return call({object, method, append}, std::move(answered));
}

Subscription SystemBus::getProperty(const BusObject& object, const std::string& name,
                                    Handler answered) {
    const BusObject properties{object.service, object.path, "org.freedesktop.DBus.Properties"};
    return call(properties, "Get", {object.interface, name}, std::move(answered));
}

Subscription SystemBus::onSignal(const BusObject& object, const std::string& name,
                                 Handler handler) {
    return addMatch(fmt::format("type='signal',sender='{}',path='{}',interface='{}',member='{}'",
                                object.service, object.path, object.interface, name),
                    std::move(handler));
}

Subscription SystemBus::onPropertiesChanged(const BusObject& object, Handler handler) {
    return addMatch(fmt::format("type='signal',sender='{}',path='{}',"
                                "interface='org.freedesktop.DBus.Properties',"
                                "member='PropertiesChanged',arg0='{}'",
                                object.service, object.path, object.interface),
                    std::move(handler));
}

Subscription SystemBus::onOwnerChanged(const std::string& service, Handler handler) {
    return addMatch(fmt::format("type='signal',sender='org.freedesktop.DBus',"
                                "path='/org/freedesktop/DBus',interface='org.freedesktop.DBus',"
                                "member='NameOwnerChanged',arg0='{}'",
                                service),
                    std::move(handler));
}

Subscription SystemBus::addMatch(const std::string& rule, Handler handler) {
    if (!open()) return {};
    auto slot = std::make_shared<Slot>(std::move(handler));
    if (sd_bus_add_match_async(bus_, &slot->slot, rule.c_str(), &Slot::onMessage,
                               &Slot::onInstalled, slot.get()) < 0) {
        return {};
    }
    watch();
    return tokenOf(std::move(slot));
}

Subscription SystemBus::addObject(const std::string& path, const std::string& interface,
                                  const sd_bus_vtable* table, void* self) {
    if (!open()) return {};
    auto slot = std::make_shared<Slot>(Handler{});
    if (sd_bus_add_object_vtable(bus_, &slot->slot, path.c_str(), interface.c_str(), table, self) <
        0) {
        return {};
    }
    return tokenOf(std::move(slot));
}

void SystemBus::emitSignal(const std::string& path, const std::string& interface,
                           const std::string& member) {
    if (!bus_) return;
    sd_bus_emit_signal(bus_, path.c_str(), interface.c_str(), member.c_str(), "");
    watch();
}

Subscription SystemBus::tokenOf(std::shared_ptr<Slot> slot) {
    return Subscription([slot = std::move(slot), weak = std::weak_ptr(self_)]() mutable {
        slot.reset();
        // Ending a match sends a message, which may have to wait for room.
        if (const auto self = weak.lock()) (*self)->watch();
    });
}

void SystemBus::process() {
    for (int turn = 0; turn < messagesPerTurn; ++turn) {
        const int result = bus_ ? sd_bus_process(bus_, nullptr) : 0;
        if (result < 0) {
            logger.debug("The system bus is gone: error {}", -result);
            close();
        }
        if (result <= 0) return watch();
    }
    // Messages that were read already make no descriptor ready.
    main_.post([weak = std::weak_ptr(self_)] {
        if (const auto self = weak.lock()) (*self)->process();
    });
}

void SystemBus::watch() {
    if (!bus_) return;
    const int fd = sd_bus_get_fd(bus_);
    const int events = sd_bus_get_events(bus_);
    if (fd < 0 || events < 0) return close();
    if (watch_ && events == watchedEvents_) return;
    watchedEvents_ = static_cast<short>(events);
    watch_.cancel();
    watch_ = loop_.watch(fd, watchedEvents_, [this] { process(); });
}

}  // namespace vtx
