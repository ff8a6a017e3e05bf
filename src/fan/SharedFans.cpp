// SPDX-License-Identifier: MIT
#include "fan/SharedFans.h"

#include "base/Clock.h"
#include "base/Shared.h"
#include "fan/FanStats.h"
#include "platform/Ports.h"

namespace vtx {

SharedFans::SharedFans(const Ports& ports) {
    Shared<const FanStats>::setFactory([&clock = ports.clock] {
        return std::make_unique<const FanStats>(FanStats{{}, clock.now()});
    });
}

SharedFans::~SharedFans() { Shared<const FanStats>::reset(); }

}  // namespace vtx
