// SPDX-License-Identifier: MIT
#include "ui/surfaces/ProcessTab.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QScrollBar>
#include <QVBoxLayout>
#include <utility>

#include "core/MetricsCoordinator.h"
#include "language/Localization.h"
#include "platform/Workspace.h"
#include "ui/kit/Button.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/ScrollArea.h"
#include "ui/kit/Surface.h"
#include "ui/kit/TextField.h"
#include "ui/models/HogPanelModel.h"
#include "ui/models/ProcessTabModel.h"
#include "ui/surfaces/HogPanel.h"
#include "ui/surfaces/ProcessColumns.h"
#include "ui/surfaces/ProcessFilterBar.h"
#include "ui/surfaces/ProcessFooter.h"
#include "ui/surfaces/ProcessList.h"
#include "ui/surfaces/QtText.h"

namespace vtx {

namespace {

/// The whole of the popover or window that a page is in.
QWidget& groundOf(QWidget& page) {
    for (QWidget* widget = &page; widget; widget = widget->parentWidget())
        if (dynamic_cast<Surface*>(widget)) return *widget;
    return *page.window();
}

}  // namespace

ProcessTab::ProcessTab(MetricsCoordinator& coordinator, QWidget* parent)
    : QWidget(parent),
      coordinator_(coordinator),
      filterBar_(new ProcessFilterBar(this)),
      scroll_(new ScrollArea(this)),
      panel_(new HogPanel),
      list_(new ProcessList),
      footer_(new ProcessFooter(this)) {
    auto* scrolled = new QWidget;
    scrolled->setAttribute(Qt::WA_StaticContents);
    auto* column = new QVBoxLayout(scrolled);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(panel_);
    column->addWidget(new ProcessColumns);
    column->addWidget(list_, 1);
    scroll_->setContents(scrolled);
    // The keyboard scrolls by the rows: it is no stop, however long the list becomes.
    const auto passOver = [this] { scroll_->setFocusPolicy(Qt::NoFocus); };
    connect(scroll_->verticalScrollBar(), &QScrollBar::rangeChanged, this, passOver);
    passOver();
    scroll_->verticalScrollBar()->setSingleStep(metrics::processRowHeight);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(filterBar_);
    layout->addWidget(scroll_, 1);
    layout->addWidget(footer_);
    connectParts();
    goOn();
}

ProcessTab::~ProcessTab() = default;

void ProcessTab::connectParts() {
    TextField& field = filterBar_->field();
    connect(&field, &TextField::textChanged, this, [this] {
        rebuild();
        scroll_->verticalScrollBar()->setValue(0);
    });
    connect(&field, &TextField::movedDown, list_, [this] { list_->setFocus(Qt::TabFocusReason); });
    connect(&filterBar_->refresh(), &Button::pressed, this,
            [this] { coordinator_.processes.startRefresh(); });
    connect(scroll_->verticalScrollBar(), &QScrollBar::valueChanged, list_,
            &ProcessList::lookForPointer);
    connect(list_, &ProcessList::menuWanted, this, &ProcessTab::openMenu);
    connect(list_, &ProcessList::currentMoved, this, &ProcessTab::showRow);
}

void ProcessTab::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    const auto list = [this](const auto&) { rebuild(); };
    const auto panel = [this](const auto&) { rebuildPanel(); };
    subscriptions_.push_back(coordinator_.processes.processes.subscribe(list));
    subscriptions_.push_back(
        coordinator_.processes.lastRefresh.subscribe([this](const auto&) { rebuildFooter(); }));
    subscriptions_.push_back(coordinator_.hogDetector.hogs.subscribe(panel));
    subscriptions_.push_back(coordinator_.hogDetector.isEnabled.subscribe(panel));
    subscriptions_.push_back(coordinator_.preferences.subscribe(panel));
    subscriptions_.push_back(Localization::shared().effective.subscribe([this](const auto&) {
        rebuildPanel();
        rebuildFooter();
    }));
    // The list's age grows while nothing else happens.
    subscriptions_.push_back(coordinator_.objectWillChange.subscribe([this] { rebuildFooter(); }));
    refreshing_ = coordinator_.processes.keepFresh();
}

void ProcessTab::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    refreshing_.cancel();
    subscriptions_.clear();
    menu_.close();
    if (event->spontaneous()) return;
    closeDialog();
    pendingRenice_.reset();
    filterBar_->field().clear();
}

void ProcessTab::rebuild() {
    if (standsStill()) return;
    const std::string search = filterBar_->field().text().toStdString();
    auto shown = coordinator_.processes.matching(search);
    list_->setPlaceholder(describeProcessPlaceholder({.search = search, .shown = shown.size()}));
    list_->setProcesses(std::move(shown));
    rebuildFooter();
}

void ProcessTab::rebuildFooter() {
    const auto& processes = coordinator_.processes;
    footer_->setModel(
        describeProcessFooter({.shown = list_->processCount(),
                               .total = processes.processes->size(),
                               .secondsSinceRefresh = processes.secondsSinceRefresh()}));
}

void ProcessTab::rebuildPanel() {
    // As high as it is it holds the rows below in their places.
    if (standsStill()) return;
    panel_->setVisible(coordinator_.preferences->hogDetectorEnabled);
    const BackgroundHogDetector& detector = coordinator_.hogDetector;
    panel_->setModel(describeHogPanel(*detector.isEnabled, *detector.hogs));
}

void ProcessTab::goOn() {
    rebuildPanel();
    rebuild();
}

void ProcessTab::showRow(const QRect& row) {
    const QRect place = row.translated(list_->pos());
    QScrollBar& bar = *scroll_->verticalScrollBar();
    // What stands above the first row is scrolled to with it.
    if (row.top() == 0)
        bar.setValue(0);
    else if (place.top() < bar.value())
        bar.setValue(place.top());
    else if (place.bottom() >= bar.value() + bar.pageStep())
        bar.setValue(place.bottom() + 1 - bar.pageStep());
}

void ProcessTab::openMenu(int row, const QRect& anchor) {
    if (standsStill()) return;
    const ProcessSnapshot process = list_->process(row);
    const ProcessMenuContext context{.isModifiable = coordinator_.processes.isModifiable(process),
                                     .hasSystemMonitor = coordinator_.workspace.hasSystemMonitor()};
    const auto asked =
        list_->showsFocus() ? ProcessMenu::Asked::byKeyboard : ProcessMenu::Asked::byPointer;
    isMenuOpen_ = true;
    list_->setMenuRow(row);
    const QRect place(list_->mapToGlobal(anchor.topLeft()), anchor.size());
    menu_.popUp(
        describeProcessMenu(process, context), place, asked, *this,
        [this, process](const ProcessMenuEntry& entry) { act(process, entry); },
        [this] {
            isMenuOpen_ = false;
            list_->setMenuRow(-1);
            goOn();
        });
}

void ProcessTab::act(const ProcessSnapshot& process, const ProcessMenuEntry& entry) {
    switch (entry.action) {
        case ProcessAction::reveal:
            coordinator_.workspace.selectFile(process.executablePath.value_or(""));
            break;
        case ProcessAction::copyPath:
            QGuiApplication::clipboard()->setText(qt(process.executablePath.value_or("")));
            break;
        case ProcessAction::openSystemMonitor:
            coordinator_.workspace.openSystemMonitor();
            break;
        case ProcessAction::renice:
            // Chosen just as the page went: there is nobody left to confirm it.
            if (isVisible()) confirm({.snapshot = process, .nice = entry.nice});
            break;
        case ProcessAction::none:
            break;
    }
}

DialogSheet* ProcessTab::ask(const DialogModel& model) {
    const bool isRounded = window()->windowFlags().testFlag(Qt::FramelessWindowHint);
    return new DialogSheet(
        groundOf(*this),
        {qt(model.symbol), qt(model.title), qt(model.message), qt(model.primary), qt(model.cancel)},
        isRounded ? metrics::radiusWindow : 0);
}

void ProcessTab::confirm(PendingRenice pending) {
    pendingRenice_ = std::move(pending);
    closeDialog();
    dialog_ = ask(describeConfirmation(*pendingRenice_));
    connect(dialog_, &DialogSheet::accepted, this, &ProcessTab::applyRenice);
    connect(dialog_, &DialogSheet::dismissed, this, [this] {
        pendingRenice_.reset();
        closeDialog();
    });
}

void ProcessTab::applyRenice() {
    const auto pending = std::exchange(pendingRenice_, std::nullopt);
    closeDialog();
    if (!pending) return;
    const auto result = coordinator_.processes.renice(pending->snapshot, pending->nice);
    const auto* error = std::get_if<ProcessManagerError>(&result);
    if (!error) return;
    dialog_ = ask(describeReniceFailure(error->description()));
    connect(dialog_, &DialogSheet::accepted, this, &ProcessTab::closeDialog);
}

void ProcessTab::closeDialog() {
    if (!dialog_) return;
    dialog_->disconnect(this);
    dialog_->hide();
    dialog_->deleteLater();
    dialog_.clear();
    // As it was, whether the keyboard had brought it there or not.
    if (isVisible()) list_->setFocus(Qt::ActiveWindowFocusReason);
    goOn();
}

}  // namespace vtx
