// SPDX-License-Identifier: MIT
#include "pictures/SectionPictures.h"

#include <QPainter>
#include <QWidget>

#include "core/MetricsCoordinator.h"
#include "pictures/BusyLaptop.h"
#include "pictures/PictureStage.h"
#include "platform/simulated/MacShape.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/PopoverFrame.h"
#include "ui/kit/Theme.h"
#include "ui/surfaces/PopoverView.h"

namespace vtx::sectionPictures {
namespace {

using Pressure = MemoryStats::Pressure;
using Charging = BatteryReading::ChargingState;

/// The popover's window, which the desktop gives only to the program.
class Framed final : public QWidget {
public:
    explicit Framed(PopoverView* content) {
        frame_.body = {metrics::popoverWidth, metrics::popoverHeight};
        frame_.tipX = metrics::popoverWidth / 2;
        resize(frame_.windowSize());
        content->setParent(this);
        content->setGeometry(frame_.bodyRect());
        connect(&Theme::current(), &Theme::changed, this, qOverload<>(&QWidget::update));
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        frame_.paint(painter);
    }

private:
    PopoverFrame frame_;
};

void offerEverySection(PictureStage& stage) {
    stage.change([](DisplayPreferences& preferences) {
        preferences.showDiskIO = preferences.showFan = preferences.graphsDisk = true;
    });
}

}  // namespace

Made popoverAt(PictureStage& stage, PopoverSection section) {
    const auto detach = [](PopoverSection) {};
    return std::make_unique<Framed>(
        new PopoverView(stage.coordinator(), PopoverView::SurfaceKind::popover, section, detach));
}

Made dashboardAt(PictureStage& stage, PopoverSection section) {
    return std::make_unique<PopoverView>(stage.coordinator(), PopoverView::SurfaceKind::dashboard,
                                         section);
}

void unread(PictureStage& stage) { offerEverySection(stage); }

void usual(PictureStage& stage) {
    offerEverySection(stage);
    samples::busyLaptop(stage.coordinator());
}

void bars(PictureStage& stage) {
    usual(stage);
    stage.change([](DisplayPreferences& preferences) {
        preferences.chartStyle = DisplayPreferences::ChartStyle::bar;
    });
}

void withoutCharts(PictureStage& stage) {
    usual(stage);
    stage.change([](DisplayPreferences& preferences) {
        using P = DisplayPreferences;
        for (bool P::* graph :
             {&P::graphsCPU, &P::graphsPCore, &P::graphsECore, &P::graphsGPU, &P::graphsMemory})
            preferences.*graph = false;
    });
}

void warning(PictureStage& stage) {
    usual(stage);
    samples::memoryUsed(stage.coordinator(), 0.82, Pressure::warning);
}

void critical(PictureStage& stage) {
    usual(stage);
    samples::memoryUsed(stage.coordinator(), 0.96, Pressure::critical);
}

void fullLoad(PictureStage& stage) {
    withoutCharts(stage);
    samples::fullLoad(stage.coordinator());
}

void extremes(PictureStage& stage) {
    usual(stage);
    samples::extremes(stage.coordinator());
}

void charging(PictureStage& stage) {
    usual(stage);
    samples::battery(stage.coordinator(), Charging::charging, 0.82);
}

void nearlyEmpty(PictureStage& stage) {
    usual(stage);
    samples::battery(stage.coordinator(), Charging::discharging, 0.09);
}

void withoutGPU(PictureStage& stage) {
    usual(stage);
    stage.coordinator().gpu.isAvailable = false;
}

void withoutNetwork(PictureStage& stage) {
    usual(stage);
    stage.coordinator().network.latest = NetworkReading{};
}

void desktop(PictureStage& stage) {
    stage.moveTo(MacShape::standard());
    usual(stage);
    SystemInfo machine = *stage.coordinator().systemInfo.info;
    machine.hasBattery = true;  // else the section is not offered at all
    stage.coordinator().systemInfo.info = machine;
}

void unknownMachine(PictureStage& stage) {
    stage.moveTo(MacShape::withoutLevels());
    offerEverySection(stage);
}

}  // namespace vtx::sectionPictures
