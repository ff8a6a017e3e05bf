// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedSMC.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "base/Fault.h"
#include "platform/shapes/SMCValue.h"

namespace vtx {
namespace {

SMCAnswer failed(std::uint8_t result) {
    SMCAnswer answer;
    answer.result = result;
    return answer;
}

}  // namespace

void SimulatedSMC::add(std::string_view name, SimulatedSMCKey key) {
    const std::lock_guard lock(mutex_);
    keys_.insert_or_assign(packSMCCode(name), std::move(key));
    order_.clear();
}

void SimulatedSMC::addFloat(std::string_view name, SimulatedSMCKey::Source source) {
    SimulatedSMCKey key;
    key.source = std::move(source);
    add(name, std::move(key));
}

void SimulatedSMC::remove(std::string_view name) {
    const std::lock_guard lock(mutex_);
    at(name);
    keys_.erase(packSMCCode(name));
    order_.clear();
}

void SimulatedSMC::clear() {
    const std::lock_guard lock(mutex_);
    keys_.clear();
    order_.clear();
}

void SimulatedSMC::change(std::string_view name,
                          const std::function<void(SimulatedSMCKey&)>& edit) {
    const std::lock_guard lock(mutex_);
    edit(at(name));
}

void SimulatedSMC::setFloat(std::string_view name, float value) {
    change(name, [value](SimulatedSMCKey& key) {
        key.source = nullptr;
        key.value = encodeSMCFloat(value);
    });
}

SimulatedSMCKey SimulatedSMC::key(std::string_view name) const {
    const std::lock_guard lock(mutex_);
    const auto found = keys_.find(packSMCCode(name));
    if (found == keys_.end()) programmingFault(fmt::format("the SMC has no key {}", name));
    return found->second;
}

bool SimulatedSMC::has(std::string_view name) const {
    const std::lock_guard lock(mutex_);
    return keys_.contains(packSMCCode(name));
}

std::size_t SimulatedSMC::keyCount() const {
    const std::lock_guard lock(mutex_);
    return keys_.size();
}

void SimulatedSMC::onIndex(std::function<void(std::uint32_t)> happens) {
    const std::lock_guard lock(mutex_);
    onIndex_ = std::move(happens);
}

void SimulatedSMC::talkNonsense(std::uint64_t seed) {
    const std::lock_guard lock(mutex_);
    nonsense_ = seed;
}

SMCAnswer SimulatedSMC::answer(const SMCRequest& request) {
    std::function<void(std::uint32_t)> onIndex;
    {
        const std::lock_guard lock(mutex_);
        if (nonsense_) return nonsense();
        if (request.command == smcCommands::keyAtIndex) onIndex = onIndex_;
    }
    if (onIndex) onIndex(request.index);
    if (request.command == smcCommands::readValue) return read(request.key);
    if (request.command == smcCommands::writeValue) return write(request);
    if (request.command == smcCommands::keyInformation) return information(request.key);
    const std::lock_guard lock(mutex_);
    if (request.command == smcCommands::keyAtIndex) return atIndex(request.index);
    return failed(smcResults::failure);
}

SimulatedSMCKey& SimulatedSMC::at(std::string_view name) {
    const auto found = keys_.find(packSMCCode(name));
    if (found == keys_.end()) programmingFault(fmt::format("the SMC has no key {}", name));
    return found->second;
}

SMCAnswer SimulatedSMC::information(std::uint32_t code) {
    SimulatedSMCKey::Source source;
    SMCAnswer answer;
    {
        const std::lock_guard lock(mutex_);
        const auto found = keys_.find(code);
        if (found == keys_.end()) return failed(smcResults::keyNotFound);
        SimulatedSMCKey& key = found->second;
        ++key.questions;
        if (key.hidesInformation) return failed(smcResults::failure);
        answer.dataType = packSMCCode(key.type);
        answer.attributes = key.attributes;
        answer.dataSize = key.claimedSize.value_or(static_cast<std::uint32_t>(key.value.size()));
        if (!key.claimedSize) source = key.source;
    }
    if (source) answer.dataSize = static_cast<std::uint32_t>(source().size());
    return answer;
}

SMCAnswer SimulatedSMC::atIndex(std::uint32_t index) {
    if (order_.size() != keys_.size()) renumber();
    if (index >= order_.size()) return failed(smcResults::keyNotFound);
    SMCAnswer answer;
    answer.key = order_[index];
    return answer;
}

void SimulatedSMC::renumber() {
    order_.clear();
    for (const auto& [code, key] : keys_) order_.push_back(code);
}

SMCAnswer SimulatedSMC::read(std::uint32_t code) {
    SimulatedSMCKey::Source source;
    SMCAnswer answer;
    {
        const std::lock_guard lock(mutex_);
        const auto found = keys_.find(code);
        if (found == keys_.end()) return failed(smcResults::keyNotFound);
        SimulatedSMCKey& key = found->second;
        ++key.reads;
        if (key.failsEvery != 0 && key.reads % key.failsEvery == 0)
            return failed(smcResults::failure);
        source = key.source;
        answer.bytes = key.value;
    }
    // A source may look at other parts of the machine, which have locks of their own.
    if (source) answer.bytes = source();
    return answer;
}

SMCAnswer SimulatedSMC::write(const SMCRequest& request) {
    const std::lock_guard lock(mutex_);
    const auto found = keys_.find(request.key);
    if (found == keys_.end()) return failed(smcResults::keyNotFound);
    const auto count = std::min<std::size_t>(request.dataSize, smcValueRoom);
    found->second.source = nullptr;
    found->second.value.assign(request.bytes.begin(),
                               request.bytes.begin() + static_cast<std::ptrdiff_t>(count));
    return {};
}

SMCAnswer SimulatedSMC::nonsense() {
    const auto next = [this] {
        *nonsense_ = *nonsense_ * 6364136223846793005U + 1442695040888963407U;
        return static_cast<std::uint32_t>(*nonsense_ >> 32);
    };
    SMCAnswer answer;
    answer.key = next() % 2 ? packSMCCode("Tp00") + next() % 64 : next();
    answer.dataSize = next() % 2 ? 4 : next();
    answer.dataType = next() % 2 ? packSMCCode("flt ") : next();
    answer.attributes = static_cast<std::uint8_t>(next());
    for (std::size_t i = 0; i < smcValueRoom; ++i)
        answer.bytes.push_back(static_cast<std::byte>(next() & 0xffU));
    return answer;
}

}  // namespace vtx
