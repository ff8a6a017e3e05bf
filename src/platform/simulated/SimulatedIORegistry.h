// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <map>
#include <memory>
#include <mutex>

#include "platform/IORegistry.h"
#include "platform/simulated/Instruments.h"
#include "platform/simulated/SimulatedRegistry.h"

namespace vtx {

/// The registry of the simulated machine. A walk goes over the entries that were there when it
/// began and passes over those that have gone meanwhile; an entry that has gone fails every call.
/// Any thread.
class SimulatedIORegistry final : public IORegistry {
public:
    SimulatedIORegistry(SimulatedRegistry& registry, Instruments& instruments)
        : registry_(registry), instruments_(instruments) {}

    [[nodiscard]] RegistryEntry entryFromPath(std::string_view path) override;
    [[nodiscard]] std::optional<ServiceMatch> serviceMatching(std::string_view className) override;
    [[nodiscard]] RegistryWalk getMatchingServices(const ServiceMatch& match) override;
    [[nodiscard]] RegistryEntry getMatchingService(const ServiceMatch& match) override;
    [[nodiscard]] RegistryEntry iteratorNext(const RegistryIterator& iterator) override;
    [[nodiscard]] RegistryWalk entryGetChildIterator(const RegistryEntry& entry,
                                                     std::string_view plane) override;
    [[nodiscard]] RegistryEntry entryGetParentEntry(const RegistryEntry& entry,
                                                    std::string_view plane) override;
    [[nodiscard]] RegistryEntry objectRetain(const RegistryEntry& entry) override;
    [[nodiscard]] std::optional<std::string> entryGetName(const RegistryEntry& entry) override;
    [[nodiscard]] std::optional<std::uint64_t> entryGetRegistryEntryID(
        const RegistryEntry& entry) override;
    [[nodiscard]] EntryProperties entryCreateCFProperties(const RegistryEntry& entry) override;
    [[nodiscard]] EntryPropertiesView entryProperties(const RegistryEntry& entry) override;
    [[nodiscard]] PropertyView entryProperty(const RegistryEntry& entry,
                                             std::string_view key) override;
    void objectRelease(IOObject object) noexcept override;

private:
    using Node = SimulatedRegistry::Node;
    /// What stands behind a handle: an entry with the values last looked at, or a walk.
    struct Object {
        Node node = SimulatedRegistry::none;
        std::unique_ptr<Property> kept;
        std::deque<Node> ahead;
        Subscription held;
    };

    [[nodiscard]] IOObject keep(Object object);
    [[nodiscard]] RegistryEntry entryOf(Node node);
    [[nodiscard]] RegistryWalk walkOf(const std::vector<Node>& nodes);
    /// The entry behind a handle; `none` for one that has gone from the registry.
    [[nodiscard]] Node nodeOf(const RegistryObject& object) const;
    [[nodiscard]] PropertyView look(const RegistryEntry& entry, std::optional<Property> value);

    SimulatedRegistry& registry_;
    Instruments& instruments_;
    mutable std::mutex mutex_;
    std::map<IOObject, Object> objects_;
    IOObject last_ = ioObjectNull;
};

}  // namespace vtx
