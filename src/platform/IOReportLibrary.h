// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

namespace vtx {

/// A dictionary of the library: channels, a sample, or the difference of two. Owned by who got it.
class IOReportDictionary {
public:
    IOReportDictionary() = default;
    IOReportDictionary(const IOReportDictionary&) = delete;
    IOReportDictionary& operator=(const IOReportDictionary&) = delete;
    virtual ~IOReportDictionary() = default;
};
using IOReportDictionaryOwner = std::unique_ptr<IOReportDictionary>;

/// A subscription to channels. Owned by who got it.
class IOReportSubscriptionObject {
public:
    IOReportSubscriptionObject() = default;
    IOReportSubscriptionObject(const IOReportSubscriptionObject&) = delete;
    IOReportSubscriptionObject& operator=(const IOReportSubscriptionObject&) = delete;
    virtual ~IOReportSubscriptionObject() = default;
};

/// The answer of `IOReportCreateSubscription`; either part may be missing.
struct IOReportSubscribed {
    std::unique_ptr<IOReportSubscriptionObject> subscription;
    /// The out parameter: the channels that samples are taken of.
    IOReportDictionaryOwner channels;
};

/// One channel of a dictionary: an opaque look at a part of it, valid as long as the dictionary.
struct IOReportChannel {
    const void* part = nullptr;
};

/// The functions of the library, once it is open. The bodies of symbols that were not resolved may
/// not be called. Any thread; one object of the library is used by one thread at a time.
class IOReport {
public:
    IOReport() = default;
    IOReport(const IOReport&) = delete;
    IOReport& operator=(const IOReport&) = delete;
    /// The library itself stays loaded.
    virtual ~IOReport() = default;

    /// `dlsym`: whether the library has the symbol.
    [[nodiscard]] virtual bool resolve(const char* symbol) = 0;

    /// "IOReportCopyChannelsInGroup", with zeros for its numbers: the channels of a group, of one
    /// subgroup or of all of them; null if there are none.
    [[nodiscard]] virtual IOReportDictionaryOwner copyChannelsInGroup(
        std::string_view group, std::optional<std::string_view> subgroup) = 0;
    /// `CFDictionaryCreateMutableCopy`, with the capacity that `CFDictionaryGetCount` reports.
    [[nodiscard]] virtual IOReportDictionaryOwner createMutableCopy(
        const IOReportDictionary& dictionary) = 0;
    /// "IOReportCreateSubscription".
    [[nodiscard]] virtual IOReportSubscribed createSubscription(IOReportDictionary& channels) = 0;
    /// "IOReportCreateSamples": cumulative values as they are now; null if it fails.
    [[nodiscard]] virtual IOReportDictionaryOwner createSamples(
        IOReportSubscriptionObject& subscription, IOReportDictionary& channels) = 0;
    /// "IOReportCreateSamplesDelta": what was added between two samples; null if it fails.
    [[nodiscard]] virtual IOReportDictionaryOwner createSamplesDelta(
        const IOReportDictionary& older, const IOReportDictionary& newer) = 0;

    /// Length of the list under "IOReportChannels"; absent if that is missing or no list.
    [[nodiscard]] virtual std::optional<std::size_t> channelCount(
        const IOReportDictionary& sample) = 0;
    /// An entry of that list; absent if it is no dictionary or not there.
    [[nodiscard]] virtual std::optional<IOReportChannel> channel(const IOReportDictionary& sample,
                                                                 std::size_t index) = 0;

    // Of a channel: "IOReportChannelGetGroup", "IOReportChannelGetSubGroup",
    // "IOReportChannelGetChannelName" and "IOReportChannelGetUnitLabel". Absent if it has none;
    // valid as long as the channel.
    [[nodiscard]] virtual std::optional<std::string_view> channelGroup(IOReportChannel channel) = 0;
    [[nodiscard]] virtual std::optional<std::string_view> channelSubgroup(
        IOReportChannel channel) = 0;
    [[nodiscard]] virtual std::optional<std::string_view> channelName(IOReportChannel channel) = 0;
    [[nodiscard]] virtual std::optional<std::string_view> channelUnitLabel(
        IOReportChannel channel) = 0;

    /// "IOReportStateGetCount", as it comes: a channel without states may say anything below 1.
    [[nodiscard]] virtual std::int32_t stateCount(IOReportChannel channel) = 0;
    /// "IOReportStateGetNameForIndex"; absent if the state has none.
    [[nodiscard]] virtual std::optional<std::string_view> stateName(IOReportChannel channel,
                                                                    std::int32_t index) = 0;
    /// "IOReportStateGetResidency", in a unit of the channel's own.
    [[nodiscard]] virtual std::int64_t stateResidency(IOReportChannel channel,
                                                      std::int32_t index) = 0;
    /// "IOReportSimpleGetIntegerValue".
    [[nodiscard]] virtual std::int64_t simpleIntegerValue(IOReportChannel channel,
                                                          std::int32_t index) = 0;
};

/// The private library that counts what parts of the chip did, loaded at run time. Main executor.
class IOReportLibrary {
public:
    IOReportLibrary() = default;
    IOReportLibrary(const IOReportLibrary&) = delete;
    IOReportLibrary& operator=(const IOReportLibrary&) = delete;
    virtual ~IOReportLibrary() = default;

    /// `dlopen` of a path in a mode of the platform's bits; null where the library is not there.
    [[nodiscard]] virtual std::unique_ptr<IOReport> open(const char* path, int mode) = 0;
};

}  // namespace vtx
