// SPDX-License-Identifier: MIT
#include "ui/surfaces/PopoverView.h"

#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "core/MetricsCoordinator.h"
#include "language/Localization.h"
#include "ui/kit/ScrollArea.h"
#include "ui/kit/SectionBar.h"
#include "ui/surfaces/ANESection.h"
#include "ui/surfaces/BatterySection.h"
#include "ui/surfaces/CPUSection.h"
#include "ui/surfaces/DiskSection.h"
#include "ui/surfaces/FanSection.h"
#include "ui/surfaces/GPUSection.h"
#include "ui/surfaces/MemorySection.h"
#include "ui/surfaces/NetworkSection.h"
#include "ui/surfaces/OverviewTab.h"
#include "ui/surfaces/ProcessTab.h"
#include "ui/surfaces/QtText.h"
#include "ui/surfaces/SettingsTab.h"
#include "ui/surfaces/SystemInfoSection.h"

namespace vtx {
namespace {

constexpr auto detachSymbol = "pin";
// Fixed: it is the same in every language.
constexpr auto detachLabel = "Als Fenster öffnen";

}  // namespace

PopoverView::PopoverView(MetricsCoordinator& coordinator, SurfaceKind surfaceKind,
                         PopoverSection section,
                         std::function<void(PopoverSection)> onDetachRequested)
    : coordinator_(coordinator),
      surfaceKind_(surfaceKind),
      onDetachRequested_(std::move(onDetachRequested)),
      selectedSection_(section),
      bar_(new SectionBar(this)),
      page_(new ScrollArea(this)) {
    setAttribute(Qt::WA_OpaquePaintEvent, surfaceKind == SurfaceKind::dashboard);
    setFocusProxy(bar_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(bar_);
    layout->addWidget(page_, 1);
    if (surfaceKind_ == SurfaceKind::popover && onDetachRequested_)
        bar_->setAction(SectionItem{detachSymbol, detachSymbol, QString::fromUtf8(detachLabel)});
    connect(bar_, &SectionBar::selected, this, &PopoverView::selectById);
    connect(bar_, &SectionBar::triggered, this, [this] { onDetachRequested_(selectedSection_); });
    select(section);
    offerSections();
}

void PopoverView::select(PopoverSection section) {
    selectedSection_ = isOffered(section) ? section : PopoverSection::overview;
    bar_->setCurrent(qt(describe(selectedSection_).rawValue));
    moveFocusToBar();
    page_->setContents(makePage(selectedSection_));
    page_->verticalScrollBar()->setValue(0);
    namePage();
}

// A page that is longer than the window is a stop of the keyboard by itself.
void PopoverView::namePage() {
    page_->setAccessibleName(qt(Localization::shared().string(describe(selectedSection_).title)));
}

void PopoverView::moveFocusToBar() {
    const QWidget* focused = window()->focusWidget();
    if (!focused || !page_->widget() || !page_->widget()->isAncestorOf(focused)) return;
    const auto* seen = dynamic_cast<const KitWidget*>(focused);
    bar_->setFocus(seen && seen->showsFocus() ? Qt::TabFocusReason : Qt::OtherFocusReason);
}

void PopoverView::paintEvent(QPaintEvent* event) {
    // The popover's window draws its own ground, with an outline and corners to be seen.
    if (surfaceKind_ == SurfaceKind::dashboard) Surface::paintEvent(event);
}

void PopoverView::showEvent(QShowEvent* event) {
    Surface::showEvent(event);
    if (isFollowing_) return;
    const auto offer = [this](const auto&) {
        if (isFollowing_) offerSections();
    };
    subscriptions_.push_back(Localization::shared().effective.subscribe(offer));
    subscriptions_.push_back(coordinator_.preferences.subscribe(offer));
    subscriptions_.push_back(coordinator_.systemInfo.info.subscribe(offer));
    isFollowing_ = true;  // what was told while subscribing is offered at once, here
    offerSections();
}

void PopoverView::hideEvent(QHideEvent* event) {
    isFollowing_ = false;
    subscriptions_.clear();
    Surface::hideEvent(event);
}

void PopoverView::keyPressEvent(QKeyEvent* event) {
    if (!bar_->selectByDigit(*event)) Surface::keyPressEvent(event);
}

std::vector<PopoverSection> PopoverView::offered() const {
    return visibleSections(*coordinator_.systemInfo.info, *coordinator_.preferences);
}

bool PopoverView::isOffered(PopoverSection section) const {
    return std::ranges::count(offered(), section) != 0;
}

void PopoverView::offerSections() {
    if (!isOffered(selectedSection_)) select(PopoverSection::overview);
    std::vector<SectionItem> items;
    for (const PopoverSection section : offered()) {
        const SectionDescription& said = describe(section);
        items.push_back(
            {qt(said.rawValue), qt(said.symbol), qt(Localization::shared().string(said.title))});
    }
    bar_->setItems(std::move(items));
    namePage();
}

void PopoverView::selectById(const QString& id) {
    const auto sections = offered();
    const auto found = std::ranges::find_if(
        sections, [&id](PopoverSection section) { return qt(describe(section).rawValue) == id; });
    if (found != sections.end() && *found != selectedSection_) select(*found);
}

QWidget* PopoverView::makePage(PopoverSection section) {
    switch (section) {
        case PopoverSection::cpu:
            return new CPUSection(coordinator_);
        case PopoverSection::gpu:
            return new GPUSection(coordinator_);
        case PopoverSection::memory:
            return new MemorySection(coordinator_);
        case PopoverSection::disk:
            return new DiskSection(coordinator_);
        case PopoverSection::fan:
            return new FanSection(coordinator_);
        case PopoverSection::ane:
            return new ANESection(coordinator_);
        case PopoverSection::network:
            return new NetworkSection(coordinator_);
        case PopoverSection::battery:
            return new BatterySection(coordinator_);
        case PopoverSection::processes:
            return new ProcessTab(coordinator_);
        case PopoverSection::system:
            return new SystemInfoSection(coordinator_);
        case PopoverSection::settings:
            return new SettingsTab(coordinator_);
        default:
            return new OverviewTab(coordinator_);
    }
}

}  // namespace vtx
