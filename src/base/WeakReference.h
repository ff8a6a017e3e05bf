// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "base/ObservableObject.h"

namespace vtx {

/// Refers to an observable object and knows when that has gone. Main executor, as the object.
template <class T>
class WeakReference {
public:
    WeakReference() = default;
    explicit WeakReference(T& object) : object_(&object), life_(object.life()) {}

    /// Null when there is none, or no longer.
    [[nodiscard]] T* get() const { return life_.expired() ? nullptr : object_; }

private:
    T* object_ = nullptr;
    std::weak_ptr<const void> life_;
};

}  // namespace vtx
