// SPDX-License-Identifier: MIT
#include "platform/linux/ThermalTrips.h"

#include <algorithm>

#include "platform/linux/Parse.h"

namespace vtx {
namespace {

constexpr MilliCelsius degree = 1000;
constexpr MilliCelsius leastSensible = -40 * degree;
constexpr MilliCelsius mostSensible = 200 * degree;

constexpr MilliCelsius beforeShutdown = 5 * degree;
constexpr MilliCelsius seriousBeforeShutdown = 10 * degree;
constexpr MilliCelsius beforeSerious = 5 * degree;
constexpr MilliCelsius usualHysteresis = 2 * degree;
constexpr MilliCelsius mostHysteresis = 10 * degree;

void takeLower(std::optional<MilliCelsius>& lowest, MilliCelsius temperature) {
    lowest = lowest ? std::min(*lowest, temperature) : temperature;
}

int reached(MilliCelsius temperature, const ThermalThresholds& thresholds) {
    if (thresholds.critical && temperature >= *thresholds.critical) return 3;
    if (thresholds.serious && temperature >= *thresholds.serious) return 2;
    return thresholds.fair && temperature >= *thresholds.fair ? 1 : 0;
}

}  // namespace

std::optional<MilliCelsius> parseMilliCelsius(std::string_view text) {
    const auto value = parseSigned(text);
    return value && *value >= leastSensible && *value <= mostSensible ? value : std::nullopt;
}

TripPoint::Kind parseTripKind(std::string_view text) {
    text = trimmed(text);
    if (text == "passive") return TripPoint::Kind::passive;
    if (text == "hot") return TripPoint::Kind::hot;
    return text == "critical" ? TripPoint::Kind::critical : TripPoint::Kind::other;
}

ThermalThresholds thresholdsOf(std::span<const TripPoint> trips) {
    std::optional<MilliCelsius> passive;
    std::optional<MilliCelsius> hot;
    std::optional<MilliCelsius> shutdown;
    MilliCelsius hysteresis = 0;
    for (const TripPoint& trip : trips) {
        if (trip.kind == TripPoint::Kind::other || trip.temperature <= 0) continue;
        if (trip.kind == TripPoint::Kind::passive) takeLower(passive, trip.temperature);
        if (trip.kind == TripPoint::Kind::hot) takeLower(hot, trip.temperature);
        if (trip.kind == TripPoint::Kind::critical) takeLower(shutdown, trip.temperature);
        hysteresis = std::max(hysteresis, trip.hysteresis);
    }
    ThermalThresholds thresholds;
    if (hot) thresholds.critical = *hot;
    if (shutdown) takeLower(thresholds.critical, *shutdown - beforeShutdown);
    if (passive)
        thresholds.serious = *passive;
    else if (shutdown)
        thresholds.serious = *shutdown - seriousBeforeShutdown;
    if (thresholds.serious) thresholds.fair = *thresholds.serious - beforeSerious;
    const bool isSensible = hysteresis > 0 && hysteresis <= mostHysteresis;
    thresholds.hysteresis = isSensible ? hysteresis : usualHysteresis;
    return thresholds;
}

int thermalLevel(MilliCelsius temperature, const ThermalThresholds& thresholds, int held) {
    return std::max(reached(temperature, thresholds),
                    std::min(held, reached(temperature + thresholds.hysteresis, thresholds)));
}

}  // namespace vtx
