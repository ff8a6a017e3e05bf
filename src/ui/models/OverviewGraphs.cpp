// SPDX-License-Identifier: MIT
#include "ui/models/OverviewGraphs.h"

namespace vtx {

std::vector<ChartMetric> overviewCharts(const DisplayPreferences& preferences, GPUSampling gpu,
                                        const std::optional<CoreLayout>& layout) {
    const bool hasPCores = !layout || layout->pCoreCount != 0;
    const bool hasECores = !layout || layout->eCoreCount != 0;
    std::vector<ChartMetric> charts;
    if (preferences.graphsCPU) charts.push_back(ChartMetric::cpu);
    if (preferences.graphsPCore && hasPCores) charts.push_back(ChartMetric::pCore);
    if (preferences.graphsECore && hasECores) charts.push_back(ChartMetric::eCore);
    if (preferences.graphsGPU && gpu == GPUSampling::available) charts.push_back(ChartMetric::gpu);
    if (preferences.graphsMemory) charts.push_back(ChartMetric::memory);
    return charts;
}

MetricChartModel describeOverviewChart(ChartMetric metric, const OverviewHistories& histories,
                                       const DisplayPreferences& preferences) {
    switch (metric) {
        case ChartMetric::pCore:
            return describeChart(metric, "P-cores", "p.circle", *histories.pCore, preferences);
        case ChartMetric::eCore:
            return describeChart(metric, "E-cores", "e.circle", *histories.eCore, preferences);
        case ChartMetric::gpu:
            return describeChart(metric, "GPU", "display", *histories.gpu, preferences);
        case ChartMetric::memory:
            return describeChart(metric, "Memory used", "memorychip", *histories.memory,
                                 preferences);
        case ChartMetric::cpu:
            break;
    }
    return describeChart(metric, "CPU total", "cpu", *histories.cpu, preferences);
}

}  // namespace vtx
