// SPDX-License-Identifier: MIT
#include "ui/models/BatterySectionModel.h"

#include <fmt/format.h>

#include <cmath>

#include "ui/models/Formatters.h"
#include "ui/models/SectionFormatters.h"
#include "ui/models/SectionText.h"

namespace vtx {
namespace {

using Key = L10n::Key;
using State = BatteryReading::ChargingState;
using Source = BatteryReading::PowerSource;
using Grade = BatteryReading::HealthGrade;

std::string stateLabel(State state, const Localization& texts) {
    switch (state) {
        case State::charging:
            return text(texts, Key::battery_charging);
        case State::discharging:
            return text(texts, Key::battery_discharging);
        case State::full:
            return text(texts, Key::battery_full);
        case State::acIdle:
            return text(texts, Key::battery_acAttached);
        case State::unknown:
            break;
    }
    return std::string(emptyMark);
}

std::string sourceLabel(Source source, const Localization& texts) {
    if (source == Source::battery) return text(texts, Key::battery_discharging);
    if (source == Source::acAdapter) return text(texts, Key::battery_acAttached);
    return std::string(emptyMark);
}

PillModel gradePill(Grade grade, const Localization& texts) {
    switch (grade) {
        case Grade::excellent:
            return {text(texts, Key::battery_healthExcellent), Hue::green};
        case Grade::good:
            return {text(texts, Key::battery_healthGood), Hue::green};
        case Grade::fair:
            return {text(texts, Key::battery_healthFair), Hue::orange};
        case Grade::poor:
            return {text(texts, Key::battery_healthPoor), Hue::red};
        case Grade::unknown:
            break;
    }
    return {std::string(emptyMark), Hue::primary};
}

BatteryChargeModel chargeOf(const BatteryReading& reading, const Localization& texts) {
    BatteryChargeModel charge;
    charge.hero = {text(texts, Key::battery_charge), percent(reading.chargeFraction), Hue::primary,
                   stateLabel(reading.chargingState, texts)};
    charge.fraction = drawnFraction(reading.chargeFraction.value_or(0.0));
    charge.tint = chargeTint(reading.chargeFraction, reading.chargingState);
    if (reading.lowPowerModeEnabled) {
        charge.lowPowerMode = text(texts, Key::battery_lowPowerMode);
        charge.lowPowerSymbol = "leaf";
    }
    return charge;
}

std::vector<KeyValueModel> statusOf(const BatteryReading& reading, const Localization& texts) {
    std::vector<KeyValueModel> rows{
        {text(texts, Key::battery_powerSource), sourceLabel(reading.powerSource, texts)}};
    const auto add = [&](Key title, const std::optional<std::int64_t>& minutes) {
        rows.push_back({text(texts, title),
                        minutes ? formatMinutes(*minutes) : text(texts, Key::battery_calculating)});
    };
    if (reading.chargingState == State::discharging)
        add(Key::battery_timeRemaining, reading.minutesRemaining);
    else if (reading.chargingState == State::charging)
        add(Key::battery_timeUntilFull, reading.minutesUntilFull);
    else if (reading.chargingState != State::unknown)
        rows.push_back({text(texts, Key::battery_isCharged), text(texts, Key::battery_full)});
    return rows;
}

std::string capacityText(std::optional<std::int64_t> held, std::optional<std::int64_t> design) {
    if (!held) return std::string(emptyMark);
    std::optional<double> part;
    if (design && *design > 0) part = static_cast<double>(*held) / static_cast<double>(*design);
    return fmt::format("{} mAh ({})", *held, percent(part));
}

BatteryHealthModel healthOf(const BatteryReading& reading, const BatterySectionReadings& of,
                            const Localization& texts) {
    const Grade grade = BatteryReading::grade(reading.maxCapacityMAh, of.designCapacityMAh);
    return {text(texts, Key::battery_health),
            gradePill(grade, texts),
            {{text(texts, Key::battery_maxCapacity),
              capacityText(reading.maxCapacityMAh, of.designCapacityMAh)},
             {text(texts, Key::system_batteryCycles), formatWhole(of.cycleCount, "")},
             {text(texts, Key::system_batteryTemperature), formatTemp(reading.temperatureC)}}};
}

std::optional<double> real(std::optional<std::int64_t> value) {
    return value ? std::optional(static_cast<double>(*value)) : std::nullopt;
}

std::vector<KeyValueModel> detailsOf(const BatteryReading& reading, const Localization& texts) {
    if (!reading.currentCapacityMAh && !reading.voltageMV) return {};
    const auto mV = real(reading.voltageMV);
    const auto mA = real(reading.amperageMA);
    const std::string none(emptyMark);
    return {
        {text(texts, Key::battery_currentCapacity), formatWhole(reading.currentCapacityMAh, "mAh")},
        {text(texts, Key::battery_voltage), mV ? fmt::format("{:.2f} V", *mV / 1e3) : none},
        {text(texts, Key::battery_amperage), formatWhole(reading.amperageMA, "mA")},
        {text(texts, Key::battery_powerDraw),
         mV && mA ? fmt::format("{:.1f} W", std::abs(*mV * *mA) / 1e6) : none}};
}

}  // namespace

Hue chargeTint(std::optional<double> fraction, State state) {
    if (state == State::charging || state == State::full) return Hue::green;
    if (!fraction || std::isnan(*fraction)) return Hue::accent;
    if (*fraction < 0.1) return Hue::red;
    if (*fraction < 0.25) return Hue::orange;
    return *fraction < 0.5 ? Hue::yellow : Hue::green;
}

BatterySectionModel describeBatterySection(const BatterySectionReadings& readings,
                                           const Localization& texts) {
    BatterySectionModel model;
    if (!readings.isAvailable) {
        model.placeholder =
            PlaceholderModel{"powerplug.fill", text(texts, Key::battery_unavailable), ""};
        return model;
    }
    if (!readings.reading) {
        model.collecting = text(texts, Key::memory_collecting);
        return model;
    }
    model.charge = chargeOf(*readings.reading, texts);
    model.status = statusOf(*readings.reading, texts);
    model.health = healthOf(*readings.reading, readings, texts);
    model.details = detailsOf(*readings.reading, texts);
    return model;
}

}  // namespace vtx
