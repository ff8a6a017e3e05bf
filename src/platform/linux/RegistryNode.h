// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Property.h"

namespace vtx {

/// What the owner of an entry looks at. Its memory is used again for what is asked for next.
struct KeptProperty {
    /// Of the one who makes it and knows again what he made. Null where nobody does.
    struct Shape {};

    /// Puts another property there.
    void put(Property property) {
        value = std::move(property);
        shape = nullptr;
    }
    void reset() {
        value.reset();
        shape = nullptr;
    }

    std::optional<Property> value;
    const Shape* shape = nullptr;
    /// Where in the value its numbers are, as the shape has them, so that they are renewed without
    /// a search.
    std::array<std::int64_t*, 4> numbers{};
};

/// A device of the registry, shared by those that hold entries for it and by the source that found
/// it. What it is named and where it stands never changes. Any thread.
class RegistryNode {
public:
    RegistryNode(std::string_view plane, std::string name)
        : plane_(plane), name_(std::move(name)) {}
    RegistryNode(const RegistryNode&) = delete;
    RegistryNode& operator=(const RegistryNode&) = delete;
    virtual ~RegistryNode() = default;

    [[nodiscard]] std::string_view plane() const { return plane_; }
    [[nodiscard]] const std::string& name() const { return name_; }

    /// Whether the machine still has the device.
    [[nodiscard]] virtual bool isThere() { return true; }
    /// The properties as they are now; absent where the device has gone.
    [[nodiscard]] virtual std::optional<PropertyMap> properties() = 0;
    /// One property as it is now, put into `kept`, whose memory is used again where it can be;
    /// false where the device does not tell it. One thread at a time for the same `kept`.
    [[nodiscard]] virtual bool property(std::string_view key, KeptProperty& kept) {
        auto all = properties();
        if (!all) return false;
        const auto found = all->find(key);
        if (found == all->end()) return false;
        kept.put(std::move(found->second));
        return true;
    }

    // Set while the tree is built, by whoever builds it.
    std::vector<std::shared_ptr<RegistryNode>> children;
    std::weak_ptr<RegistryNode> parent;
    /// The registry's number of it; 0 until somebody asked for it. The registry's own.
    std::atomic<std::uint64_t> identifier = 0;

private:
    std::string_view plane_;
    std::string name_;
};
using RegistryNodes = std::vector<std::shared_ptr<RegistryNode>>;
/// A list that nobody changes any more, so that those who walk it need no copy; null for none.
using SharedNodes = std::shared_ptr<const RegistryNodes>;

/// A device of which nothing changes while the machine runs.
class FixedNode final : public RegistryNode {
public:
    FixedNode(std::string_view plane, std::string name, PropertyMap properties)
        : RegistryNode(plane, std::move(name)), properties_(std::move(properties)) {}

    [[nodiscard]] std::optional<PropertyMap> properties() override { return properties_; }

private:
    const PropertyMap properties_;
};

/// Knows the services of one class.
class RegistrySource {
public:
    RegistrySource() = default;
    RegistrySource(const RegistrySource&) = delete;
    RegistrySource& operator=(const RegistrySource&) = delete;
    virtual ~RegistrySource() = default;

    [[nodiscard]] virtual std::string_view className() const = 0;
    /// Those that are there now, the same node for the same device each time. One thread at a time.
    [[nodiscard]] virtual RegistryNodes services() = 0;
    /// The same, of which a source that knows what it has need not make a new one each time.
    [[nodiscard]] virtual SharedNodes sharedServices() {
        return std::make_shared<const RegistryNodes>(services());
    }
};

}  // namespace vtx
