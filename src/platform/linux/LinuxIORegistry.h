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
/// | AppleARMIODevice "pmgr" | `CpuFreq` |
/// | services of other classes | the `RegistrySource` of the class |
///
/// Any other path or class has no entries.
class LinuxIORegistry final : public IORegistry {
public:
    using Sources = std::vector<std::unique_ptr<RegistrySource>>;

    /// `sources` are asked for the services of their classes, besides the power manager.
    LinuxIORegistry(const LinuxProcessors& processors, const CpuFreq& cpuFreq,
                    Sources sources = {});

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
        RegistryNodes walk;
        std::size_t next = 0;          ///< of the walk
        std::optional<Property> kept;  ///< what the owner of the entry looks at
    };

    void servicesOf(std::string_view className, RegistryNodes& into);
    [[nodiscard]] RegistryEntry entryOf(Node node);
    [[nodiscard]] RegistryWalk walkOf(const RegistryNodes& nodes);
    [[nodiscard]] Node nodeOf(const RegistryObject& object);
    [[nodiscard]] Node takeNext(const RegistryIterator& iterator);

    // With the lock held. A place stays where it is; what is in it belongs to the thread that uses
    // its object.
    [[nodiscard]] Place& takePlace();
    [[nodiscard]] Place* placeOf(IOObject object);
    /// The object's place, its node with it.
    [[nodiscard]] std::pair<Place*, Node> find(const RegistryObject& object);

    Node cpus_;          ///< null on a machine of one level
    Node powerManager_;  ///< null on a machine without cpufreq

    std::mutex sourcesMutex_;  ///< of both below
    Sources sources_;
    RegistryNodes found_;  ///< of the search under way

    mutable std::mutex mutex_;  ///< of all below
    std::deque<Place> places_;
    std::vector<std::size_t> free_;  ///< the one that was given back last stands last
    IOObject turn_ = 0;              ///< tells the objects of one place apart
    std::map<std::weak_ptr<RegistryNode>, std::uint64_t, std::owner_less<>> identifiers_;
    std::uint64_t lastIdentifier_ = 0;
};

}  // namespace vtx
