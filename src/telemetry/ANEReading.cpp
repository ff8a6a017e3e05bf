// SPDX-License-Identifier: MIT
#include "telemetry/ANEReading.h"

#include "base/Shared.h"

namespace vtx {

const ANEReading& ANEReading::empty() { return Shared<const ANEReading>::get(); }

}  // namespace vtx
