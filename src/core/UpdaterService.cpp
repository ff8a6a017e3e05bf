// SPDX-License-Identifier: MIT
#include "core/UpdaterService.h"

#include <utility>

#include "base/Shared.h"
#include "base/WeakReference.h"

namespace vtx {

UpdaterService& UpdaterService::shared() { return Shared<UpdaterService>::get(); }

void UpdaterService::checkForUpdates(SoftwareUpdater::Answered answered) {
    if (*isChecking) return;
    isChecking = true;
    controller.checkForUpdates(
        [self = WeakReference(*this), answered = std::move(answered)](const UpdateAnswer& answer) {
            if (auto* service = self.get()) service->isChecking = false;
            answered(answer);
        });
}

}  // namespace vtx
