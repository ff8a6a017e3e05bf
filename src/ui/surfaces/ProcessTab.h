// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>
#include <optional>

#include "base/Subscription.h"
#include "ui/kit/DialogSheet.h"
#include "ui/models/PendingRenice.h"
#include "ui/surfaces/ProcessMenu.h"

namespace vtx {

class HogPanel;
class MetricsCoordinator;
class ProcessFilterBar;
class ProcessFooter;
class ProcessList;
class ScrollArea;

/// The page of the running processes: a search above, the list with the panel of background hogs,
/// and a line below. While it is shown it has the list sampled every two seconds. While a menu or a
/// dialog is open the rows stand still, and what the user chooses there is done to the process that
/// was shown. What was typed and not confirmed goes when the page does.
class ProcessTab final : public QWidget {
    Q_OBJECT

public:
    explicit ProcessTab(MetricsCoordinator& coordinator, QWidget* parent = nullptr);
    ~ProcessTab() override;

    [[nodiscard]] ProcessFilterBar& filterBar() const { return *filterBar_; }
    [[nodiscard]] ProcessList& list() const { return *list_; }
    [[nodiscard]] const ProcessMenu& menu() const { return menu_; }
    /// Null while there is none.
    [[nodiscard]] DialogSheet* dialog() const { return dialog_; }

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void connectParts();
    void rebuild();
    void rebuildFooter();
    void rebuildPanel();
    /// Catches up with what happened while nothing was to move.
    void goOn();
    void showRow(const QRect& row);
    [[nodiscard]] bool standsStill() const { return isMenuOpen_ || dialog_; }

    void openMenu(int row, const QRect& anchor);
    void act(const ProcessSnapshot& process, const ProcessMenuEntry& entry);
    void confirm(PendingRenice pending);
    void applyRenice();
    void closeDialog();
    [[nodiscard]] DialogSheet* ask(const DialogModel& model);

    MetricsCoordinator& coordinator_;
    ProcessFilterBar* filterBar_;
    ScrollArea* scroll_;
    HogPanel* panel_;
    ProcessList* list_;
    ProcessFooter* footer_;
    ProcessMenu menu_;
    bool isMenuOpen_ = false;
    QPointer<DialogSheet> dialog_;
    std::optional<PendingRenice> pendingRenice_;
    Subscription refreshing_;
    Subscriptions subscriptions_;
};

}  // namespace vtx
