// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedIORegistry.h"

#include <utility>

#include "base/Fault.h"
#include "platform/simulated/Operations.h"

namespace vtx {
namespace {

/// A name is read into a buffer of 128 bytes, the zero byte at its end included.
constexpr std::size_t longestName = 127;

}  // namespace

RegistryEntry SimulatedIORegistry::entryFromPath(std::string_view path) {
    if (instruments_.enter(operations::registryEntryFromPath)) return {};
    return entryOf(registry_.at(path));
}

std::optional<ServiceMatch> SimulatedIORegistry::serviceMatching(std::string_view className) {
    if (instruments_.enter(operations::serviceMatching)) return std::nullopt;
    return ServiceMatch{className};
}

RegistryWalk SimulatedIORegistry::getMatchingServices(const ServiceMatch& match) {
    if (const auto failure = instruments_.enter(operations::getMatchingServices))
        return {*failure, {}};
    if (instruments_.failures.take(operations::getMatchingServicesNull)) return {kernSuccess, {}};
    return walkOf(registry_.ofClass(match.className));
}

RegistryEntry SimulatedIORegistry::getMatchingService(const ServiceMatch& match) {
    if (instruments_.enter(operations::getMatchingService)) return {};
    const auto all = registry_.ofClass(match.className);
    return all.empty() ? RegistryEntry{} : entryOf(all.front());
}

RegistryEntry SimulatedIORegistry::iteratorNext(const RegistryIterator& iterator) {
    if (instruments_.enter(operations::iteratorNext)) return {};
    for (;;) {
        Node next = SimulatedRegistry::none;
        {
            const std::lock_guard lock(mutex_);
            const auto found = objects_.find(iterator.get());
            if (found == objects_.end() || found->second.ahead.empty()) return {};
            next = found->second.ahead.front();
            found->second.ahead.pop_front();
        }
        if (registry_.exists(next)) return entryOf(next);
    }
}

RegistryWalk SimulatedIORegistry::entryGetChildIterator(const RegistryEntry& entry,
                                                        std::string_view plane) {
    if (const auto failure = instruments_.enter(operations::getChildIterator))
        return {*failure, {}};
    if (instruments_.failures.take(operations::getChildIteratorNull)) return {kernSuccess, {}};
    const Node node = nodeOf(entry);
    if (node == SimulatedRegistry::none) return {};
    return walkOf(registry_.plane(node) == plane ? registry_.children(node) : std::vector<Node>{});
}

RegistryEntry SimulatedIORegistry::entryGetParentEntry(const RegistryEntry& entry,
                                                       std::string_view plane) {
    if (instruments_.enter(operations::getParentEntry)) return {};
    const Node node = nodeOf(entry);
    if (node == SimulatedRegistry::none || registry_.plane(node) != plane) return {};
    return entryOf(registry_.parent(node));
}

RegistryEntry SimulatedIORegistry::objectRetain(const RegistryEntry& entry) {
    instruments_.counter.count(operations::objectRetain);
    if (!entry) return {};
    Node node = SimulatedRegistry::none;
    {
        const std::lock_guard lock(mutex_);
        node = objects_.at(entry.get()).node;
    }
    return {*this, keep({node, nullptr, {}, instruments_.handles.hold(handles::registryEntry)})};
}

std::optional<std::string> SimulatedIORegistry::entryGetName(const RegistryEntry& entry) {
    if (instruments_.enter(operations::getName)) return std::nullopt;
    const Node node = nodeOf(entry);
    if (node == SimulatedRegistry::none) return std::nullopt;
    return registry_.name(node).substr(0, longestName);
}

std::optional<std::uint64_t> SimulatedIORegistry::entryGetRegistryEntryID(
    const RegistryEntry& entry) {
    if (instruments_.enter(operations::getRegistryEntryID)) return std::nullopt;
    const Node node = nodeOf(entry);
    return node == SimulatedRegistry::none ? std::nullopt : std::optional(node);
}

EntryProperties SimulatedIORegistry::entryCreateCFProperties(const RegistryEntry& entry) {
    if (const auto failure = instruments_.enter(operations::createCFProperties))
        return {*failure, {}};
    const Node node = nodeOf(entry);
    if (node == SimulatedRegistry::none) return {};
    if (instruments_.failures.take(operations::createCFPropertiesNull)) return {kernSuccess, {}};
    return {kernSuccess, registry_.properties(node)};
}

EntryPropertiesView SimulatedIORegistry::entryProperties(const RegistryEntry& entry) {
    auto copied = entryCreateCFProperties(entry);
    return {copied.result, look(entry, std::move(copied.properties))};
}

PropertyView SimulatedIORegistry::entryProperty(const RegistryEntry& entry, std::string_view key) {
    if (instruments_.enter(operations::createCFProperty)) return look(entry, std::nullopt);
    const Node node = nodeOf(entry);
    if (node == SimulatedRegistry::none) return look(entry, std::nullopt);
    return look(entry, registry_.property(node, key));
}

void SimulatedIORegistry::objectRelease(IOObject object) noexcept {
    instruments_.counter.count(operations::objectRelease);
    std::map<IOObject, Object>::node_type gone;
    const std::lock_guard lock(mutex_);
    gone = objects_.extract(object);
    if (gone.empty()) programmingFault("a registry object was released that is not there");
}

IOObject SimulatedIORegistry::keep(Object object) {
    const std::lock_guard lock(mutex_);
    objects_.emplace(++last_, std::move(object));
    return last_;
}

RegistryEntry SimulatedIORegistry::entryOf(Node node) {
    if (node == SimulatedRegistry::none) return {};
    return {*this, keep({node, nullptr, {}, instruments_.handles.hold(handles::registryEntry)})};
}

RegistryWalk SimulatedIORegistry::walkOf(const std::vector<Node>& nodes) {
    Object walk{SimulatedRegistry::none,
                nullptr,
                {nodes.begin(), nodes.end()},
                instruments_.handles.hold(handles::registryIterator)};
    return {kernSuccess, {*this, keep(std::move(walk))}};
}

SimulatedIORegistry::Node SimulatedIORegistry::nodeOf(const RegistryObject& object) const {
    const std::lock_guard lock(mutex_);
    const auto found = objects_.find(object.get());
    if (found == objects_.end() || !registry_.exists(found->second.node))
        return SimulatedRegistry::none;
    return found->second.node;
}

PropertyView SimulatedIORegistry::look(const RegistryEntry& entry, std::optional<Property> value) {
    // What was looked at before goes at once, so that a sanitizer sees who still looks at it.
    auto kept = value ? std::make_unique<Property>(std::move(*value)) : nullptr;
    const std::lock_guard lock(mutex_);
    const auto found = objects_.find(entry.get());
    if (found == objects_.end()) return {};
    found->second.kept = std::move(kept);
    return found->second.kept ? PropertyView(*found->second.kept) : PropertyView();
}

}  // namespace vtx
