// SPDX-License-Identifier: MIT
#include <vector>

#include "Fuzz.h"
#include "platform/linux/Parse.h"
#include "platform/linux/ThermalTrips.h"

using namespace vtx;

// Lines of three: a trip point's type, temperature and hysteresis; then temperatures of the zone.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    auto text = fuzz::asInputText(data, size);
    std::vector<TripPoint> trips;
    for (int i = 0; i < 4 && !text.empty(); ++i) {
        TripPoint trip;
        trip.kind = parseTripKind(takeLine(text));
        trip.temperature = parseMilliCelsius(takeLine(text)).value_or(0);
        trip.hysteresis = parseMilliCelsius(takeLine(text)).value_or(0);
        trips.push_back(trip);
    }
    const auto thresholds = thresholdsOf(trips);
    fuzz::expect(thresholds.hysteresis > 0);
    int held = 0;
    while (!text.empty()) {
        const auto temperature = parseMilliCelsius(takeLine(text));
        if (!temperature) continue;
        held = thermalLevel(*temperature, thresholds, held);
        fuzz::expect(held >= 0 && held <= 3);
        fuzz::expect(!thresholds.isEmpty() || held == 0);
        // Staying where it is changes nothing.
        fuzz::expect(thermalLevel(*temperature, thresholds, held) == held);
    }
    return 0;
}
