// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <vector>

#include "base/Subscription.h"
#include "ui/surfaces/SettingsRows.h"
#include "ui/surfaces/SettingsSink.h"

namespace vtx {

class FormGroup;
class MetricsCoordinator;

/// The page on which the user edits the preferences. It has no copy of them: each control changes
/// the coordinator's, at once, and shows them as they are now, whoever changed them.
class SettingsTab final : public QWidget, private SettingsSink {
    Q_OBJECT

public:
    explicit SettingsTab(MetricsCoordinator& coordinator, QWidget* parent = nullptr);

    /// Shows a model as it is; the coordinator's next change replaces it.
    void display(const SettingsModel& model);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool event(QEvent* event) override;

private:
    struct Section {
        FormGroup* group;
        std::vector<SettingsRowView> rows;
    };

    void toggle(std::string_view id, bool on) override;
    void slide(SliderField field, double value) override;
    void choose(std::string_view id, int choice) override;
    void recolor(std::string_view id, std::string hex) override;
    [[nodiscard]] std::string colorText(std::string_view id) const override;
    void enterTile(std::string_view dragged, std::string_view destination) override;
    void moveTile(std::string_view tile, settings::TileMove move) override;
    void press(std::string_view id) override;

    void rebuild();
    void change(DisplayPreferences changed);
    void launchAtLogin(bool on);
    void checkForUpdates();
    [[nodiscard]] Section makeSection(const SettingsSection& section);

    MetricsCoordinator& coordinator_;
    std::vector<Section> sections_;
    Subscriptions subscriptions_;
};

}  // namespace vtx
