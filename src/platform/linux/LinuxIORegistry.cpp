// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxIORegistry.h"

#include <utility>

#include "base/Fault.h"
#include "platform/linux/ProcessorNodes.h"

namespace vtx {
namespace {

/// A name is read into a buffer of 128 bytes, the zero byte at its end included.
constexpr std::size_t longestName = 127;

/// An object is the number of its place, from 1 on, below a number that changes each time.
constexpr unsigned placeBits = 16;
constexpr IOObject placeMask = (IOObject{1} << placeBits) - 1;

}  // namespace

LinuxIORegistry::LinuxIORegistry(const LinuxProcessors& processors, const CpuFreq& cpuFreq,
                                 Sources sources, const TreeNodes& nodes)
    : sources_(std::move(sources)) {
    if (Node manager = makePowerManager(cpuFreq))
        powerManagers_ = std::make_shared<const RegistryNodes>(1, std::move(manager));
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
    return ServiceMatch{className};
}

RegistryWalk LinuxIORegistry::getMatchingServices(const ServiceMatch& match) {
    return walkOf(servicesOf(match.className));
}

RegistryEntry LinuxIORegistry::getMatchingService(const ServiceMatch& match) {
    const SharedNodes found = servicesOf(match.className);
    return !found || found->empty() ? RegistryEntry{} : entryOf(found->front());
}

SharedNodes LinuxIORegistry::servicesOf(std::string_view className) {
    if (className == "AppleARMIODevice") return powerManagers_;
    const std::lock_guard lock(sourcesMutex_);
    for (const auto& source : sources_)
        if (source->className() == className) return source->sharedServices();
    return nullptr;
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
    if (node->plane() != plane) return walkOf(nullptr);
    return walkOf(std::make_shared<const RegistryNodes>(node->children));
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
    Place* const place = find(entry);
    RegistryNode* const node = place ? place->node.get() : nullptr;
    if (!node) return std::nullopt;
    if (const auto known = node->identifier.load()) return known;
    const std::lock_guard lock(mutex_);
    if (node->identifier == 0) node->identifier = ++lastIdentifier_;
    return node->identifier;
}

EntryProperties LinuxIORegistry::entryCreateCFProperties(const RegistryEntry& entry) {
    const Node node = nodeOf(entry);
    auto properties = node ? node->properties() : std::nullopt;
    if (!properties) return {};
    return {kernSuccess, Property(*std::move(properties))};
}

EntryPropertiesView LinuxIORegistry::entryProperties(const RegistryEntry& entry) {
    Place* const place = find(entry);
    if (!place) return {};
    auto properties = place->node ? place->node->properties() : std::nullopt;
    if (!properties) {
        place->kept.reset();
        return {};
    }
    place->kept.put(Property(*std::move(properties)));
    return {kernSuccess, PropertyView(*place->kept.value)};
}

PropertyView LinuxIORegistry::entryProperty(const RegistryEntry& entry, std::string_view key) {
    Place* const place = find(entry);
    if (!place || !place->node || !place->node->property(key, place->kept)) return {};
    return PropertyView(*place->kept.value);
}

void LinuxIORegistry::objectRelease(IOObject object) noexcept {
    // Dropped behind the lock: the last owner of a node closes its files.
    Node gone;
    SharedNodes walked;
    const std::lock_guard lock(mutex_);
    Place* const place = placeOf(object);
    if (!place) programmingFault("a registry object was released that is not there");
    gone = std::move(place->node);
    walked.swap(place->walk);
    place->object = ioObjectNull;
    free_.push_back((object & placeMask) - 1);
}

std::size_t LinuxIORegistry::outstandingObjects() const {
    const std::lock_guard lock(mutex_);
    return places_.size() - free_.size();
}

RegistryEntry LinuxIORegistry::entryOf(Node node) {
    if (!node) return {};
    const std::lock_guard lock(mutex_);
    Place& place = takePlace();
    place.node = std::move(node);
    return {*this, place.object};
}

RegistryWalk LinuxIORegistry::walkOf(SharedNodes nodes) {
    if (!nodes || nodes->empty()) return {kernSuccess, {}};
    const std::lock_guard lock(mutex_);
    Place& place = takePlace();
    place.walk = std::move(nodes);
    place.next = 0;
    return {kernSuccess, {*this, place.object}};
}

LinuxIORegistry::Node LinuxIORegistry::nodeOf(const RegistryObject& object) {
    const Place* const place = find(object);
    return place ? place->node : nullptr;
}

LinuxIORegistry::Node LinuxIORegistry::takeNext(const RegistryIterator& iterator) {
    const std::lock_guard lock(mutex_);
    Place* const place = placeOf(iterator.get());
    if (!place || !place->walk || place->next == place->walk->size()) return nullptr;
    return (*place->walk)[place->next++];
}

LinuxIORegistry::Place& LinuxIORegistry::takePlace() {
    if (free_.empty()) {
        if (places_.size() == placeMask) programmingFault("registry objects are not given back");
        free_.push_back(places_.size());
        places_.emplace_back();
        free_.reserve(places_.size());  // giving back must not fail
    }
    const std::size_t index = free_.back();
    free_.pop_back();
    Place& place = places_[index];
    place.object = (++turn_ << placeBits) | static_cast<IOObject>(index + 1);
    return place;
}

LinuxIORegistry::Place* LinuxIORegistry::placeOf(IOObject object) {
    const std::size_t number = object & placeMask;
    if (number == 0 || number > places_.size()) return nullptr;
    Place& place = places_[number - 1];
    return place.object == object ? &place : nullptr;
}

LinuxIORegistry::Place* LinuxIORegistry::find(const RegistryObject& object) {
    const std::lock_guard lock(mutex_);
    return placeOf(object.get());
}

}  // namespace vtx
