// SPDX-License-Identifier: MIT
#pragma once

#include "platform/IORegistry.h"

namespace vtx {

/// A registry without entries: nothing of the machine is told through it yet.
class LinuxIORegistry final : public IORegistry {
public:
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
};

}  // namespace vtx
