// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedHIDEventSystem.h"

#include <utility>

#include "platform/simulated/Operations.h"

namespace vtx {
namespace {

constexpr std::int32_t vendorPage = 65280;
constexpr std::int32_t temperatureSensor = 5;
constexpr std::int64_t temperatureEvent = 15;
constexpr std::int32_t temperatureLevel = 0xF0000;

class Client final : public HIDEventClient {
public:
    explicit Client(Instruments& instruments)
        : held_(instruments.handles.hold(handles::hidClient)) {}

    HIDMatching matching;

private:
    Subscription held_;
};

class Services final : public HIDServices {
public:
    Services(std::vector<SimulatedHIDSensor> list, Instruments& instruments)
        : sensors(std::move(list)), held_(instruments.handles.hold(handles::hidServices)) {}

    std::size_t count() const override { return sensors.size(); }

    const std::vector<SimulatedHIDSensor> sensors;

private:
    Subscription held_;
};

class Event final : public HIDEvent {
public:
    Event(double value, Instruments& instruments)
        : celsius(value), held_(instruments.handles.hold(handles::hidEvent)) {}

    const double celsius;

private:
    Subscription held_;
};

const SimulatedHIDSensor& at(const HIDServices& services, std::size_t index) {
    return dynamic_cast<const Services&>(services).sensors.at(index);
}

class Functions final : public HIDEventFunctions {
public:
    Functions(SimulatedHIDSensors& sensors, Instruments& instruments)
        : sensors_(sensors), instruments_(instruments) {}

    bool resolve(const char* symbol) override {
        return !instruments_.enter(std::string(operations::dlsymPrefix).append(symbol));
    }
    std::unique_ptr<HIDEventClient> createClient() override {
        if (instruments_.enter(operations::hidClientCreate)) return nullptr;
        return std::make_unique<Client>(instruments_);
    }
    void setMatching(HIDEventClient& client, const HIDMatching& matching) override {
        dynamic_cast<Client&>(client).matching = matching;
    }
    std::unique_ptr<HIDServices> copyServices(HIDEventClient& client) override {
        if (instruments_.enter(operations::hidClientCopyServices)) return nullptr;
        const HIDMatching& wanted = dynamic_cast<Client&>(client).matching;
        const bool isForSensors =
            wanted.primaryUsagePage == vendorPage && wanted.primaryUsage == temperatureSensor;
        return std::make_unique<Services>(
            isForSensors ? sensors_.all() : std::vector<SimulatedHIDSensor>{}, instruments_);
    }
    std::unique_ptr<HIDEvent> copyEvent(const HIDServices& services, std::size_t index,
                                        std::int64_t type, std::int32_t, std::int64_t) override {
        if (instruments_.enter(operations::hidCopyEvent)) return nullptr;
        const auto& celsius = at(services, index).celsius;
        const auto value = celsius ? celsius() : std::nullopt;
        if (!value || type != temperatureEvent) return nullptr;
        return std::make_unique<Event>(*value, instruments_);
    }
    double eventGetFloatValue(const HIDEvent& event, std::int32_t field) override {
        return field == temperatureLevel ? dynamic_cast<const Event&>(event).celsius : 0.0;
    }
    std::optional<Property> copyProperty(const HIDServices& services, std::size_t index,
                                         std::string_view key) override {
        if (instruments_.enter(operations::hidCopyProperty) || key != "Product")
            return std::nullopt;
        return at(services, index).product;
    }

private:
    SimulatedHIDSensors& sensors_;
    Instruments& instruments_;
};

}  // namespace

std::unique_ptr<HIDEventFunctions> SimulatedHIDEventSystem::open(int) {
    if (instruments_.enter(operations::dlopenSelf)) return nullptr;
    return std::make_unique<Functions>(sensors_, instruments_);
}

}  // namespace vtx
