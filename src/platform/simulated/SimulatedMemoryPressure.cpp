// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedMemoryPressure.h"

#include <utility>

#include "platform/simulated/Operations.h"

namespace vtx {
namespace {

class Source final : public MemoryPressureSource {
public:
    Source(SimulatedMac& mac, Instruments& instruments, std::uint32_t mask)
        : mac_(mac),
          instruments_(instruments),
          mask_(mask),
          held_(instruments.handles.hold(handles::memoryPressureSource)) {}

    void setEventHandler(std::function<void(std::uint32_t data)> handler) override {
        handler_ = std::move(handler);
    }

    void activate() override {
        instruments_.counter.count(operations::memoryPressureActivate);
        events_ = mac_.memory.pressureChanged.subscribe([this](std::uint32_t data) {
            if ((data & mask_) != 0 && handler_) handler_(data & mask_);
        });
    }

    void cancel() override {
        instruments_.counter.count(operations::memoryPressureCancel);
        events_.cancel();
    }

private:
    SimulatedMac& mac_;
    Instruments& instruments_;
    const std::uint32_t mask_;
    Subscription held_;
    std::function<void(std::uint32_t)> handler_;
    Subscription events_;
};

}  // namespace

std::unique_ptr<MemoryPressureSource> SimulatedMemoryPressure::create(std::uint32_t mask) {
    if (instruments_.enter(operations::memoryPressureCreate)) return nullptr;
    return std::make_unique<Source>(mac_, instruments_, mask);
}

}  // namespace vtx
