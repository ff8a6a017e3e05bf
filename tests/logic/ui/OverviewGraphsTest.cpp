// SPDX-License-Identifier: MIT
#include "ui/models/OverviewGraphs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vtx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

CoreLayout layoutOf(int pCores, int eCores) {
    CoreLayout layout;
    layout.pCoreCount = pCores;
    layout.eCoreCount = eCores;
    return layout;
}

const CoreLayout bothKinds = layoutOf(8, 4);

DisplayPreferences noGraphs() {
    DisplayPreferences none;
    none.graphsCPU = none.graphsPCore = none.graphsECore = none.graphsGPU = none.graphsMemory =
        none.graphsDisk = none.graphsPower = none.graphsANE = false;
    return none;
}

TEST(OverviewGraphs, each_enabled_metric_has_its_chart_in_order) {
    EXPECT_THAT(overviewCharts(DisplayPreferences{}, GPUSampling::available, bothKinds),
                ElementsAre(ChartMetric::cpu, ChartMetric::pCore, ChartMetric::eCore,
                            ChartMetric::gpu, ChartMetric::memory));
    DisplayPreferences one = noGraphs();
    one.graphsECore = true;
    EXPECT_THAT(overviewCharts(one, GPUSampling::available, bothKinds),
                ElementsAre(ChartMetric::eCore));
}

TEST(OverviewGraphs, with_every_flag_off_there_is_none) {
    EXPECT_THAT(overviewCharts(noGraphs(), GPUSampling::available, bothKinds), IsEmpty());
}

TEST(OverviewGraphs, disk_power_and_neural_engine_do_not_count) {
    DisplayPreferences others = noGraphs();
    others.graphsDisk = others.graphsPower = others.graphsANE = true;
    EXPECT_THAT(overviewCharts(others, GPUSampling::available, bothKinds), IsEmpty());
}

TEST(OverviewGraphs, graphics_have_a_chart_only_where_they_are_sampled) {
    DisplayPreferences gpu = noGraphs();
    gpu.graphsGPU = true;
    EXPECT_THAT(overviewCharts(gpu, GPUSampling::available, bothKinds),
                ElementsAre(ChartMetric::gpu));
    EXPECT_THAT(overviewCharts(gpu, GPUSampling::unavailable, bothKinds), IsEmpty());
}

TEST(OverviewGraphs, a_kind_of_core_has_no_chart_where_the_machine_is_known_to_lack_it) {
    DisplayPreferences cores = noGraphs();
    cores.graphsPCore = cores.graphsECore = true;
    const auto on = [&cores](const std::optional<CoreLayout>& layout) {
        return overviewCharts(cores, GPUSampling::available, layout);
    };
    EXPECT_THAT(on(layoutOf(8, 0)), ElementsAre(ChartMetric::pCore));
    EXPECT_THAT(on(layoutOf(0, 4)), ElementsAre(ChartMetric::eCore));
    EXPECT_THAT(on(std::nullopt), ElementsAre(ChartMetric::pCore, ChartMetric::eCore));
    cores.graphsPCore = false;
    EXPECT_THAT(on(layoutOf(8, 0)), IsEmpty());
}

TEST(OverviewGraphs, each_chart_draws_its_own_history_under_its_name) {
    const auto of = [](double value) { return HistorySeries{{Date{}, value}}; };
    const HistorySeries cpu = of(1), p = of(2), e = of(3), gpu = of(4), memory = of(5);
    const OverviewHistories all{&cpu, &p, &e, &gpu, &memory};
    const auto chart = [&all](ChartMetric metric) {
        const auto made = describeOverviewChart(metric, all, {});
        return made.title + " " + made.symbol + " " + std::to_string(int(made.points[0].value));
    };
    EXPECT_EQ(chart(ChartMetric::cpu), "CPU total cpu 1");
    EXPECT_EQ(chart(ChartMetric::pCore), "P-cores p.circle 2");
    EXPECT_EQ(chart(ChartMetric::eCore), "E-cores e.circle 3");
    EXPECT_EQ(chart(ChartMetric::gpu), "GPU display 4");
    EXPECT_EQ(chart(ChartMetric::memory), "Memory used memorychip 5");
}

}  // namespace
}  // namespace vtx
