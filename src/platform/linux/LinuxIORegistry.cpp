// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxIORegistry.h"

#include <utility>

#include "base/Fault.h"
#include "platform/linux/ProcessorNodes.h"

namespace vtx {
namespace {

/// A name is read into a buffer of 128 bytes, the zero byte at its end included.
constexpr std::size_t longestName = 127;

}  // namespace

LinuxIORegistry::LinuxIORegistry(const LinuxProcessors& processors, const CpuFreq& cpuFreq,
                                 Sources sources, const TreeNodes& nodes)
    : powerManager_(makePowerManager(cpuFreq)), sources_(std::move(sources)) {
    const auto place = [this](const Node& node) {
        if (node) tree_["IODeviceTree:/" + node->name()] = node;
    };
    place(makeProcessorNodes(processors));
    for (const auto& node : nodes) place(node);
}

RegistryEntry LinuxIORegistry::entryFromPath(std::string_view path) {
    const auto found = tree_.find(path);
    return found == tree_.end() ? RegistryEntry{} : entryOf(found->second);
}

std::optional<ServiceMatch> LinuxIORegistry::serviceMatching(std::string_view className) {
    return ServiceMatch{std::string(className)};
}

RegistryWalk LinuxIORegistry::getMatchingServices(const ServiceMatch& match) {
    return walkOf(servicesOf(match.className));
}

RegistryEntry LinuxIORegistry::getMatchingService(const ServiceMatch& match) {
    const auto services = servicesOf(match.className);
    return services.empty() ? RegistryEntry{} : entryOf(services.front());
}

RegistryNodes LinuxIORegistry::servicesOf(std::string_view className) {
    if (className == "AppleARMIODevice")
        return powerManager_ ? RegistryNodes{powerManager_} : RegistryNodes{};
    const std::lock_guard lock(sourcesMutex_);
    for (const auto& source : sources_) {
        if (source->className() == className) return source->services();
    }
    return {};
}

RegistryEntry LinuxIORegistry::iteratorNext(const RegistryIterator& iterator) {
    while (Node next = takeNext(iterator)) {
        if (next->isThere()) return entryOf(std::move(next));
    }
    return {};
}

RegistryWalk LinuxIORegistry::entryGetChildIterator(const RegistryEntry& entry,
                                                    std::string_view plane) {
    const Node node = nodeOf(entry);
    if (!node) return {};
    return walkOf(node->plane() == plane ? node->children : RegistryNodes{});
}

RegistryEntry LinuxIORegistry::entryGetParentEntry(const RegistryEntry& entry,
                                                   std::string_view plane) {
    const Node node = nodeOf(entry);
    return node && node->plane() == plane ? entryOf(node->parent.lock()) : RegistryEntry{};
}

RegistryEntry LinuxIORegistry::objectRetain(const RegistryEntry& entry) {
    return entryOf(nodeOf(entry));
}

std::optional<std::string> LinuxIORegistry::entryGetName(const RegistryEntry& entry) {
    const Node node = nodeOf(entry);
    return node ? std::optional(node->name().substr(0, longestName)) : std::nullopt;
}

std::optional<std::uint64_t> LinuxIORegistry::entryGetRegistryEntryID(const RegistryEntry& entry) {
    const Node node = nodeOf(entry);
    if (!node) return std::nullopt;
    const std::lock_guard lock(mutex_);
    std::erase_if(identifiers_, [](const auto& each) { return each.first.expired(); });
    const auto [at, isNew] = identifiers_.try_emplace(node, lastIdentifier_ + 1);
    if (isNew) ++lastIdentifier_;
    return at->second;
}

EntryProperties LinuxIORegistry::entryCreateCFProperties(const RegistryEntry& entry) {
    const Node node = nodeOf(entry);
    auto properties = node ? node->properties() : std::nullopt;
    if (!properties) return {};
    return {kernSuccess, Property(*std::move(properties))};
}

EntryPropertiesView LinuxIORegistry::entryProperties(const RegistryEntry& entry) {
    auto copied = entryCreateCFProperties(entry);
    if (!copied.properties) return {copied.result, look(entry, nullptr)};
    return {copied.result, look(entry, std::make_unique<Property>(*std::move(copied.properties)))};
}

PropertyView LinuxIORegistry::entryProperty(const RegistryEntry& entry, std::string_view key) {
    return entryProperties(entry).properties[key];
}

void LinuxIORegistry::objectRelease(IOObject object) noexcept {
    std::map<IOObject, Object>::node_type gone;
    const std::lock_guard lock(mutex_);
    gone = objects_.extract(object);
    if (gone.empty()) programmingFault("a registry object was released that is not there");
}

std::size_t LinuxIORegistry::outstandingObjects() const {
    const std::lock_guard lock(mutex_);
    return objects_.size();
}

IOObject LinuxIORegistry::keep(Object object) {
    const std::lock_guard lock(mutex_);
    // The numbers come round after years; those that are still out stay theirs.
    do ++last_;
    while (last_ == ioObjectNull || objects_.contains(last_));
    objects_.emplace(last_, std::move(object));
    return last_;
}

RegistryEntry LinuxIORegistry::entryOf(Node node) {
    if (!node) return {};
    return {*this, keep({std::move(node), {}, nullptr})};
}

RegistryWalk LinuxIORegistry::walkOf(const RegistryNodes& nodes) {
    if (nodes.empty()) return {kernSuccess, {}};
    return {kernSuccess, {*this, keep({nullptr, {nodes.begin(), nodes.end()}, nullptr})}};
}

LinuxIORegistry::Node LinuxIORegistry::nodeOf(const RegistryEntry& entry) const {
    const std::lock_guard lock(mutex_);
    const auto found = objects_.find(entry.get());
    return found == objects_.end() ? nullptr : found->second.node;
}

LinuxIORegistry::Node LinuxIORegistry::takeNext(const RegistryIterator& iterator) {
    const std::lock_guard lock(mutex_);
    const auto found = objects_.find(iterator.get());
    if (found == objects_.end() || found->second.ahead.empty()) return nullptr;
    Node next = std::move(found->second.ahead.front());
    found->second.ahead.pop_front();
    return next;
}

PropertyView LinuxIORegistry::look(const RegistryEntry& entry, std::unique_ptr<Property> value) {
    const std::lock_guard lock(mutex_);
    const auto found = objects_.find(entry.get());
    if (found == objects_.end()) return {};
    found->second.kept = std::move(value);
    return found->second.kept ? PropertyView(*found->second.kept) : PropertyView();
}

}  // namespace vtx
