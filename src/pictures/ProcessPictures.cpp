// SPDX-License-Identifier: MIT
#include "pictures/ProcessPictures.h"

#include <QVBoxLayout>
#include <string_view>
#include <vector>

#include "pictures/PictureStage.h"
#include "pictures/SectionPictures.h"
#include "platform/simulated/ManualClock.h"
#include "ui/kit/DialogSheet.h"
#include "ui/kit/Surface.h"
#include "ui/kit/TextField.h"
#include "ui/models/PendingRenice.h"
#include "ui/shell/StatusMenu.h"
#include "ui/shell/WindowSystem.h"
#include "ui/surfaces/ProcessFilterBar.h"
#include "ui/surfaces/ProcessList.h"
#include "ui/surfaces/ProcessTab.h"
#include "ui/surfaces/QtText.h"

namespace vtx::processPictures {
namespace {

constexpr std::uint64_t mebibyte = 1 << 20;

struct Sample {
    std::string_view name;
    std::int32_t pid;
    double cpu;
    std::uint64_t mebibytes;
    std::int32_t nice = 0;
};
constexpr Sample samples[]{
    {"rust-analyzer", 48213, 1.42, 3277},
    {"Photo Studio", 3920, 0.64, 6246},
    {"firefox", 2207, 0.12, 4915},
    {"backup-indexer", 51177, 0.094, 188, 10},
    {"node", 47002, 0.061, 870},
    {"A Program With a Very Long Name (Renderer)", 2291, 0.039, 421},
    {"another-quite-long-name", 100412, 0.018, 96, 5},
    {"zsh", 48990, 0.0, 6},
    {"", 4194304, 0.0, 0},
};

ProcessSnapshot snapshotOf(const Sample& sample) {
    ProcessSnapshot process;
    process.pid = sample.pid;
    process.name = sample.name;
    process.executablePath = "/opt/" + process.name;
    process.cpuPercent = sample.cpu;
    process.residentMemoryBytes = sample.mebibytes * mebibyte;
    process.nice = sample.nice;
    return process;
}

std::vector<ProcessSnapshot> processes(std::size_t count) {
    std::vector<ProcessSnapshot> all;
    for (const Sample& sample : samples)
        if (all.size() < count) all.push_back(snapshotOf(sample));
    while (all.size() < count) {
        const auto number = static_cast<std::int32_t>(all.size());
        all.push_back(snapshotOf({"worker", 60000 + number, 0.0, 3}));
    }
    return all;
}

HogReport hogOf(std::string name, double average, double peak, double minutes) {
    HogReport report;
    report.name = std::move(name);
    report.averageCPU = average;
    report.peakCPU = peak;
    report.activeSeconds = minutes * 60.0;
    return report;
}

void publish(MetricsCoordinator& coordinator, std::size_t count) {
    auto& manager = coordinator.processes;
    manager.processes = processes(count);
    // On a stage that lives already it was a moment ago.
    if (count > 0 && !*manager.lastRefresh)
        manager.lastRefresh = ManualClock::start - std::chrono::seconds(2);
}

/// A page on its ground, and what is done to it once it lies there.
struct Page {
    explicit Page(PictureStage& stage, std::size_t count)
        : ground(std::make_unique<Surface>()), coordinator(stage.coordinator()) {
        publish(coordinator, count);
        auto* layout = new QVBoxLayout(ground.get());
        layout->setContentsMargins(0, 0, 0, 0);
        tab = new ProcessTab(coordinator);
        layout->addWidget(tab);
    }

    std::unique_ptr<Surface> ground;
    MetricsCoordinator& coordinator;
    ProcessTab* tab;
};

void enableDetector(PictureStage& stage) {
    stage.change([](DisplayPreferences& preferences) { preferences.hogDetectorEnabled = true; });
}

void findHogs(PictureStage& stage) {
    enableDetector(stage);
    stage.coordinator().hogDetector.hogs =
        std::vector{hogOf("rust-analyzer", 1.42, 2.38, 21.9),
                    hogOf("backup-indexer", 0.24, 0.61, 8.2), hogOf("node", 0.17, 0.33, 4.1)};
}

/// A laptop at work, as the other sections show it, with the sample processes.
void work(PictureStage& stage) {
    sectionPictures::usual(stage);
    findHogs(stage);
    publish(stage.coordinator(), 412);
}

Made withDialog(PictureStage& stage, const DialogModel& model) {
    Page page(stage, 1000);
    new DialogSheet(
        *page.ground,
        {qt(model.symbol), qt(model.title), qt(model.message), qt(model.primary), qt(model.cancel)},
        0);
    return std::move(page.ground);
}

}  // namespace

Made beforeTheFirstList(PictureStage& stage) { return std::move(Page(stage, 0).ground); }
Made three(PictureStage& stage) { return std::move(Page(stage, 3).ground); }
Made thousand(PictureStage& stage) { return std::move(Page(stage, 1000).ground); }

Made withoutMatch(PictureStage& stage) {
    Page page(stage, 412);
    page.tab->filterBar().field().setText("pyhton");
    return std::move(page.ground);
}

Made withHogs(PictureStage& stage) {
    findHogs(stage);
    return std::move(Page(stage, 412).ground);
}

Made withoutHogs(PictureStage& stage) {
    enableDetector(stage);
    return std::move(Page(stage, 412).ground);
}

Made confirmation(PictureStage& stage) {
    return withDialog(stage, describeConfirmation({.snapshot = snapshotOf(samples[4]), .nice = 5}));
}

Made refused(PictureStage& stage) {
    return withDialog(
        stage, describeReniceFailure(ProcessManagerError::systemCallFailed(13).description()));
}

Made menu(PictureStage& /*stage*/) {
    static WindowSystem system;
    std::vector<StatusMenuItem> items;
    for (const auto& entry : describeProcessMenu(snapshotOf(samples[4]), {.isModifiable = true})) {
        if (entry.isSeparator())
            items.push_back(StatusMenuItem::separator());
        else
            items.push_back({qt(entry.title), {}, {}, false, entry.isEnabled});
    }
    auto made = std::make_unique<StatusMenu>(system, items);
    made->resize(made->sizeHint());
    return made;
}

Made inPopover(PictureStage& stage) {
    work(stage);
    return sectionPictures::popoverAt(stage, PopoverSection::processes);
}

Made inDashboard(PictureStage& stage) {
    work(stage);
    return sectionPictures::dashboardAt(stage, PopoverSection::processes);
}

}  // namespace vtx::processPictures
