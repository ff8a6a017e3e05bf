// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include "base/Published.h"
#include "base/Subscription.h"

class QVBoxLayout;

namespace vtx {

class Card;
class MetricsCoordinator;

/// Base of the pages of popover and dashboard: cards below one another that follow the machine
/// while the page is shown, and nothing at all while it is not. Whatever is followed, several
/// changes of one turn of the event loop are shown once. Main executor; owned by the view that
/// shows it.
class SectionPage : public QWidget {
protected:
    /// The coordinator must outlive the page.
    explicit SectionPage(MetricsCoordinator& coordinator, QWidget* parent = nullptr);

    /// Observes what the page shows besides preferences and language, which every page follows.
    virtual void follow() = 0;
    /// Shows what there is to show now.
    virtual void refresh() = 0;

    /// Shows each change of `value` from now on, until the page is hidden.
    template <class T>
    void observe(const Published<T>& value) {
        subscriptions_.push_back(value.subscribe([this](const T&) { changed(); }));
    }

    /// A further card at the end of the page.
    Card* addCard();
    /// A further widget at the end of the page, such as a banner.
    void addBlock(QWidget* block);

    [[nodiscard]] MetricsCoordinator& coordinator() const { return coordinator_; }

    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void changed();

    MetricsCoordinator& coordinator_;
    QVBoxLayout* column_;
    Subscriptions subscriptions_;
    bool isFollowing_ = false;
    bool isRefreshDue_ = false;
};

}  // namespace vtx
