// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

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

    /// Expires with the object, for who refers to it without keeping it.
    [[nodiscard]] std::weak_ptr<const void> life() const {
        if (!life_) life_ = std::make_shared<char>();
        return life_;
    }

private:
    mutable std::shared_ptr<const char> life_;  ///< made when first asked for
};

}  // namespace vtx
