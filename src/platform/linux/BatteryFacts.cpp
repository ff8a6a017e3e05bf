// SPDX-License-Identifier: MIT
#include "platform/linux/BatteryFacts.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <vector>

#include "platform/linux/Parse.h"

namespace vtx {
namespace {

using Number = std::optional<std::int64_t>;
using Status = BatteryFacts::Status;

constexpr std::string_view prefix = "POWER_SUPPLY_";
constexpr std::int64_t million = 1'000'000;
/// A thousand Ah, ten thousand Wh: below 2^54 when multiplied by a million.
constexpr std::int64_t largest = 10'000 * million;
constexpr std::int64_t longest = 360'000;
/// More in a battery than this part of its capacity is no measurement.
constexpr std::int64_t mostPercentOfFull = 125;

/// A key, where its value goes, and the least and the largest value that is believed.
struct Field {
    std::string_view key;
    Number BatteryFacts::* member;
    std::int64_t least, most;
};
constexpr std::int64_t leastVoltage = million / 2;
constexpr std::int64_t mostVoltage = 1000 * million;
constexpr std::array fields{
    Field{"CAPACITY", &BatteryFacts::capacity, 0, 100},
    Field{"CHARGE_NOW", &BatteryFacts::chargeNow, 0, largest},
    Field{"CHARGE_FULL", &BatteryFacts::chargeFull, 1, largest},
    Field{"CHARGE_FULL_DESIGN", &BatteryFacts::chargeFullDesign, 1, largest},
    Field{"ENERGY_NOW", &BatteryFacts::energyNow, 0, largest},
    Field{"ENERGY_FULL", &BatteryFacts::energyFull, 1, largest},
    Field{"ENERGY_FULL_DESIGN", &BatteryFacts::energyFullDesign, 1, largest},
    Field{"VOLTAGE_NOW", &BatteryFacts::voltageNow, leastVoltage, mostVoltage},
    Field{"VOLTAGE_MIN_DESIGN", &BatteryFacts::voltageMinDesign, leastVoltage, mostVoltage},
    Field{"VOLTAGE_MAX_DESIGN", &BatteryFacts::voltageMaxDesign, leastVoltage, mostVoltage},
    Field{"CURRENT_NOW", &BatteryFacts::currentNow, -largest, largest},
    Field{"POWER_NOW", &BatteryFacts::powerNow, -largest, largest},
    Field{"TIME_TO_EMPTY_NOW", &BatteryFacts::secondsToEmpty, 1, longest},
    Field{"TIME_TO_FULL_NOW", &BatteryFacts::secondsToFull, 1, longest},
    Field{"CYCLE_COUNT", &BatteryFacts::cycleCount, 1, 100'000},  // 0 stands for not known
    Field{"TEMP", &BatteryFacts::temperature, -400, 1500}};

Status parseStatus(std::string_view text) {
    if (text == "Charging") return Status::charging;
    if (text == "Discharging") return Status::discharging;
    if (text == "Not charging") return Status::notCharging;
    return text == "Full" ? Status::full : Status::unknown;
}

void take(BatteryFacts& facts, std::string_view key, std::string_view value) {
    if (key == "STATUS") facts.status = parseStatus(value);
    if (key == "PRESENT") facts.isPresent = value != "0";
    const auto field = std::ranges::find(fields, key, &Field::key);
    if (field == fields.end()) return;
    const auto number = parseSigned(value);
    if (number && *number >= field->least && *number <= field->most) facts.*field->member = number;
}

Number magnitude(Number value) { return value ? Number(std::abs(*value)) : std::nullopt; }

/// `part` of 10^-6 times a million, divided by another 10^-6.
Number divided(Number part, Number by) {
    if (!part || !by || *by == 0) return std::nullopt;
    return *part * million / *by;
}

Number multiplied(Number one, Number other) {
    if (!one || !other) return std::nullopt;
    return static_cast<std::int64_t>(static_cast<double>(*one) * static_cast<double>(*other) /
                                     static_cast<double>(million));
}

/// One battery with every figure in both units, as far as they can be told.
struct Battery {
    explicit Battery(const BatteryFacts& facts);

    [[nodiscard]] bool isActive() const {
        return status == Status::charging || status == Status::discharging;
    }
    /// Negative while discharging. What flows in a battery that is in no use has no direction.
    [[nodiscard]] Number current() const {
        if (!amperes || *amperes == 0) return amperes;
        if (!isActive()) return std::nullopt;
        return status == Status::discharging ? -*amperes : *amperes;
    }

    Status status;
    Number charge, chargeFull, chargeDesign;  // µAh
    Number energy, energyFull;                // µWh
    Number amperes, watts;                    // µA and µW
};

Battery::Battery(const BatteryFacts& facts)
    : status(facts.status),
      charge(facts.chargeNow),
      chargeFull(facts.chargeFull),
      chargeDesign(facts.chargeFullDesign),
      energy(facts.energyNow),
      energyFull(facts.energyFull),
      amperes(magnitude(facts.currentNow)),
      watts(magnitude(facts.powerNow)) {
    const Number volts = facts.voltageMinDesign   ? facts.voltageMinDesign
                         : facts.voltageMaxDesign ? facts.voltageMaxDesign
                                                  : facts.voltageNow;
    if (!charge) charge = divided(energy, volts);
    if (!chargeFull) chargeFull = divided(energyFull, volts);
    if (!chargeDesign) chargeDesign = divided(facts.energyFullDesign, volts);
    if (!energy) energy = multiplied(charge, volts);
    if (!energyFull) energyFull = multiplied(chargeFull, volts);
    if (!amperes) amperes = divided(watts, facts.voltageNow);
    if (!watts) watts = multiplied(amperes, facts.voltageNow ? facts.voltageNow : volts);
    if (charge && chargeFull && *charge / mostPercentOfFull > *chargeFull / 100)
        charge = chargeFull = energy = energyFull = std::nullopt;
}

/// Absent unless every battery tells it.
Number sum(std::span<const Battery> batteries, Number Battery::* member) {
    std::int64_t total = 0;
    for (const Battery& each : batteries) {
        if (!(each.*member)) return std::nullopt;
        total += *(each.*member);
    }
    return batteries.empty() ? std::nullopt : Number(total);
}

Number inThousandths(Number value) { return value ? Number(*value / 1000) : std::nullopt; }

/// What is told of it, what there is room for, and how fast it changes, all in one unit.
struct Unit {
    Number Battery::* left;
    Number Battery::* room;
    Number Battery::* rate;
};
constexpr std::array allUnits{Unit{&Battery::energy, &Battery::energyFull, &Battery::watts},
                              Unit{&Battery::charge, &Battery::chargeFull, &Battery::amperes}};

/// The better one first. Charge is no common measure of several, whose voltages may differ.
std::span<const Unit> unitsFor(std::span<const Battery> batteries) {
    return std::span(allUnits).first(batteries.size() == 1 ? 2 : 1);
}

Number percentOf(std::span<const BatteryFacts> facts, std::span<const Battery> batteries) {
    if (facts.size() == 1 && facts[0].capacity) return facts[0].capacity;
    for (const auto& unit : unitsFor(batteries)) {
        const auto now = sum(batteries, unit.left);
        const auto full = sum(batteries, unit.room);
        if (now && full && *full > 0)
            return std::min((*now * 100 + *full / 2) / *full, std::int64_t{100});
    }
    std::int64_t total = 0;
    for (const auto& each : facts) {
        if (!each.capacity) return std::nullopt;
        total += *each.capacity;
    }
    return facts.empty() ? std::nullopt : Number(total / static_cast<std::int64_t>(facts.size()));
}

std::optional<bool> isCharging(std::span<const Battery> batteries) {
    const auto is = [&](Status status) {
        return std::ranges::any_of(batteries, [=](const auto& b) { return b.status == status; });
    };
    if (is(Status::charging)) return true;
    const bool isKnown = is(Status::discharging) || is(Status::notCharging) || is(Status::full);
    return isKnown ? std::optional(false) : std::nullopt;
}

Number currentOf(std::span<const Battery> batteries) {
    Number total;
    for (const Battery& each : batteries) {
        const auto current = each.current();
        if (current) total = total.value_or(0) + *current;
    }
    return total;
}

Number minutes(Number seconds) {
    return seconds && *seconds <= longest ? Number(*seconds / 60) : std::nullopt;
}

/// How long `amount` lasts at the rate of the batteries in that state.
Number minutesAt(Number amount, Number Battery::* rate, std::span<const Battery> batteries,
                 Status status) {
    std::int64_t total = 0;
    for (const Battery& each : batteries)
        if (each.status == status) total += (each.*rate).value_or(0);
    if (!amount || *amount < 0 || total == 0) return std::nullopt;
    return minutes(static_cast<std::int64_t>(static_cast<double>(*amount) * 3600.0 /
                                             static_cast<double>(total)));
}

Number minutesToFull(std::span<const Battery> batteries) {
    for (const auto& [left, room, rate] : unitsFor(batteries)) {
        const auto now = sum(batteries, left);
        const auto full = sum(batteries, room);
        if (!now || !full) continue;
        if (const auto time = minutesAt(*full - *now, rate, batteries, Status::charging))
            return time;
    }
    return std::nullopt;
}

Number minutesToEmpty(std::span<const Battery> batteries) {
    for (const auto& [left, room, rate] : unitsFor(batteries)) {
        const auto time = minutesAt(sum(batteries, left), rate, batteries, Status::discharging);
        if (time) return time;
    }
    return std::nullopt;
}

void addTimes(BatteryState& state, std::span<const BatteryFacts> facts,
              std::span<const Battery> batteries) {
    if (state.isCharging == true) {
        if (facts.size() == 1) state.minutesToFull = minutes(facts[0].secondsToFull);
        if (state.minutesToFull) return;
        state.minutesToFull = minutesToFull(batteries);
    } else if (state.powersMachine) {
        if (facts.size() == 1) state.minutesToEmpty = minutes(facts[0].secondsToEmpty);
        if (state.minutesToEmpty) return;
        state.minutesToEmpty = minutesToEmpty(batteries);
    }
}

}  // namespace

BatteryFacts parseBatteryFacts(std::string_view text) {
    BatteryFacts facts;
    for (;;) {
        const auto end = text.find('\n');
        if (end == std::string_view::npos) return facts;
        auto line = text.substr(0, end);
        text.remove_prefix(end + 1);
        const auto equals = line.find('=');
        if (!line.starts_with(prefix) || equals == std::string_view::npos) continue;
        take(facts, line.substr(prefix.size(), equals - prefix.size()),
             trimmed(line.substr(equals + 1)));
    }
}

BatteryState mergeBatteries(std::span<const BatteryFacts> batteries) {
    std::vector<BatteryFacts> facts;
    std::ranges::copy_if(batteries, std::back_inserter(facts), &BatteryFacts::isPresent);
    const std::vector<Battery> known(facts.begin(), facts.end());

    BatteryState state;
    state.percent = percentOf(facts, known);
    state.isCharging = isCharging(known);
    state.powersMachine =
        std::ranges::find(known, Status::discharging, &Battery::status) != known.end();
    addTimes(state, facts, known);
    state.currentMAh = inThousandths(sum(known, &Battery::charge));
    state.maxMAh = inThousandths(sum(known, &Battery::chargeFull));
    state.designMAh = inThousandths(sum(known, &Battery::chargeDesign));
    state.amperageMA = inThousandths(currentOf(known));
    const auto active = std::ranges::find_if(known, &Battery::isActive);
    const auto inUse = active == known.end() ? 0 : static_cast<std::size_t>(active - known.begin());
    if (facts.empty()) return state;
    state.voltageMV = inThousandths(facts[inUse].voltageNow);
    state.cycleCount = facts[inUse].cycleCount;
    if (const auto tenths = facts[inUse].temperature) state.centiCelsius = *tenths * 10;
    return state;
}

}  // namespace vtx
