// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"

namespace vtx {

/// Something with published values that others follow. Confined to the main executor.
class ObservableObject {
public:
    ObservableObject() = default;
    ObservableObject(const ObservableObject&) = delete;
    ObservableObject& operator=(const ObservableObject&) = delete;
    virtual ~ObservableObject() = default;

    /// Emitted after any published value of the object was stored and its own subscribers told.
    Signal<> objectWillChange;
};

}  // namespace vtx
