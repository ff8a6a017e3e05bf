// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <vector>

#include "base/Subscription.h"
#include "ui/models/StripModel.h"

namespace vtx {

class MetricsCoordinator;

/// The row of tiles in the status item, the program's permanent face. Follows the coordinator while
/// it is shown and repaints only the tiles whose text or symbol changed. Takes no input itself: the
/// status item does, and says the spoken summary as its name.
class StripView final : public QWidget {
    Q_OBJECT

public:
    explicit StripView(MetricsCoordinator& coordinator, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    /// The text that a screen reader says.
    [[nodiscard]] const std::string& spokenSummary() const { return model_.summary; }
    /// What the tiles and the padding take, in logical pixels; not rounded.
    [[nodiscard]] double contentWidth() const { return contentWidth_; }
    [[nodiscard]] const StripModel& model() const { return model_; }

    /// Shows a model as it is; the coordinator's next change replaces it.
    void display(StripModel model);

Q_SIGNALS:
    /// The view asks for another width than before.
    void widthHintChanged();
    void summaryChanged();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    struct Place {
        QRectF symbol;
        QRectF label;
        [[nodiscard]] QRectF whole() const { return symbol.united(label); }
        friend bool operator==(const Place&, const Place&) = default;
    };

    void rebuild();
    void layOut();
    /// Of a model whose tiles stand in the same places.
    void repaintDifferences(const StripModel& before);

    MetricsCoordinator& coordinator_;
    StripModel model_;
    std::vector<Place> places_;
    double contentWidth_ = 0.0;
    Subscriptions subscriptions_;
};

}  // namespace vtx
