// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <utility>

namespace vtx {

/// Names an object of the registry, as the platform does; 0 names none.
using IOObject = std::uint32_t;
inline constexpr IOObject ioObjectNull = 0;

/// Takes references on registry objects back.
class RegistryObjects {
public:
    RegistryObjects() = default;
    RegistryObjects(const RegistryObjects&) = delete;
    RegistryObjects& operator=(const RegistryObjects&) = delete;
    virtual ~RegistryObjects() = default;

    /// Gives one reference back. Any thread.
    virtual void objectRelease(IOObject object) noexcept = 0;
};

/// Owns one reference on a registry object, or nothing. Leaving scope gives it back, on every path.
/// The registry outlives it.
class RegistryObject {
public:
    RegistryObject() = default;
    RegistryObject(RegistryObjects& owner, IOObject object) : owner_(&owner), object_(object) {}
    RegistryObject(RegistryObject&& other) noexcept
        : owner_(other.owner_), object_(std::exchange(other.object_, ioObjectNull)) {}
    RegistryObject& operator=(RegistryObject&& other) noexcept {
        if (this != &other) {
            reset();
            owner_ = other.owner_;
            object_ = std::exchange(other.object_, ioObjectNull);
        }
        return *this;
    }
    RegistryObject(const RegistryObject&) = delete;
    RegistryObject& operator=(const RegistryObject&) = delete;
    ~RegistryObject() { reset(); }

    [[nodiscard]] IOObject get() const { return object_; }
    explicit operator bool() const { return object_ != ioObjectNull; }

    /// Gives the reference back now.
    void reset() {
        if (const auto object = std::exchange(object_, ioObjectNull)) owner_->objectRelease(object);
    }

private:
    RegistryObjects* owner_ = nullptr;
    IOObject object_ = ioObjectNull;
};

/// An entry of the registry: a device, a driver, a node of the device tree.
class RegistryEntry : public RegistryObject {
public:
    using RegistryObject::RegistryObject;
};

/// A walk over entries that is under way.
class RegistryIterator : public RegistryObject {
public:
    using RegistryObject::RegistryObject;
};

}  // namespace vtx
