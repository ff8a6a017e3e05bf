// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedRegistry.h"

#include <fmt/format.h>

#include <utility>

#include "base/Fault.h"
#include "platform/IORegistry.h"

namespace vtx {

SimulatedRegistry::SimulatedRegistry() {
    for (const auto plane : {planes::deviceTree, planes::service}) {
        Entry top;
        top.plane = plane;
        top.name = "Root";
        entries_.emplace(++last_, std::move(top));
    }
}

SimulatedRegistry::Node SimulatedRegistry::root(std::string_view plane) const {
    const std::lock_guard lock(mutex_);
    for (const auto& [node, entry] : entries_)
        if (entry.parent == none && entry.plane == plane) return node;
    return none;
}

SimulatedRegistry::Node SimulatedRegistry::add(Node parent, std::string_view name,
                                               std::string_view className, PropertyMap properties) {
    const std::lock_guard lock(mutex_);
    Entry added;
    added.parent = parent;
    added.plane = entry(parent).plane;
    added.name = name;
    added.className = className;
    added.properties = std::move(properties);
    entries_.emplace(++last_, std::move(added));
    return last_;
}

void SimulatedRegistry::remove(Node node) {
    for (const Node below : children(node)) remove(below);
    const std::lock_guard lock(mutex_);
    entry(node);
    entries_.erase(node);
}

void SimulatedRegistry::set(Node node, std::string_view key, Property value) {
    const std::lock_guard lock(mutex_);
    Entry& changed = entry(node);
    changed.sources.erase(std::string(key));
    changed.properties.insert_or_assign(std::string(key), std::move(value));
}

void SimulatedRegistry::setSource(Node node, std::string_view key, Source source) {
    const std::lock_guard lock(mutex_);
    Entry& changed = entry(node);
    changed.properties.erase(std::string(key));
    changed.sources.insert_or_assign(std::string(key), std::move(source));
}

void SimulatedRegistry::unset(Node node, std::string_view key) {
    const std::lock_guard lock(mutex_);
    Entry& changed = entry(node);
    changed.properties.erase(std::string(key));
    changed.sources.erase(std::string(key));
}

void SimulatedRegistry::setWhole(Node node, std::optional<Property> whole) {
    const std::lock_guard lock(mutex_);
    entry(node).whole = std::move(whole);
    entry(node).hasWhole = true;
}

bool SimulatedRegistry::exists(Node node) const {
    const std::lock_guard lock(mutex_);
    return entries_.contains(node);
}

std::string SimulatedRegistry::name(Node node) const {
    const std::lock_guard lock(mutex_);
    const auto found = entries_.find(node);
    return found == entries_.end() ? std::string() : found->second.name;
}

std::string SimulatedRegistry::plane(Node node) const {
    const std::lock_guard lock(mutex_);
    const auto found = entries_.find(node);
    return found == entries_.end() ? std::string() : found->second.plane;
}

SimulatedRegistry::Node SimulatedRegistry::parent(Node node) const {
    const std::lock_guard lock(mutex_);
    const auto found = entries_.find(node);
    return found == entries_.end() ? none : found->second.parent;
}

std::vector<SimulatedRegistry::Node> SimulatedRegistry::children(Node node) const {
    const std::lock_guard lock(mutex_);
    std::vector<Node> found;
    for (const auto& [number, entry] : entries_)
        if (entry.parent == node && node != none) found.push_back(number);
    return found;
}

std::vector<SimulatedRegistry::Node> SimulatedRegistry::ofClass(std::string_view className) const {
    const std::lock_guard lock(mutex_);
    std::vector<Node> found;
    for (const auto& [number, entry] : entries_)
        if (entry.className == className) found.push_back(number);
    return found;
}

SimulatedRegistry::Node SimulatedRegistry::at(std::string_view path) const {
    const auto colon = path.find(":/");
    if (colon == std::string_view::npos) return none;
    Node node = root(path.substr(0, colon));
    path.remove_prefix(colon + 2);
    const std::lock_guard lock(mutex_);
    while (node != none && !path.empty()) {
        const auto slash = path.find('/');
        node = child(node, path.substr(0, slash));
        path.remove_prefix(slash == std::string_view::npos ? path.size() : slash + 1);
    }
    return node;
}

std::optional<Property> SimulatedRegistry::properties(Node node) const {
    PropertyMap all;
    std::map<std::string, Source, std::less<>> sources;
    {
        const std::lock_guard lock(mutex_);
        const auto found = entries_.find(node);
        if (found == entries_.end()) return std::nullopt;
        if (found->second.hasWhole) return found->second.whole;
        all = found->second.properties;
        sources = found->second.sources;
    }
    // A source may look at other parts of the machine, which have locks of their own.
    for (const auto& [key, source] : sources) all.insert_or_assign(key, source());
    return all;
}

std::optional<Property> SimulatedRegistry::property(Node node, std::string_view key) const {
    const auto whole = properties(node);
    const auto* all = whole ? PropertyView(*whole).map() : nullptr;
    if (!all) return std::nullopt;
    const auto found = all->find(key);
    return found == all->end() ? std::nullopt : std::optional(found->second);
}

SimulatedRegistry::Entry& SimulatedRegistry::entry(Node node) {
    const auto found = entries_.find(node);
    if (found == entries_.end())
        programmingFault(fmt::format("no entry {} in the simulated registry", node));
    return found->second;
}

SimulatedRegistry::Node SimulatedRegistry::child(Node parent, std::string_view name) const {
    for (const auto& [number, entry] : entries_)
        if (entry.parent == parent && entry.name == name) return number;
    return none;
}

}  // namespace vtx
