// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/Executor.h"
#include "base/Subscription.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/RunLoop.h"

struct sd_bus;
struct sd_bus_message;
struct sd_bus_vtable;

namespace vtx {

/// What a service answered or announced. Values are read in their order; each is absent when the
/// message holds none of that type there, and all are when the call failed.
class BusMessage {
public:
    /// Null stands for a call that failed, and the error says why.
    explicit BusMessage(sd_bus_message* message, std::string error = {})
        : message_(message), error_(std::move(error)) {}

    [[nodiscard]] bool isFailure() const { return message_ == nullptr; }
    /// In the words of whoever refused.
    [[nodiscard]] const std::string& error() const { return error_; }
    /// Who sent it, by the name that is never given to another; empty where that is not known.
    [[nodiscard]] std::string sender() const;
    [[nodiscard]] std::optional<bool> boolean();
    [[nodiscard]] std::optional<std::string> text();
    [[nodiscard]] std::optional<std::vector<std::string>> texts();
    [[nodiscard]] std::optional<std::string> objectPath();
    /// Of 32 bits, as the one below.
    [[nodiscard]] std::optional<std::uint32_t> unsignedNumber();
    [[nodiscard]] std::optional<std::string> variantText();
    [[nodiscard]] std::optional<bool> variantBoolean();
    /// A variant that only wraps another one is looked into.
    [[nodiscard]] std::optional<std::uint32_t> variantUnsigned();
    /// A copy that the caller owns; -1 when there is none.
    [[nodiscard]] FileDescriptor descriptor();

private:
    sd_bus_message* message_;
    std::string error_;
};

/// One interface of an object of a service.
struct BusObject {
    std::string service;
    std::string path;
    std::string interface;
};

/// A method with what it is given.
struct BusCall {
    /// Whether the bus may start a service that is not running.
    enum class Activation { never, ifNeeded };

    BusObject object;
    std::string method;
    /// Appends the arguments to the message, as sd-bus does; negative where that fails. None where
    /// it is empty.
    std::function<int(sd_bus_message*)> append;
    Activation activation = Activation::never;
};

/// The connection to the system's message bus, or to another one by its address, opened with the
/// first use. Nothing here waits: what is sent is queued, and answers and signals come to handlers
/// on the main executor, not at all where the bus or the service is absent, hangs or has gone.
/// A service is started only for a call that says so. A lost connection is not made again. Main
/// executor; owned by the platform.
class SystemBus {
public:
    using Handler = std::function<void(BusMessage&)>;

    /// An empty address stands for the system bus.
    SystemBus(RunLoop& loop, Executor& main, std::string address = {});
    ~SystemBus();
    SystemBus(const SystemBus&) = delete;
    SystemBus& operator=(const SystemBus&) = delete;

    /// Calls a method. Dropping the token forgets the answer. Empty where there is no bus, and for
    /// arguments that cannot be sent: there is no answer then.
    [[nodiscard]] Subscription call(const BusCall& what, Handler answered);

    /// The same with texts as arguments.
    [[nodiscard]] Subscription call(const BusObject& object, const std::string& method,
                                    const std::vector<std::string>& arguments, Handler answered);

    /// Asks for a property; the answer is a variant.
    [[nodiscard]] Subscription getProperty(const BusObject& object, const std::string& name,
                                           Handler answered);

    /// Tells of each signal of that name, as long as the token lives.
    [[nodiscard]] Subscription onSignal(const BusObject& object, const std::string& name,
                                        Handler handler);

    /// Tells that some property of the interface has changed.
    [[nodiscard]] Subscription onPropertiesChanged(const BusObject& object, Handler handler);

    /// Tells that a service came, went or changed hands.
    [[nodiscard]] Subscription onOwnerChanged(const std::string& service, Handler handler);

    /// Offers an object whose interface is the table, of whose entries `self` is the last argument;
    /// both must outlive the token. Empty where there is no bus.
    [[nodiscard]] Subscription addObject(const std::string& path, const std::string& interface,
                                         const sd_bus_vtable* table, void* self);

    /// Tells everybody of a signal without arguments of such an object.
    void emitSignal(const std::string& path, const std::string& interface,
                    const std::string& member);

    /// Whether there is a connection, established or under way.
    [[nodiscard]] bool isOpen() const { return bus_ != nullptr; }

private:
    struct Slot;

    [[nodiscard]] bool open();
    [[nodiscard]] Subscription addMatch(const std::string& rule, Handler handler);
    [[nodiscard]] Subscription tokenOf(std::shared_ptr<Slot> slot);
    void process();
    void watch();
    void close();

    RunLoop& loop_;
    Executor& main_;
    std::string address_;
    bool wasOpened_ = false;
    sd_bus* bus_ = nullptr;
    short watchedEvents_ = 0;
    Subscription watch_;
    std::shared_ptr<SystemBus*> self_;  ///< what jobs under way hold weakly
};

}  // namespace vtx
