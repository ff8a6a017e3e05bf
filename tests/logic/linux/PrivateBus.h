// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/Subscription.h"
#include "linux/TemporaryTree.h"
#include "platform/linux/RunLoop.h"

struct sd_bus;
struct sd_bus_message;

namespace vtx::test {

/// A message bus of its own for one test: a `dbus-daemon` found by PATH, ended with the object.
class PrivateBus {
public:
    /// `startable` are names whose services the bus would start, by a program that fails.
    explicit PrivateBus(const std::vector<std::string>& startable = {});
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    /// False where the machine has no `dbus-daemon`; the test is then skipped.
    [[nodiscard]] bool isRunning() const { return !address_.empty(); }
    [[nodiscard]] const std::string& address() const { return address_; }

private:
    TemporaryTree folder_;
    std::string address_;
    int pid_ = -1;
};

/// A connection to that bus which plays a service: it owns a name (none when empty) and answers the
/// method calls to one object.
class FakeService {
public:
    /// Answers a call; returns as sd-bus handlers do.
    using Answer = std::function<int(sd_bus_message*)>;

    FakeService(RunLoop& loop, const std::string& address, const std::string& name,
                const std::string& path, Answer answer = {});
    ~FakeService();
    FakeService(const FakeService&) = delete;
    FakeService& operator=(const FakeService&) = delete;

    /// Emits a signal of the object with one boolean or one text.
    void emit(const std::string& interface, const std::string& member, bool value);
    void emit(const std::string& interface, const std::string& member, const std::string& value);
    /// Emits that a property of the interface was changed, without its value.
    void emitPropertiesChanged(const std::string& interface);

private:
    static int onCall(sd_bus_message* message, void* self, void* error);

    std::string path_;
    Answer answer_;
    sd_bus* bus_ = nullptr;
    Subscription watch_;
};

}  // namespace vtx::test
