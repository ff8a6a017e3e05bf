// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxIORegistry.h"

namespace vtx {

RegistryEntry LinuxIORegistry::entryFromPath(std::string_view) { return {}; }

std::optional<ServiceMatch> LinuxIORegistry::serviceMatching(std::string_view className) {
    return ServiceMatch{std::string(className)};
}

RegistryWalk LinuxIORegistry::getMatchingServices(const ServiceMatch&) { return {kernSuccess, {}}; }

RegistryEntry LinuxIORegistry::getMatchingService(const ServiceMatch&) { return {}; }

RegistryEntry LinuxIORegistry::iteratorNext(const RegistryIterator&) { return {}; }

RegistryWalk LinuxIORegistry::entryGetChildIterator(const RegistryEntry&, std::string_view) {
    return {};
}

RegistryEntry LinuxIORegistry::entryGetParentEntry(const RegistryEntry&, std::string_view) {
    return {};
}

RegistryEntry LinuxIORegistry::objectRetain(const RegistryEntry&) { return {}; }

std::optional<std::string> LinuxIORegistry::entryGetName(const RegistryEntry&) { return {}; }

std::optional<std::uint64_t> LinuxIORegistry::entryGetRegistryEntryID(const RegistryEntry&) {
    return {};
}

EntryProperties LinuxIORegistry::entryCreateCFProperties(const RegistryEntry&) { return {}; }

EntryPropertiesView LinuxIORegistry::entryProperties(const RegistryEntry&) { return {}; }

PropertyView LinuxIORegistry::entryProperty(const RegistryEntry&, std::string_view) { return {}; }

void LinuxIORegistry::objectRelease(IOObject) noexcept {}

}  // namespace vtx
