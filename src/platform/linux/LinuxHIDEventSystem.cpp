// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxHIDEventSystem.h"

#include "base/Fault.h"

namespace vtx {
namespace {

[[noreturn]] void unresolved() {
    programmingFault("a function of the event system was called that was not resolved");
}

class NoFunctions final : public HIDEventFunctions {
public:
    bool resolve(const char*) override { return false; }
    std::unique_ptr<HIDEventClient> createClient() override { unresolved(); }
    void setMatching(HIDEventClient&, const HIDMatching&) override { unresolved(); }
    std::unique_ptr<HIDServices> copyServices(HIDEventClient&) override { unresolved(); }
    std::unique_ptr<HIDEvent> copyEvent(const HIDServices&, std::size_t, std::int64_t, std::int32_t,
                                        std::int64_t) override {
        unresolved();
    }
    double eventGetFloatValue(const HIDEvent&, std::int32_t) override { unresolved(); }
    std::optional<Property> copyProperty(const HIDServices&, std::size_t,
                                         std::string_view) override {
        unresolved();
    }
};

}  // namespace

std::unique_ptr<HIDEventFunctions> LinuxHIDEventSystem::open(int) {
    return std::make_unique<NoFunctions>();
}

}  // namespace vtx
