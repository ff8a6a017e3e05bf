// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedIOReportLibrary.h"

#include <algorithm>
#include <utility>

#include "base/Fault.h"
#include "platform/simulated/Operations.h"

namespace vtx {
namespace {

constexpr std::string_view libraryPath = "/usr/lib/libIOReport.dylib";

class Dictionary final : public IOReportDictionary {
public:
    /// Without a list the dictionary has something else, or nothing, under the list's key.
    Dictionary(std::optional<std::vector<SimulatedChannel>> list, Instruments& instruments)
        : channels(std::move(list)), held_(instruments.handles.hold(handles::ioReportDictionary)) {}

    std::optional<std::vector<SimulatedChannel>> channels;
    /// Given by a subscription: no other dictionary can be sampled.
    bool isSubscribed = false;

private:
    Subscription held_;
};

class SubscriptionObject final : public IOReportSubscriptionObject {
public:
    explicit SubscriptionObject(Instruments& instruments)
        : held_(instruments.handles.hold(handles::ioReportSubscription)) {}

private:
    Subscription held_;
};

const std::optional<std::vector<SimulatedChannel>>& listOf(const IOReportDictionary& dictionary) {
    return dynamic_cast<const Dictionary&>(dictionary).channels;
}

bool isSubscribed(const IOReportDictionary& dictionary) {
    return dynamic_cast<const Dictionary&>(dictionary).isSubscribed;
}

const SimulatedChannel& at(IOReportChannel channel) {
    if (!channel.part) programmingFault("a channel that is none was looked at");
    return *static_cast<const SimulatedChannel*>(channel.part);
}

std::optional<std::string_view> viewOf(const std::optional<std::string>& text) {
    return text ? std::optional<std::string_view>(*text) : std::nullopt;
}

bool isSame(const SimulatedChannel& a, const SimulatedChannel& b) {
    return a.group == b.group && a.subgroup == b.subgroup && a.name == b.name;
}

/// As the machine subtracts, which wraps for absurd values instead of being undefined.
std::int64_t minus(std::int64_t a, std::int64_t b) {
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(a) - static_cast<std::uint64_t>(b));
}

/// What the newer value of a channel adds to the older one; a channel that is new adds all of it.
SimulatedChannel difference(const SimulatedChannel& newer,
                            const std::vector<SimulatedChannel>& older) {
    SimulatedChannel added = newer;
    const auto before =
        std::ranges::find_if(older, [&](const auto& each) { return isSame(each, newer); });
    if (before == older.end()) return added;
    added.value = minus(added.value, before->value);
    const auto states = std::min(added.states.size(), before->states.size());
    for (std::size_t i = 0; i < states; ++i)
        added.states[i].residency = minus(added.states[i].residency, before->states[i].residency);
    return added;
}

class Functions final : public IOReport {
public:
    Functions(SimulatedChannels& channels, Instruments& instruments)
        : channels_(channels), instruments_(instruments) {}

    bool resolve(const char* symbol) override {
        return !instruments_.enter(std::string(operations::dlsymPrefix).append(symbol));
    }

    IOReportDictionaryOwner copyChannelsInGroup(std::string_view group,
                                                std::optional<std::string_view> subgroup) override {
        if (instruments_.enter(operations::ioReportCopyChannels)) return nullptr;
        auto all = channels_.all();
        const bool asked = !instruments_.failures.take(operations::ioReportCopyChannelsAll);
        std::erase_if(all, [&](const SimulatedChannel& each) {
            return asked && each.isDictionary &&
                   (each.group != group || (subgroup && each.subgroup != *subgroup));
        });
        if (all.empty()) return nullptr;
        return std::make_unique<Dictionary>(std::move(all), instruments_);
    }

    IOReportDictionaryOwner createMutableCopy(const IOReportDictionary& dictionary) override {
        if (instruments_.enter(operations::cfDictionaryCreateMutableCopy)) return nullptr;
        return std::make_unique<Dictionary>(listOf(dictionary), instruments_);
    }

    IOReportSubscribed createSubscription(IOReportDictionary& channels) override {
        IOReportSubscribed answer;
        if (instruments_.enter(operations::ioReportCreateSubscription)) return answer;
        Failures& failures = instruments_.failures;
        if (!failures.take(operations::ioReportCreateSubscriptionNoObject))
            answer.subscription = std::make_unique<SubscriptionObject>(instruments_);
        if (!failures.take(operations::ioReportCreateSubscriptionNoChannels)) {
            auto subscribed = std::make_unique<Dictionary>(listOf(channels), instruments_);
            subscribed->isSubscribed = true;
            answer.channels = std::move(subscribed);
        }
        return answer;
    }

    IOReportDictionaryOwner createSamples(IOReportSubscriptionObject&,
                                          IOReportDictionary& channels) override {
        if (instruments_.enter(operations::ioReportCreateSamples)) return nullptr;
        if (!isSubscribed(channels)) return nullptr;
        const auto& wanted = listOf(channels);
        auto now = channels_.all();
        std::erase_if(now, [&](const SimulatedChannel& each) {
            return !wanted || std::ranges::none_of(*wanted, [&](const SimulatedChannel& one) {
                return isSame(one, each);
            });
        });
        return std::make_unique<Dictionary>(std::move(now), instruments_);
    }

    IOReportDictionaryOwner createSamplesDelta(const IOReportDictionary& older,
                                               const IOReportDictionary& newer) override {
        if (instruments_.enter(operations::ioReportCreateSamplesDelta)) return nullptr;
        if (instruments_.failures.take(operations::ioReportCreateSamplesDeltaNoList))
            return std::make_unique<Dictionary>(std::nullopt, instruments_);
        std::vector<SimulatedChannel> added;
        for (const SimulatedChannel& each : *listOf(newer))
            added.push_back(difference(each, *listOf(older)));
        return std::make_unique<Dictionary>(std::move(added), instruments_);
    }

    std::optional<std::size_t> channelCount(const IOReportDictionary& sample) override {
        const auto& list = listOf(sample);
        return list ? std::optional(list->size()) : std::nullopt;
    }

    std::optional<IOReportChannel> channel(const IOReportDictionary& sample,
                                           std::size_t index) override {
        const auto& list = listOf(sample);
        if (!list || index >= list->size() || !(*list)[index].isDictionary) return std::nullopt;
        return IOReportChannel{&(*list)[index]};
    }

    std::optional<std::string_view> channelGroup(IOReportChannel channel) override {
        return viewOf(at(channel).group);
    }
    std::optional<std::string_view> channelSubgroup(IOReportChannel channel) override {
        return viewOf(at(channel).subgroup);
    }
    std::optional<std::string_view> channelName(IOReportChannel channel) override {
        return viewOf(at(channel).name);
    }
    std::optional<std::string_view> channelUnitLabel(IOReportChannel channel) override {
        return viewOf(at(channel).unit);
    }

    std::int32_t stateCount(IOReportChannel channel) override {
        const SimulatedChannel& each = at(channel);
        return each.stateCount.value_or(static_cast<std::int32_t>(each.states.size()));
    }
    std::optional<std::string_view> stateName(IOReportChannel channel,
                                              std::int32_t index) override {
        const SimulatedState* each = state(channel, index);
        return each ? viewOf(each->name) : std::nullopt;
    }
    std::int64_t stateResidency(IOReportChannel channel, std::int32_t index) override {
        const SimulatedState* each = state(channel, index);
        return each ? each->residency : 0;
    }
    std::int64_t simpleIntegerValue(IOReportChannel channel, std::int32_t) override {
        return at(channel).value;
    }

private:
    static const SimulatedState* state(IOReportChannel channel, std::int32_t index) {
        const auto& states = at(channel).states;
        if (index < 0 || static_cast<std::size_t>(index) >= states.size()) return nullptr;
        return &states[static_cast<std::size_t>(index)];
    }

    SimulatedChannels& channels_;
    Instruments& instruments_;
};

}  // namespace

std::unique_ptr<IOReport> SimulatedIOReportLibrary::open(const char* path, int) {
    if (instruments_.enter(std::string(operations::dlopenPrefix).append(path))) return nullptr;
    if (path != libraryPath) return nullptr;
    return std::make_unique<Functions>(channels_, instruments_);
}

}  // namespace vtx
