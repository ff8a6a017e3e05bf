// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QString>
#include <QTimer>
#include <chrono>
#include <functional>

#include "ui/controller/SurfaceFactory.h"
#include "ui/surfaces/ToolkitTexts.h"

class QWidget;

namespace vtx {

class AboutPanel;
class Clock;
class DashboardWindowController;
class LanguagePickerWindowController;
class MiniWidgetWindowController;
class PopoverController;
class StatusItemController;
class TrayHost;
class UserDefaults;
class WindowSystem;

/// Makes the surfaces as windows of the desktop. Main executor; owned by the composition root.
class QtSurfaceFactory final : public SurfaceFactory {
public:
    /// `title` stands in every window's title. The system and the store must outlive the factory.
    QtSurfaceFactory(WindowSystem& system, UserDefaults& defaults, QString title);
    ~QtSurfaceFactory() override;

    /// What a surface was made of is gone, and none of it is needed soon: the time to give memory
    /// back to the system.
    std::function<void()> onLetGo;

    /// From the closing of a surface to that; what it was drawn with stays for so long.
    void keepFor(std::chrono::milliseconds time) { rest_.setInterval(time); }

    /// Gives the status item that is made later a place in the tray too; both must outlive it.
    void useTray(TrayHost& tray, const Clock& clock);

    std::unique_ptr<LanguagePickerSurface> makeLanguagePicker() override;
    std::unique_ptr<DashboardSurface> makeDashboard(MetricsCoordinator& coordinator) override;
    std::unique_ptr<MiniWidgetSurface> makeMiniWidget(MetricsCoordinator& coordinator) override;
    std::unique_ptr<StatusItemSurface> makeStatusItem(MetricsCoordinator& coordinator) override;
    std::unique_ptr<PopoverSurface> makePopover(
        MetricsCoordinator& coordinator, StatusItemSurface& item,
        std::function<void(PopoverSection)> onDetachRequested) override;
    void becomeAccessory() override;
    void activate() override;
    void showAboutPanel() override;
    void terminate() override;

    /// The surfaces that were made and still are; null before. For taking pictures of them.
    [[nodiscard]] LanguagePickerWindowController* languagePicker() const { return languagePicker_; }
    [[nodiscard]] DashboardWindowController* dashboard() const { return dashboard_; }
    [[nodiscard]] MiniWidgetWindowController* miniWidget() const { return miniWidget_; }
    [[nodiscard]] StatusItemController* statusItem() const { return statusItem_; }
    [[nodiscard]] PopoverController* popover() const { return popover_; }
    [[nodiscard]] QWidget* aboutPanel() const;

private:
    /// Whether more is shown than the strip and the mini widget, which take little.
    [[nodiscard]] bool isAnythingOpen() const;
    /// What the surfaces were drawn with goes, unless one is open: fonts, symbols and pictures.
    void letGo();

    WindowSystem& system_;
    UserDefaults& defaults_;
    const QString title_;
    LanguagePickerWindowController* languagePicker_ = nullptr;
    DashboardWindowController* dashboard_ = nullptr;
    MiniWidgetWindowController* miniWidget_ = nullptr;
    StatusItemController* statusItem_ = nullptr;
    PopoverController* popover_ = nullptr;
    TrayHost* tray_ = nullptr;
    const Clock* clock_ = nullptr;
    QPointer<AboutPanel> about_;
    ToolkitTexts toolkitTexts_;
    /// Runs from the last closing of a surface on.
    QTimer rest_;
};

}  // namespace vtx
