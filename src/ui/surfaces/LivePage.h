// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <utility>

#include "base/Published.h"
#include "base/Subscription.h"
#include "core/HistoryPoint.h"

namespace vtx {

class MetricsCoordinator;

/// A page that follows the machine while it is shown, and nothing at all while it is not. Whatever
/// is followed, several changes of one turn of the event loop are shown once. Charts are told apart
/// from the other values: readings and histories arrive in different turns, and each of a chart's
/// points is looked at when it is drawn. Main executor; owned by the view that shows it.
class LivePage : public QWidget {
protected:
    /// What a change makes the page show anew.
    enum class Concern { values, charts, all };

    /// The coordinator must outlive the page.
    explicit LivePage(MetricsCoordinator& coordinator, QWidget* parent = nullptr);

    /// Observes what the page shows besides preferences and language, which every page follows.
    virtual void follow() = 0;
    /// Shows the values that there are now, all but the charts.
    virtual void refresh() = 0;
    /// Shows the charts as they are now.
    virtual void refreshCharts() {}

    /// Shows each change of `value` from now on, until the page is hidden.
    template <class T>
    void observe(const Published<T>& value, Concern concern = Concern::values) {
        subscriptions_.push_back(subscriptionTo(value, concern));
    }
    /// The same until the token goes. What `value` is now is not told.
    template <class T>
    [[nodiscard]] Subscription subscriptionTo(const Published<T>& value, Concern concern) {
        return value.subscribe([this, concern, isFirst = true](const T&) mutable {
            if (!std::exchange(isFirst, false)) changed(concern);
        });
    }

    /// A history as the charts draw it: without points until the page is shown, so that making a
    /// page costs no pass over them.
    [[nodiscard]] const HistorySeries& drawn(const Published<HistorySeries>& history) const;

    [[nodiscard]] MetricsCoordinator& coordinator() const { return coordinator_; }

    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void changed(Concern concern);
    void showDue();

    MetricsCoordinator& coordinator_;
    Subscriptions subscriptions_;
    bool isFollowing_ = false;
    bool areValuesDue_ = false;
    bool areChartsDue_ = false;
};

}  // namespace vtx
