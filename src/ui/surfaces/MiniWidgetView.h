// SPDX-License-Identifier: MIT
#pragma once

#include "base/Subscription.h"
#include "ui/kit/KitWidget.h"
#include "ui/models/MiniWidgetModel.h"

namespace vtx {

class MetricsCoordinator;

/// The face of the mini widget: four figures with their bars and the loads of the two kinds of
/// cores. Follows the coordinator while it is shown, shows the changes of one turn of the event
/// loop together and repaints only what differs. Paints no ground, which is its window's. Main
/// executor; owned by the window.
class MiniWidgetView final : public KitWidget {
    Q_OBJECT

public:
    explicit MiniWidgetView(MetricsCoordinator& coordinator, QWidget* parent = nullptr);

    /// Shows a model as it is; the coordinator's next change replaces it.
    void display(MiniWidgetModel model);
    [[nodiscard]] const MiniWidgetModel& model() const { return model_; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::List; }
    /// The header, then the rows, then the chips.
    [[nodiscard]] int partCount() const override;
    [[nodiscard]] AccessiblePart part(int index) const override;
    [[nodiscard]] QRect partRect(int index) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void readingChanged();
    void rebuild();
    void paintHeader(QPainter& painter, const QRect& line) const;
    void paintRow(QPainter& painter, const QRect& line, const MiniWidgetRow& row) const;
    void paintChip(QPainter& painter, const QRect& tile, const MiniWidgetChip& chip) const;

    MetricsCoordinator& coordinator_;
    MiniWidgetModel model_;
    Subscriptions subscriptions_;
    bool isDue_ = false;
};

}  // namespace vtx
