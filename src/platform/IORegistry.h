// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/Property.h"
#include "platform/KernReturn.h"
#include "platform/RegistryObject.h"
#include "platform/RegistryWalk.h"

namespace vtx {

/// All properties of an entry, copied. On success a dictionary as a rule, and nothing or something
/// else where the driver gives just that.
struct EntryProperties {
    KernReturn result = kernFailure;
    std::optional<Property> properties;
};

/// The same without the copy.
struct EntryPropertiesView {
    KernReturn result = kernFailure;
    PropertyView properties;
};

/// The planes in which entries have parents and children.
namespace planes {
inline constexpr std::string_view deviceTree = "IODeviceTree";
inline constexpr std::string_view service = "IOService";
}  // namespace planes

/// The machine's devices, drivers and device tree: entries with properties, in planes. Entries come
/// and go while it is walked: a walk may end early, and an entry that is held may stop answering.
/// Any thread; one entry and one iterator are used by one thread at a time.
///
/// Properties come in two ways. What is detected once is copied whole. What is read with each tick
/// is looked at through a view, so that a platform keeps the values of an entry and renews in place
/// what was asked for; such a view is good until the next call for the same owned entry and not
/// beyond its release.
class IORegistry : public RegistryObjects {
public:
    /// `IORegistryEntryFromPath` on a path such as "IODeviceTree:/cpus"; null if there is none.
    [[nodiscard]] virtual RegistryEntry entryFromPath(std::string_view path) = 0;

    /// `IOServiceMatching`: a search for services of a class; absent if it cannot be made.
    [[nodiscard]] virtual std::optional<ServiceMatch> serviceMatching(
        std::string_view className) = 0;
    /// `IOServiceGetMatchingServices`, in the order in which the platform knows them.
    [[nodiscard]] virtual RegistryWalk getMatchingServices(const ServiceMatch& match) = 0;
    /// `IOServiceGetMatchingService`: the first of them, or null.
    [[nodiscard]] virtual RegistryEntry getMatchingService(const ServiceMatch& match) = 0;

    /// `IOIteratorNext`: null at the end, which may come early where entries went.
    [[nodiscard]] virtual RegistryEntry iteratorNext(const RegistryIterator& iterator) = 0;

    /// `IORegistryEntryGetChildIterator`: the children in a plane.
    [[nodiscard]] virtual RegistryWalk entryGetChildIterator(const RegistryEntry& entry,
                                                             std::string_view plane) = 0;
    /// `IORegistryEntryGetParentEntry`: the parent in a plane, or null at the top.
    [[nodiscard]] virtual RegistryEntry entryGetParentEntry(const RegistryEntry& entry,
                                                            std::string_view plane) = 0;
    /// `IOObjectRetain`: a second owner of the same entry; null for null.
    [[nodiscard]] virtual RegistryEntry objectRetain(const RegistryEntry& entry) = 0;

    /// `IORegistryEntryGetName`, at most 127 bytes of it; absent if it cannot be read.
    [[nodiscard]] virtual std::optional<std::string> entryGetName(const RegistryEntry& entry) = 0;
    /// `IORegistryEntryGetRegistryEntryID`: never given to another entry while the machine runs.
    [[nodiscard]] virtual std::optional<std::uint64_t> entryGetRegistryEntryID(
        const RegistryEntry& entry) = 0;

    /// `IORegistryEntryCreateCFProperties`: the properties as they are now, copied whole.
    [[nodiscard]] virtual EntryProperties entryCreateCFProperties(const RegistryEntry& entry) = 0;
    /// The same call for every tick: a view of them.
    [[nodiscard]] virtual EntryPropertiesView entryProperties(const RegistryEntry& entry) = 0;
    /// `IORegistryEntryCreateCFProperty` for every tick: a view of one property, or of nothing.
    [[nodiscard]] virtual PropertyView entryProperty(const RegistryEntry& entry,
                                                     std::string_view key) = 0;
};

}  // namespace vtx
