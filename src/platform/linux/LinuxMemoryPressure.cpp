// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxMemoryPressure.h"

#include "platform/linux/StallWatch.h"

namespace vtx {
namespace {

class Source final : public MemoryPressureSource {
public:
    explicit Source(std::shared_ptr<StallWatch> watch) : watch_(std::move(watch)) {}
    ~Source() override { watch_->end(); }

    void setEventHandler(std::function<void(std::uint32_t data)> handler) override {
        watch_->setHandler(std::move(handler));
    }
    void activate() override { watch_->begin(); }
    void cancel() override { watch_->end(); }

private:
    std::shared_ptr<StallWatch> watch_;
};

}  // namespace

std::unique_ptr<MemoryPressureSource> LinuxMemoryPressure::create(std::uint32_t mask) {
    return std::make_unique<Source>(
        std::make_shared<StallWatch>(root_, loop_, clock_, triggers_, memory_, mask));
}

}  // namespace vtx
