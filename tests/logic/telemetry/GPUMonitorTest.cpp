// SPDX-License-Identifier: MIT
#include "telemetry/GPUMonitor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "base/TaskScope.h"
#include "platform/simulated/Operations.h"
#include "support/TestBench.h"

namespace vtx {
namespace {

constexpr auto unavailable = "GPU PerformanceStatistics unavailable; disabling GPU tile";
constexpr auto stale = "Cached IOAccelerator entry went stale — re-matching";

MacShape withoutAccelerator() {
    MacShape shape = MacShape::standard();
    shape.hasAccelerator = false;
    return shape;
}

// A monitor on a bench, and its refreshes played to the end.
struct Monitored {
    explicit Monitored(MacShape shape = MacShape::standard()) : bench(std::move(shape)) {}

    TestBench bench;
    SimulatedRegistry& registry = bench.mac.registry;
    std::optional<GPUMonitor> monitor{std::in_place, bench.ports(), bench.engine};
    TaskScope tasks{bench.main};

    void refresh() {
        tasks.spawn([this](std::stop_token) { return monitor->refresh(); });
        bench.settle();
    }
    void setStatistics(Property statistics) {
        registry.set(bench.mac.accelerators().front(), "PerformanceStatistics",
                     std::move(statistics));
    }
    [[nodiscard]] const std::optional<GPUStats>& latest() const { return *monitor->latest; }
    [[nodiscard]] std::size_t saidError(std::string_view message) const {
        return bench.log.count(LogLevel::error, "GPUMonitor", message);
    }
    [[nodiscard]] std::size_t saidStale() const {
        return bench.log.count(LogLevel::standard, "GPUMonitor", stale);
    }
};

TEST(GPUMonitor, the_first_refresh_already_publishes) {
    Monitored m;
    m.bench.mac.graphics.setLoad({0.5, 0.2, 0.4});
    EXPECT_TRUE(*m.monitor->isAvailable);
    m.refresh();
    EXPECT_EQ(m.latest(), (GPUStats{0.5, 0.2, 0.4, m.bench.clock.now()}));
    EXPECT_TRUE(*m.monitor->isAvailable);
}

TEST(GPUMonitor, loads_are_limited_to_a_fraction) {
    Monitored m;
    m.setStatistics(PropertyMap{{"Device Utilization %", 120},
                                {"Tiler Utilization %", -5},
                                {"Renderer Utilization %", 12.5}});
    m.refresh();
    EXPECT_EQ(m.latest(), (GPUStats{1.0, 0.0, 0.125, m.bench.clock.now()}));
}

TEST(GPUMonitor, the_tilers_and_renderers_loads_may_be_absent_or_no_numbers) {
    Monitored m;
    m.setStatistics(PropertyMap{{"Device Utilization %", 10}, {"Tiler Utilization %", "7"}});
    m.refresh();
    ASSERT_TRUE(m.latest());
    EXPECT_EQ(m.latest()->tilerUtilization, std::nullopt);
    EXPECT_EQ(m.latest()->rendererUtilization, std::nullopt);
}

TEST(GPUMonitor, statistics_without_the_overall_load_are_no_reading) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Property broken[] = {
        PropertyMap{{"Tiler Utilization %", 5}, {"Renderer Utilization %", 5}},
        PropertyMap{{"Device Utilization %", "5"}},
        PropertyMap{{"Device Utilization %", true}},
        PropertyMap{{"Device Utilization %", nan}},
        PropertyMap{},
        "Device Utilization %",
        Data(8),
        PropertyList{5},
    };
    for (const Property& statistics : broken) {
        Monitored m;
        m.setStatistics(statistics);
        m.refresh();
        EXPECT_EQ(m.latest(), std::nullopt);
        EXPECT_FALSE(*m.monitor->isAvailable);
        EXPECT_EQ(m.bench.platform.outstanding(), 0U);
        EXPECT_EQ(m.bench.log.lines("GPUMonitor").size(), 1U);  // that it is unavailable, no more
    }
}

TEST(GPUMonitor, properties_that_are_nothing_are_told_and_those_that_are_no_dictionary_are_not) {
    Monitored m;
    for (const Property& whole : {Property("text"), Property(PropertyMap{})}) {
        m.registry.setWhole(m.bench.mac.accelerators().front(), whole);
        m.refresh();
        EXPECT_EQ(m.saidError("IORegistryEntryCreateCFProperties failed: kr=0"), 0U);
    }
    m.registry.setWhole(m.bench.mac.accelerators().front(), std::nullopt);
    m.refresh();
    EXPECT_EQ(m.saidError("IORegistryEntryCreateCFProperties failed: kr=0"), 1U);
}

TEST(GPUMonitor, the_entry_that_answered_is_kept_so_that_a_tick_is_one_property_read) {
    Monitored m;
    m.refresh();
    m.bench.platform.resetCalls();
    for (int i = 0; i < 3; ++i) m.refresh();
    const CallCounter::Counts expected{{"IORegistryEntryCreateCFProperties", 3}};
    EXPECT_EQ(m.bench.platform.instruments.counter.all(), expected);
}

TEST(GPUMonitor, the_first_accelerator_that_tells_its_load_is_taken) {
    Monitored m;
    m.registry.unset(m.bench.mac.accelerators().front(), "PerformanceStatistics");
    m.bench.mac.addAccelerator();
    const auto third = m.bench.mac.addAccelerator();
    m.registry.set(third, "PerformanceStatistics", PropertyMap{{"Device Utilization %", 99}});
    m.bench.mac.graphics.setLoad({.device = 0.25});
    m.refresh();
    ASSERT_TRUE(m.latest());
    EXPECT_EQ(m.latest()->deviceUtilization, 0.25);
    EXPECT_EQ(m.bench.platform.outstanding(), 1U);
}

TEST(GPUMonitor, an_accelerator_that_goes_during_the_search_is_passed_over) {
    Monitored m;
    const auto first = m.bench.mac.accelerators().front();
    const auto leaving = m.bench.mac.addAccelerator();
    m.bench.mac.addAccelerator();
    m.registry.setSource(first, "PerformanceStatistics", [&m, leaving] {
        if (m.registry.exists(leaving)) m.registry.remove(leaving);
        return Property("nothing yet");
    });
    m.bench.mac.graphics.setLoad({.device = 0.5});
    m.refresh();
    ASSERT_TRUE(m.latest());
    EXPECT_EQ(m.latest()->deviceUtilization, 0.5);
    EXPECT_EQ(m.bench.platform.outstanding(), 1U);
}

TEST(GPUMonitor, a_stale_entry_gives_way_to_another_one_in_the_same_step) {
    Monitored m;
    m.refresh();
    const auto second = m.bench.mac.addAccelerator();
    m.registry.set(second, "PerformanceStatistics", PropertyMap{{"Device Utilization %", 75}});
    m.registry.remove(m.bench.mac.accelerators().front());
    m.refresh();
    EXPECT_EQ(m.latest()->deviceUtilization, 0.75);
    EXPECT_EQ(m.saidStale(), 1U);
    m.refresh();
    EXPECT_EQ(m.saidStale(), 1U);  // the new one is kept
    EXPECT_EQ(m.bench.platform.outstanding(), 1U);
}

TEST(GPUMonitor, an_entry_that_fails_once_is_found_again_in_the_same_step) {
    Monitored m;
    m.refresh();
    m.bench.mac.graphics.setLoad({.device = 0.5});
    m.bench.failures.failNext(operations::createCFProperties, 1, 17);
    m.refresh();
    EXPECT_EQ(m.saidError("IORegistryEntryCreateCFProperties failed: kr=17"), 1U);
    EXPECT_EQ(m.latest()->deviceUtilization, 0.5);
}

TEST(GPUMonitor, without_an_accelerator_it_says_once_that_there_is_none) {
    Monitored m(withoutAccelerator());
    for (int i = 0; i < 3; ++i) m.refresh();
    EXPECT_FALSE(*m.monitor->isAvailable);
    EXPECT_EQ(m.latest(), std::nullopt);
    EXPECT_EQ(m.saidError(unavailable), 1U);
    EXPECT_EQ(m.bench.platform.outstanding(), 0U);
}

TEST(GPUMonitor, a_later_success_makes_it_available_again_for_good) {
    Monitored m(withoutAccelerator());
    m.refresh();
    const auto accelerator = m.bench.mac.addAccelerator();
    m.refresh();
    EXPECT_TRUE(*m.monitor->isAvailable);
    EXPECT_TRUE(m.latest());
    m.registry.remove(accelerator);
    m.refresh();
    EXPECT_TRUE(*m.monitor->isAvailable);
    EXPECT_TRUE(m.latest());
    EXPECT_EQ(m.saidError(unavailable), 1U);
}

TEST(GPUMonitor, a_failure_after_a_reading_keeps_it_and_the_availability) {
    Monitored m;
    m.refresh();
    const auto before = m.latest();
    m.registry.remove(m.bench.mac.accelerators().front());
    m.refresh();
    EXPECT_EQ(m.latest(), before);
    EXPECT_TRUE(*m.monitor->isAvailable);
    EXPECT_EQ(m.saidError(unavailable), 0U);
}

TEST(GPUMonitor, an_entry_that_went_stale_is_let_go_even_where_there_is_no_other) {
    Monitored m;
    m.refresh();
    m.registry.remove(m.bench.mac.accelerators().front());
    m.refresh();
    EXPECT_EQ(m.bench.platform.outstanding(), 0U);
    m.refresh();
    EXPECT_EQ(m.saidStale(), 1U);
}

TEST(GPUMonitor, availability_is_told_only_when_it_changes) {
    Monitored m;
    int told = 0;
    const auto token = m.monitor->isAvailable.subscribe([&told](bool) { ++told; });
    for (int i = 0; i < 3; ++i) m.refresh();
    EXPECT_EQ(told, 1);  // the value at the subscription
}

struct SearchFailure {
    std::string_view operation;
    std::string_view message;
};

class GPUSearch : public testing::TestWithParam<SearchFailure> {};

TEST_P(GPUSearch, that_fails_gives_no_reading_and_holds_nothing) {
    Monitored m;
    m.bench.failures.failNext(GetParam().operation, 1, 5);
    m.refresh();
    EXPECT_EQ(m.latest(), std::nullopt);
    EXPECT_FALSE(m.bench.failures.hasUnused());
    if (!GetParam().message.empty()) {
        EXPECT_EQ(m.saidError(GetParam().message), 1U);
    }
    EXPECT_EQ(m.bench.platform.outstanding(), 0U);
    m.refresh();
    EXPECT_TRUE(m.latest());
    EXPECT_EQ(m.bench.platform.outstanding(), 1U);
    m.monitor.reset();
    EXPECT_EQ(m.bench.platform.outstanding(), 0U);
}

INSTANTIATE_TEST_SUITE_P(
    steps, GPUSearch,
    testing::Values(SearchFailure{operations::serviceMatching,
                                  "IOServiceMatching(\"IOAccelerator\") returned nil"},
                    SearchFailure{operations::getMatchingServices,
                                  "IOServiceGetMatchingServices failed: kr=5"},
                    SearchFailure{operations::getMatchingServicesNull, ""},
                    SearchFailure{operations::iteratorNext, ""},
                    SearchFailure{operations::createCFProperties,
                                  "IORegistryEntryCreateCFProperties failed: kr=5"},
                    SearchFailure{operations::createCFPropertiesNull,
                                  "IORegistryEntryCreateCFProperties failed: kr=0"}));

}  // namespace
}  // namespace vtx
