// SPDX-License-Identifier: MIT
#include "ui/kit/CompositionBar.h"
#include "ui/kit/Gauge.h"
#include "ui/kit/KeyValueRows.h"
#include "ui/kit/KitSample.h"
#include "ui/kit/KitSheets.h"
#include "ui/kit/PerCoreBars.h"
#include "ui/kit/UsageBar.h"

namespace vtx::sheets {

namespace {

using sample::Sheet;
using sample::text;

std::unique_ptr<QWidget> bar(double value, ColorToken tint, BarTrack track, BarSize size) {
    auto made = std::make_unique<UsageBar>();
    made->setContent({.value = value, .tint = tint, .track = track, .size = size});
    return made;
}

PerCoreContent cores(const char* prefix, const std::vector<double>& values, ColorToken tint) {
    PerCoreContent content{.symbol = text("cpu"),
                           .title = text("Per core"),
                           .count = QString::number(values.size()) + text(" Cores"),
                           .cores = {},
                           .tint = tint};
    for (const double value : values) {
        content.cores.push_back({text(prefix) + QString::number(content.cores.size() + 1), value,
                                 QString::number(qRound(value * 100)) + text(" %")});
    }
    return content;
}

std::unique_ptr<QWidget> coreBars(const PerCoreContent& content) {
    auto made = std::make_unique<PerCoreBars>();
    made->setContent(content);
    return made;
}

std::unique_ptr<QWidget> gauge(GaugeContent content) {
    auto made = std::make_unique<Gauge>();
    made->setContent(std::move(content));
    return made;
}

std::unique_ptr<QWidget> composition() {
    auto made = std::make_unique<CompositionBar>();
    made->setParts({{0.097, ColorToken::memoryWired},
                    {0.444, ColorToken::memoryActive},
                    {0.128, ColorToken::memoryCompressed},
                    {0.231, ColorToken::memoryInactive},
                    {0.1, ColorToken::memoryFree}});
    return made;
}

std::unique_ptr<QWidget> legend() {
    const auto entry = [](const char* label, const char* value, ColorToken color) {
        return KeyValueRow{.label = text(label), .value = text(value), .swatch = color};
    };
    auto made = std::make_unique<KeyValueRows>();
    made->setRows(
        {entry("Wired", "3.1 GB", ColorToken::memoryWired),
         entry("Active", "14.2 GB", ColorToken::memoryActive),
         entry("Compressed", "4.1 GB", ColorToken::memoryCompressed),
         entry("Inactive", "7.4 GB", ColorToken::memoryInactive),
         entry("Free", "3.2 GB", ColorToken::memoryFree),
         {.label = text("Swap"), .value = text("640 MB"), .symbol = text("arrow.triangle.swap")}});
    return made;
}

}  // namespace

std::unique_ptr<QWidget> usageBars() {
    Sheet sheet("Usage bars");
    constexpr BarTrack neutral = BarTrack::neutral;
    sheet.add(bar(0, ColorToken::cpu, neutral, BarSize::regular));
    sheet.add(bar(0.002, ColorToken::cpu, neutral, BarSize::regular));
    sheet.add(bar(0.23, ColorToken::cpu, neutral, BarSize::regular));
    sheet.add(bar(0.67, ColorToken::memory, neutral, BarSize::regular));
    sheet.add(bar(0.42, ColorToken::gpu, neutral, BarSize::thin));
    sheet.add(bar(0.24, ColorToken::orange, BarTrack::tinted, BarSize::thick));
    sheet.add(bar(1, ColorToken::green, BarTrack::tinted, BarSize::thick));
    return sheet.take();
}

std::unique_ptr<QWidget> perCoreBars() {
    Sheet sheet("Per-core bars");
    sheet.add(coreBars(cores("P", {1, 0.72, 0.31, 0.04, 0}, ColorToken::pCore)));
    sheet.add(coreBars(cores("E", {0.16, 0.1, 0.003, 0}, ColorToken::eCore)));
    return sheet.take();
}

std::unique_ptr<QWidget> manyCores() {
    Sheet sheet("Many cores");
    const auto spread = [](int count) {
        std::vector<double> values;
        for (int i = 0; i < count; ++i) values.push_back(i * 37 % 101 / 100.0);
        return values;
    };
    sheet.add(coreBars(cores("P", spread(16), ColorToken::pCore)));
    sheet.add(coreBars(cores("C", spread(128), ColorToken::cpu)));
    return sheet.take();
}

std::unique_ptr<QWidget> gauges() {
    Sheet sheet("Gauge, composition");
    sheet.add(gauge({.current = 2864,
                     .target = 2900,
                     .min = 1350,
                     .max = 5777,
                     .minText = text("1350"),
                     .targetText = text("Target 2900"),
                     .maxText = text("5777")}));
    sheet.add(gauge({.current = 5400, .min = 1350, .max = 5777}));
    sheet.add(gauge({.current = 1000, .min = 1000, .max = 1000}));
    sheet.add(composition());
    sheet.add(legend());
    return sheet.take();
}

}  // namespace vtx::sheets
