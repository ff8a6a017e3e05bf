// SPDX-License-Identifier: MIT
#include "ui/surfaces/SettingsTab.h"

#include <QEvent>
#include <QPointer>
#include <QVBoxLayout>

#include "base/Version.h"
#include "core/MetricsCoordinator.h"
#include "core/UpdaterService.h"
#include "language/Localization.h"
#include "ui/kit/FormGroup.h"
#include "ui/kit/Metrics.h"
#include "ui/models/UpdateNotice.h"
#include "ui/surfaces/AlertPanel.h"
#include "ui/surfaces/HistoryExport.h"
#include "ui/surfaces/QtText.h"

namespace vtx {

SettingsTab::SettingsTab(MetricsCoordinator& coordinator, QWidget* parent)
    : QWidget(parent), coordinator_(coordinator) {
    auto* column = new QVBoxLayout(this);
    constexpr int inset = metrics::contentInset;
    column->setContentsMargins(inset, inset, inset, inset);
    column->setSpacing(metrics::formGroupGap);
    rebuild();
    column->addStretch();
}

SettingsTab::Section SettingsTab::makeSection(const SettingsSection& section) {
    Section made{new FormGroup, {}};
    for (const SettingsRow& row : section.rows) {
        made.rows.push_back(makeSettingsRow(row, *this, coordinator_));
        made.group->addRow(made.rows.back().widget);
    }
    layout()->addWidget(made.group);
    return made;
}

// The sections and their rows are always the same; those that are not needed are hidden.
void SettingsTab::display(const SettingsModel& model) {
    for (std::size_t i = 0; i < model.sections.size(); ++i) {
        const SettingsSection& shown = model.sections[i];
        if (i == sections_.size()) sections_.push_back(makeSection(shown));
        Section& section = sections_[i];
        section.group->setTitle(qt(shown.title));
        section.group->setFooter(qt(shown.footer), qt(shown.footerSymbol));
        for (std::size_t row = 0; row < shown.rows.size(); ++row)
            section.rows.at(row).show(shown.rows[row]);
    }
}

void SettingsTab::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    coordinator_.loginItem.refresh();
    const auto follow = [this](const auto&) { rebuild(); };
    subscriptions_.push_back(coordinator_.preferences.subscribe(follow));
    subscriptions_.push_back(coordinator_.alerts.permissionGranted.subscribe(follow));
    subscriptions_.push_back(coordinator_.loginItem.isEnabled.subscribe(follow));
    subscriptions_.push_back(Localization::shared().effective.subscribe(follow));
    UpdaterService& updates = UpdaterService::shared();
    subscriptions_.push_back(updates.isChecking.subscribe(follow));
    subscriptions_.push_back(updates.controller.onAvailabilityChange([this] { rebuild(); }));
}

void SettingsTab::hideEvent(QHideEvent* event) {
    subscriptions_.clear();
    QWidget::hideEvent(event);
}

// Whoever comes back may have been where the login item is changed, too.
bool SettingsTab::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate && isVisible()) coordinator_.loginItem.refresh();
    return QWidget::event(event);
}

void SettingsTab::rebuild() {
    const SoftwareUpdater& updater = UpdaterService::shared().controller;
    display(describeSettings(
        {.preferences = *coordinator_.preferences,
         .isNotificationPermitted = *coordinator_.alerts.permissionGranted,
         .isLoginItemEnabled = *coordinator_.loginItem.isEnabled,
         .updatesAutomatically = updater.isAvailable()
                                     ? std::optional(updater.automaticallyChecksForUpdates())
                                     : std::nullopt,
         .isCheckingForUpdates = *UpdaterService::shared().isChecking,
         .version = std::string(programVersion()),
         .build = std::string(programBuild())}));
}

void SettingsTab::change(DisplayPreferences changed) {
    // The same again is saved by nobody, and yet told to everybody.
    if (changed == *coordinator_.preferences) return;
    const bool isOtherPace =
        changed.refreshIntervalSeconds != coordinator_.preferences->refreshIntervalSeconds;
    coordinator_.preferences = std::move(changed);
    // A loop keeps the interval that it began with. One that was stopped stays so.
    if (isOtherPace && coordinator_.isRunning()) coordinator_.start();
}

void SettingsTab::toggle(std::string_view id, bool on) {
    if (id == settingsRow::launchAtLogin) return launchAtLogin(on);
    if (id == settingsRow::autoUpdate) {
        UpdaterService::shared().controller.setAutomaticallyChecksForUpdates(on);
        return rebuild();
    }
    change(settings::toggled(*coordinator_.preferences, id, on));
}

void SettingsTab::launchAtLogin(bool on) {
    LoginItemService& login = coordinator_.loginItem;
    login.setEnabled(on);
    change(settings::toggled(*coordinator_.preferences, settingsRow::launchAtLogin, on));
    // Whether or not that changed anything, the switch goes back to what is so.
    rebuild();
    if (!*login.lastError) return;
    const auto title = Localization::shared().string(L10n::Key::settings_launchAtLoginError);
    (new AlertPanel(qt(title), qt(**login.lastError), window()))->show();
}

void SettingsTab::slide(SliderField field, double value) {
    change(settings::slid(*coordinator_.preferences, field, value));
}

void SettingsTab::choose(std::string_view id, int choice) {
    change(settings::chosen(*coordinator_.preferences, id, choice));
}

void SettingsTab::recolor(std::string_view id, std::string hex) {
    change(settings::recolored(*coordinator_.preferences, id, std::move(hex)));
}

std::string SettingsTab::colorText(std::string_view id) const {
    return settings::colorText(*coordinator_.preferences, id);
}

void SettingsTab::enterTile(std::string_view dragged, std::string_view destination) {
    change(settings::tileEntered(*coordinator_.preferences, dragged, destination));
}

void SettingsTab::moveTile(std::string_view tile, settings::TileMove move) {
    change(settings::tileMoved(*coordinator_.preferences, tile, move));
}

void SettingsTab::press(std::string_view id) {
    if (id == settingsRow::exportCSV) historyExport::ask(coordinator_, *window());
    if (id == settingsRow::checkUpdates) checkForUpdates();
}

void SettingsTab::checkForUpdates() {
    UpdaterService::shared().checkForUpdates([asked = QPointer(window())](const auto& answer) {
        const DialogModel told = describeUpdate(answer);
        // Whoever asked is told, though page and window may be closed by now.
        QWidget* const front = asked && asked->isVisible() ? asked.data() : nullptr;
        (new AlertPanel(qt(told.title), qt(told.message), front, qt(told.symbol)))->show();
    });
}

}  // namespace vtx
