// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SoftwareUpdater.h"

namespace vtx {

/// Sets the updater going with its first use, and leaves the rest to it. Main executor; one for the
/// process, lasting for the run.
class UpdaterService {
public:
    /// The updater must outlive the object.
    explicit UpdaterService(SoftwareUpdater& updater) : controller(updater) { updater.start(); }

    SoftwareUpdater& controller;

    /// The process's own, made by the factory registered with `Shared<UpdaterService>`. Asked for
    /// its effect alone, too.
    static UpdaterService& shared();
};

}  // namespace vtx
