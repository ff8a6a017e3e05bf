// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "platform/linux/GraphicsLoad.h"
#include "platform/linux/RuntimePower.h"
#include "platform/linux/SlowRead.h"

namespace vtx {

/// A load whose source may block, read on the thread for such sources: `next` tells what was read
/// since the call before. A read may wait its turn there while the device falls asleep, so whether
/// it sleeps is looked at once more, right before it is asked. The worker and the clock outlive it.
class SlowGraphicsLoad final : public GraphicsLoad {
public:
    /// `source` owns all that it uses; its calls are made on the worker.
    SlowGraphicsLoad(Executor& worker, const Clock& clock, std::shared_ptr<RuntimePower> power,
                     std::shared_ptr<GraphicsLoad> source,
                     Duration patience = SlowRead<std::uint64_t>::usualPatience);

    [[nodiscard]] Percent first() override;
    [[nodiscard]] Percent next() override;
    void letGo() override;
    [[nodiscard]] Duration leastRest() const override { return source_->leastRest(); }

private:
    Executor& worker_;
    const std::shared_ptr<GraphicsLoad> source_;
    SlowRead<std::uint64_t> reading_;
    bool isHeld_ = false;  ///< asked since it was let go
};

}  // namespace vtx
