// SPDX-License-Identifier: MIT
#include "smc/SharedSensors.h"

#include "base/Shared.h"
#include "platform/Ports.h"
#include "smc/IOHIDBridge.h"
#include "smc/SMCBridge.h"

namespace vtx {

SharedSensors::SharedSensors(const Ports& ports) {
    Shared<SharedSMCBridge>::setFactory([ports] {
        return std::make_unique<SharedSMCBridge>(SharedSMCBridge{SMCBridge::open(ports)});
    });
    Shared<SharedIOHIDBridge>::setFactory([ports] {
        return std::make_unique<SharedIOHIDBridge>(SharedIOHIDBridge{IOHIDBridge::open(ports)});
    });
}

SharedSensors::~SharedSensors() {
    Shared<SharedSMCBridge>::reset();
    Shared<SharedIOHIDBridge>::reset();
}

}  // namespace vtx
