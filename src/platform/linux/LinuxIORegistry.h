// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

#include "platform/IORegistry.h"
#include "platform/linux/CpuFreq.h"
#include "platform/linux/LinuxProcessors.h"
#include "platform/linux/RegistryNode.h"

namespace vtx {

/// The machine's devices as far as the logic asks for them, under the platform's names. Owned by
/// the platform; outlives every entry and iterator that it gave.
///
/// | entry | from |
/// |---|---|
/// | IODeviceTree:/cpus and its children | `LinuxProcessors`, on a machine of two levels |
/// | IODeviceTree:/memory and /product | `makeMemoryNode`, `makeProductNode` |
/// | AppleARMIODevice "pmgr" | `CpuFreq` |
/// | services of other classes | the `RegistrySource` of the class |
///
/// Any other path or class has no entries.
class LinuxIORegistry final : public IORegistry {
public:
    using Sources = std::vector<std::unique_ptr<RegistrySource>>;

    /// Nodes directly below the top of the device tree; null ones are left out.
    using TreeNodes = std::vector<std::shared_ptr<RegistryNode>>;

    /// `sources` are asked for the services of their classes, besides the power manager; `nodes`
    /// stand in the device tree besides the processors.
    LinuxIORegistry(const LinuxProcessors& processors, const CpuFreq& cpuFreq, Sources sources = {},
                    const TreeNodes& nodes = {});

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

    /// Entries and iterators that were given out and have not come back.
    [[nodiscard]] std::size_t outstandingObjects() const;

private:
    using Node = std::shared_ptr<RegistryNode>;

    /// The place of an entry, which has a node, or of a walk, which has nodes. The next object that
    /// gets the place uses its memory again, so that what is done with each tick allocates nothing.
    struct Place {
        IOObject object = ioObjectNull;  ///< the one that has it; null while it is free
        Node node;
        SharedNodes walk;
        std::size_t next = 0;  ///< of the walk
        KeptProperty kept;     ///< what the owner of the entry looks at
    };

    [[nodiscard]] SharedNodes servicesOf(std::string_view className);
    [[nodiscard]] RegistryEntry entryOf(Node node);
    [[nodiscard]] RegistryWalk walkOf(SharedNodes nodes);
    [[nodiscard]] Node nodeOf(const RegistryObject& object);
    [[nodiscard]] Node takeNext(const RegistryIterator& iterator);

    // With the lock held. A place stays where it is; what is in it belongs to the thread that uses
    // its object.
    [[nodiscard]] Place& takePlace();
    [[nodiscard]] Place* placeOf(IOObject object);
    /// The object's place, null where there is none. Without the lock.
    [[nodiscard]] Place* find(const RegistryObject& object);

    std::map<std::string, Node, std::less<>> tree_;  ///< by path; no "cpus" on one level
    SharedNodes powerManagers_;                      ///< null on a machine without cpufreq

    std::mutex sourcesMutex_;  ///< of those below
    Sources sources_;

    mutable std::mutex mutex_;  ///< of all below
    std::deque<Place> places_;
    std::vector<std::size_t> free_;  ///< the one that was given back last stands last
    IOObject turn_ = 0;              ///< tells the objects of one place apart
    std::uint64_t lastIdentifier_ = 0;
};

}  // namespace vtx
