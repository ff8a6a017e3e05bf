// SPDX-License-Identifier: MIT
#include "ui/surfaces/PopoverView.h"

#include <QVBoxLayout>
#include <algorithm>

#include "core/MetricsCoordinator.h"
#include "language/Localization.h"
#include "ui/kit/ScrollArea.h"
#include "ui/kit/SectionBar.h"
#include "ui/surfaces/OverviewTab.h"
#include "ui/surfaces/QtText.h"
#include "ui/surfaces/SettingsTab.h"

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
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(bar_);
    layout->addWidget(page_, 1);
    nameSections();
    if (surfaceKind_ == SurfaceKind::popover && onDetachRequested_)
        bar_->setAction(SectionItem{detachSymbol, detachSymbol, QString::fromUtf8(detachLabel)});
    connect(bar_, &SectionBar::selected, this, &PopoverView::selectById);
    connect(bar_, &SectionBar::triggered, this, [this] { onDetachRequested_(selectedSection_); });
    select(section);
}

void PopoverView::select(PopoverSection section) {
    selectedSection_ = section;
    bar_->setCurrent(qt(describe(section).rawValue));
    page_->setContents(makePage(section));
}

void PopoverView::paintEvent(QPaintEvent* event) {
    // The popover's window draws its own ground, with an outline and corners to be seen.
    if (surfaceKind_ == SurfaceKind::dashboard) Surface::paintEvent(event);
}

void PopoverView::showEvent(QShowEvent* event) {
    Surface::showEvent(event);
    language_ = Localization::shared().effective.subscribe([this](const auto&) { nameSections(); });
}

void PopoverView::hideEvent(QHideEvent* event) {
    language_.cancel();
    Surface::hideEvent(event);
}

void PopoverView::nameSections() {
    std::vector<SectionItem> items;
    for (const PopoverSection section : visibleSections()) {
        const SectionDescription& said = describe(section);
        items.push_back(
            {qt(said.rawValue), qt(said.symbol), qt(Localization::shared().string(said.title))});
    }
    bar_->setItems(std::move(items));
}

void PopoverView::selectById(const QString& id) {
    const auto sections = visibleSections();
    const auto found = std::ranges::find_if(
        sections, [&id](PopoverSection section) { return qt(describe(section).rawValue) == id; });
    if (found != sections.end() && *found != selectedSection_) select(*found);
}

QWidget* PopoverView::makePage(PopoverSection section) {
    if (section == PopoverSection::settings) return new SettingsTab(coordinator_);
    return new OverviewTab(coordinator_);
}

}  // namespace vtx
