// SPDX-License-Identifier: MIT
#pragma once

#include "base/ObservableObject.h"
#include "base/Published.h"
#include "platform/SoftwareUpdater.h"

namespace vtx {

/// Sets the updater going with its first use, and leaves the rest to it. Main executor; one for the
/// process, lasting for the run.
class UpdaterService : public ObservableObject {
public:
    /// The updater must outlive the object.
    explicit UpdaterService(SoftwareUpdater& updater) : controller(updater) { updater.start(); }

    SoftwareUpdater& controller;

    /// Whether the user waits for an answer of `checkForUpdates`.
    Published<bool> isChecking{*this, false};

    /// Has the updater look now. While it looks for the user already, nothing.
    void checkForUpdates(SoftwareUpdater::Answered answered);

    /// The process's own, made by the factory registered with `Shared<UpdaterService>`. Asked for
    /// its effect alone, too.
    static UpdaterService& shared();
};

}  // namespace vtx
