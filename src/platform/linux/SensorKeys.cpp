// SPDX-License-Identifier: MIT
#include "platform/linux/SensorKeys.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "platform/shapes/SMCValue.h"

namespace vtx {
namespace {

constexpr std::string_view floatType = "flt ";
constexpr std::string_view fixedType = "sp78";
constexpr auto checkInterval = std::chrono::seconds(1);
/// Bytes of the processors' common key; no sensor has such an identity.
constexpr std::string_view allProcessors = "processors";

/// Files of a fan and how their keys end.
struct FanPart {
    std::string_view file;
    std::string_view suffix;
};
constexpr std::array<FanPart, 4> fanParts{
    {{"input", "Ac"}, {"target", "Tg"}, {"min", "Mn"}, {"max", "Mx"}}};

SMCAnswer failed(std::uint32_t code, std::uint8_t result) {
    SMCAnswer answer;
    answer.key = code;
    answer.result = result;
    return answer;
}

std::optional<double> hottest(const auto& sensors) {
    std::optional<double> most;
    for (const auto& sensor : sensors) {
        const auto value = sensor->value();
        if (value && (!most || *value > *most)) most = value;
    }
    return most;
}

std::uint32_t sizeOf(std::uint32_t type) {
    if (type == packSMCCode("ui8 ")) return 1;
    return type == packSMCCode(fixedType) ? 2 : 4;
}

}  // namespace

SensorKeys::SensorKeys(const LinuxRoot& root, const Tools& tools)
    : root_(root), tools_(tools), names_(tools.defaults, tools.hash) {}

bool SensorKeys::isEmpty() {
    const std::lock_guard lock(mutex_);
    lookAgainIfDue();
    return known_.empty();
}

SMCAnswer SensorKeys::answer(const SMCRequest& request) {
    std::uint32_t code = request.key;
    std::shared_ptr<const Key> key;
    {
        const std::lock_guard lock(mutex_);
        lookAgainIfDue();
        if (request.command == smcCommands::keyAtIndex) {
            if (request.index >= order_.size()) return failed(0, smcResults::keyNotFound);
            code = order_[request.index];
        }
        key = find(code);
    }
    // Without the lock: reading may wait.
    if (!key) return failed(code, smcResults::keyNotFound);
    if (request.command == smcCommands::readValue) return valueOf(code, *key);
    const bool isQuestion = request.command == smcCommands::keyAtIndex ||
                            request.command == smcCommands::keyInformation;
    return isQuestion ? describe(code, *key) : failed(code, smcResults::failure);
}

void SensorKeys::lookAgainIfDue() {
    const Instant now = tools_.reading.clock.continuous();
    if (lastCheck_ && now - *lastCheck_ < checkInterval) return;
    lastCheck_ = now;
    const auto generation = tools_.changes.generation();
    if (std::exchange(generation_, generation) != generation) look();
}

void SensorKeys::look() {
    const auto found = findSensors(root_);
    before_ = std::exchange(known_, {});
    for (auto& [code, key] : keys_) key = std::make_shared<Key>(Key{key->type, {}, {}});
    setNumber("#KEY", "ui32", 0);
    setNumber("FNum", "ui8 ", fans_.size());
    // The processor first: a board's controller that hangs must not hold up the search for it.
    addTemperatures(found);
    for (const auto& sensor : found) {
        if (sensor.kind == SensorKind::fan) addFan(sensor);
        if (sensor.kind == SensorKind::batteryTemperature) add("B0AT", floatType, sensor);
    }
    setNumber("FNum", "ui8 ", fans_.size());
    setNumber("#KEY", "ui32", order_.size());
    before_.clear();
    names_.store();
}

void SensorKeys::addTemperatures(const std::vector<FoundSensor>& found) {
    const auto isProcessor = [](const FoundSensor& sensor) {
        return sensor.kind == SensorKind::temperature && sensor.role == SensorRole::processor;
    };
    const bool isMany =
        static_cast<std::size_t>(std::ranges::count_if(found, isProcessor)) > mostProcessors;
    const auto common = isMany ? names_.nameOf("TC", allProcessors) : std::nullopt;
    for (const auto& sensor : found) {
        if (sensor.kind != SensorKind::temperature) continue;
        if (common && isProcessor(sensor)) add(*common, floatType, sensor);
        if (!common && isProcessor(sensor)) offered_.insert(sensor.identity);
        if (offered_.contains(sensor.identity)) addNamed("TC", floatType, sensor);
    }
    for (const auto& sensor : found) {
        const bool isPassedOver = common || !isProcessor(sensor);
        if (sensor.kind == SensorKind::temperature && isPassedOver)
            addNamed("S", fixedType, sensor);
    }
}

void SensorKeys::addFan(const FoundSensor& fan) {
    auto at = std::ranges::find(fans_, fan.identity);
    if (at == fans_.end()) {
        if (fans_.size() >= mostFans) return;
        at = fans_.insert(at, fan.identity);
    }
    const auto number = at - fans_.begin();
    for (const auto& [file, suffix] : fanParts) {
        if (!root_.exists(fmt::format("{}/{}_{}", fan.folder, fan.stem, file))) continue;
        add(fmt::format("F{}{}", number, suffix), floatType, fan, file);
    }
}

void SensorKeys::addNamed(std::string_view prefix, std::string_view type,
                          const FoundSensor& sensor) {
    if (const auto name = names_.nameOf(prefix, sensor.identity)) add(*name, type, sensor);
}

void SensorKeys::add(std::string_view name, std::string_view type, const FoundSensor& sensor,
                     std::string_view part) {
    keyOf(name, type).sensors.push_back(sensorOf(sensor, part));
}

void SensorKeys::setNumber(std::string_view name, std::string_view type, std::size_t number) {
    keyOf(name, type).number = static_cast<std::uint32_t>(number);
}

SensorKeys::Key& SensorKeys::keyOf(std::string_view name, std::string_view type) {
    const auto code = packSMCCode(name);
    const auto [at, isNew] = keys_.try_emplace(code);
    if (isNew) {
        order_.push_back(code);
        at->second = std::make_shared<Key>();
    }
    at->second->type = packSMCCode(type);
    return *at->second;
}

SensorKeys::Sensor SensorKeys::sensorOf(const FoundSensor& sensor, std::string_view part) {
    const std::string who = fmt::format("{}|{}", sensor.identity, part);
    if (const auto here = known_.find(who); here != known_.end()) return here->second.sensor;
    const auto before = before_.find(who);
    KnownSensor known;
    if (before != before_.end() && before->second.folder == sensor.folder) {
        known = before->second;
    } else {
        auto& pace = paces_[sensor.device];
        if (!pace) pace = std::make_shared<ReadPace>();
        auto file = std::make_shared<SensorFile>(root_, tools_.reading.now, sensor, part);
        // A fan's other figures can come a pass later; a sensor that the search misses never comes.
        const auto firstCall = sensor.kind == SensorKind::fan
                                   ? PacedSensor::FirstCall::waitsWithinBound
                                   : PacedSensor::FirstCall::waits;
        known = {sensor.folder,
                 std::make_shared<PacedSensor>(std::move(file), pace, tools_.reading, firstCall)};
    }
    return known_.emplace(who, std::move(known)).first->second.sensor;
}

std::shared_ptr<const SensorKeys::Key> SensorKeys::find(std::uint32_t code) const {
    const auto found = keys_.find(code);
    return found == keys_.end() ? nullptr : found->second;
}

SMCAnswer SensorKeys::describe(std::uint32_t code, const Key& key) {
    SMCAnswer answer;
    answer.key = code;
    answer.dataType = key.type;
    answer.dataSize = sizeOf(key.type);
    return answer;
}

SMCAnswer SensorKeys::valueOf(std::uint32_t code, const Key& key) {
    SMCAnswer answer = describe(code, key);
    if (key.number) {
        answer.bytes = answer.dataSize == 1
                           ? encodeSMCUnsigned8(static_cast<std::uint8_t>(*key.number))
                           : encodeSMCUnsigned32(*key.number);
        return answer;
    }
    const auto value = hottest(key.sensors);
    if (!value) return failed(code, smcResults::failure);
    answer.bytes = answer.dataSize == 2 ? encodeSMCSigned256ths(*value)
                                        : encodeSMCFloat(static_cast<float>(*value));
    return answer;
}

}  // namespace vtx
