// SPDX-License-Identifier: MIT
#include "core/UpdaterService.h"

#include "base/Shared.h"

namespace vtx {

UpdaterService& UpdaterService::shared() { return Shared<UpdaterService>::get(); }

}  // namespace vtx
