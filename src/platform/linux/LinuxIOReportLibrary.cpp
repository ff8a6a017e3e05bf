// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxIOReportLibrary.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/Fault.h"

namespace vtx {
namespace {

constexpr std::string_view libraryPath = "/usr/lib/libIOReport.dylib";
constexpr std::string_view groupName = "CPU Stats";
constexpr std::string_view subgroupName = "CPU Core Performance States";
constexpr std::array<std::string_view, 12> symbols = {
    "IOReportCopyChannelsInGroup",   "IOReportCreateSubscription",
    "IOReportCreateSamples",         "IOReportCreateSamplesDelta",
    "IOReportChannelGetGroup",       "IOReportChannelGetSubGroup",
    "IOReportChannelGetChannelName", "IOReportChannelGetUnitLabel",
    "IOReportStateGetCount",         "IOReportStateGetNameForIndex",
    "IOReportStateGetResidency",     "IOReportSimpleGetIntegerValue"};

using Channels = std::shared_ptr<const CoreChannels>;
using Values = std::vector<std::int64_t>;

/// All channels, and what they count.
class Dictionary final : public IOReportDictionary {
public:
    struct Part {
        const CoreChannel* core = nullptr;
        const CoreChannels* all = nullptr;
        std::span<const std::int64_t> states;
    };

    Dictionary(Channels all, Values counted)
        : channels(std::move(all)), values(std::move(counted)) {
        for (const auto& policy : channels->policies) {
            for (const auto& core : policy.cores) {
                const auto states = std::span(values).subspan(core.firstValue, core.stateCount());
                parts.push_back({&core, channels.get(), states});
            }
        }
    }

    const Channels channels;
    const Values values;
    std::vector<Part> parts;
};

const Dictionary& dictionaryOf(const IOReportDictionary& dictionary) {
    return dynamic_cast<const Dictionary&>(dictionary);
}

class SubscriptionObject final : public IOReportSubscriptionObject {
public:
    explicit SubscriptionObject(CoreResidencies counting) : residencies(std::move(counting)) {}

    CoreResidencies residencies;
};

const Dictionary::Part& partOf(IOReportChannel channel) {
    if (!channel.part) programmingFault("a channel that is none was looked at");
    return *static_cast<const Dictionary::Part*>(channel.part);
}

/// A state's index where the channel has such a state.
std::optional<std::size_t> stateAt(IOReportChannel channel, std::int32_t index) {
    if (index < 0 || static_cast<std::size_t>(index) >= partOf(channel).states.size())
        return std::nullopt;
    return static_cast<std::size_t>(index);
}

class Functions final : public IOReport {
public:
    Functions(const LinuxRoot& root, const LinuxProcessors& processors, Channels channels)
        : root_(root), processors_(processors), channels_(std::move(channels)) {}

    bool resolve(const char* symbol) override {
        return std::ranges::find(symbols, std::string_view(symbol)) != symbols.end();
    }

    IOReportDictionaryOwner copyChannelsInGroup(std::string_view group,
                                                std::optional<std::string_view> subgroup) override {
        if (group != groupName || subgroup.value_or(subgroupName) != subgroupName) return nullptr;
        return std::make_unique<Dictionary>(channels_, Values(channels_->valueCount, 0));
    }

    IOReportDictionaryOwner createMutableCopy(const IOReportDictionary& dictionary) override {
        return std::make_unique<Dictionary>(channels_, dictionaryOf(dictionary).values);
    }

    IOReportSubscribed createSubscription(IOReportDictionary& channels) override {
        return {
            std::make_unique<SubscriptionObject>(CoreResidencies(root_, processors_, channels_)),
            createMutableCopy(channels)};
    }

    IOReportDictionaryOwner createSamples(IOReportSubscriptionObject& subscription,
                                          IOReportDictionary&) override {
        auto& residencies = dynamic_cast<SubscriptionObject&>(subscription).residencies;
        if (!residencies.read()) return nullptr;
        return std::make_unique<Dictionary>(channels_, residencies.values());
    }

    IOReportDictionaryOwner createSamplesDelta(const IOReportDictionary& older,
                                               const IOReportDictionary& newer) override {
        const Values& before = dictionaryOf(older).values;
        Values added = dictionaryOf(newer).values;
        std::ranges::transform(added, before, added.begin(), std::minus<>());
        return std::make_unique<Dictionary>(channels_, std::move(added));
    }

    std::optional<std::size_t> channelCount(const IOReportDictionary& sample) override {
        return dictionaryOf(sample).parts.size();
    }
    std::optional<IOReportChannel> channel(const IOReportDictionary& sample,
                                           std::size_t index) override {
        const auto& parts = dictionaryOf(sample).parts;
        if (index >= parts.size()) return std::nullopt;
        return IOReportChannel{&parts[index]};
    }

    std::optional<std::string_view> channelGroup(IOReportChannel) override { return groupName; }
    std::optional<std::string_view> channelSubgroup(IOReportChannel) override {
        return subgroupName;
    }
    std::optional<std::string_view> channelName(IOReportChannel channel) override {
        return partOf(channel).core->name;
    }
    std::optional<std::string_view> channelUnitLabel(IOReportChannel) override { return "ns"; }

    std::int32_t stateCount(IOReportChannel channel) override {
        return static_cast<std::int32_t>(partOf(channel).states.size());
    }
    std::optional<std::string_view> stateName(IOReportChannel channel,
                                              std::int32_t index) override {
        const auto state = stateAt(channel, index);
        if (!state) return std::nullopt;
        return partOf(channel).all->stateNames[*state];
    }
    std::int64_t stateResidency(IOReportChannel channel, std::int32_t index) override {
        const auto state = stateAt(channel, index);
        return state ? partOf(channel).states[*state] : 0;
    }
    std::int64_t simpleIntegerValue(IOReportChannel, std::int32_t) override { return 0; }

private:
    const LinuxRoot& root_;
    const LinuxProcessors& processors_;
    const Channels channels_;
};

}  // namespace

LinuxIOReportLibrary::LinuxIOReportLibrary(const LinuxRoot& root, const LinuxProcessors& processors,
                                           const CpuFreq& cpuFreq)
    : root_(root),
      processors_(processors),
      channels_(std::make_shared<const CoreChannels>(root, processors, cpuFreq)) {}

std::unique_ptr<IOReport> LinuxIOReportLibrary::open(const char* path, int) {
    if (path != libraryPath || channels_->policies.empty()) return nullptr;
    return std::make_unique<Functions>(root_, processors_, channels_);
}

}  // namespace vtx
