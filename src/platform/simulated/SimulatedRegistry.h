// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Property.h"

namespace vtx {

/// The devices of the simulated machine: a tree of entries in each plane. Entries and properties
/// can be added, changed and removed at any time, also while somebody walks them. Any thread.
class SimulatedRegistry {
public:
    /// The number of an entry, which is its registry entry ID; never used twice.
    using Node = std::uint64_t;
    static constexpr Node none = 0;
    /// Makes a property's value whenever somebody asks, on the thread that asks.
    using Source = std::function<Property()>;

    SimulatedRegistry();

    /// The top of a plane; `none` for a plane that there is not.
    [[nodiscard]] Node root(std::string_view plane) const;

    /// Adds an entry below another, in its plane, after those that are there. A parent that is not
    /// there is a programming fault, as is every unknown entry below.
    Node add(Node parent, std::string_view name, std::string_view className,
             PropertyMap properties = {});
    /// Takes an entry away with all below it; what it answers from now on is nothing.
    void remove(Node node);
    void set(Node node, std::string_view key, Property value);
    void setSource(Node node, std::string_view key, Source source);
    void unset(Node node, std::string_view key);
    /// From now on the driver gives this in the place of all properties, of any kind, or nothing.
    void setWhole(Node node, std::optional<Property> whole);

    [[nodiscard]] bool exists(Node node) const;
    [[nodiscard]] std::string name(Node node) const;
    [[nodiscard]] std::string plane(Node node) const;
    [[nodiscard]] Node parent(Node node) const;
    [[nodiscard]] std::vector<Node> children(Node node) const;
    /// Entries of a class in the order in which they came.
    [[nodiscard]] std::vector<Node> ofClass(std::string_view className) const;
    /// The entry at "Plane:/name/name"; `none` if there is none.
    [[nodiscard]] Node at(std::string_view path) const;

    /// The properties as they are now; absent also for an entry that has gone.
    [[nodiscard]] std::optional<Property> properties(Node node) const;
    [[nodiscard]] std::optional<Property> property(Node node, std::string_view key) const;

private:
    struct Entry {
        Node parent = none;
        std::string plane;
        std::string name;
        std::string className;
        PropertyMap properties;
        std::map<std::string, Source, std::less<>> sources;
        /// In the place of all properties, while `hasWhole`.
        std::optional<Property> whole;
        bool hasWhole = false;
    };

    // With the lock held.
    Entry& entry(Node node);
    [[nodiscard]] Node child(Node parent, std::string_view name) const;

    mutable std::mutex mutex_;
    std::map<Node, Entry> entries_;
    Node last_ = none;
};

}  // namespace vtx
