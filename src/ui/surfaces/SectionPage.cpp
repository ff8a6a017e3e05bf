// SPDX-License-Identifier: MIT
#include "ui/surfaces/SectionPage.h"

#include <QVBoxLayout>
#include <utility>

#include "core/MetricsCoordinator.h"
#include "language/Localization.h"
#include "ui/kit/Card.h"
#include "ui/kit/Metrics.h"

namespace vtx {

SectionPage::SectionPage(MetricsCoordinator& coordinator, QWidget* parent)
    : QWidget(parent), coordinator_(coordinator), column_(new QVBoxLayout(this)) {
    constexpr int inset = metrics::contentInset;
    column_->setContentsMargins(inset, inset, inset, inset);
    column_->setSpacing(metrics::cardGap);
    column_->addStretch();
}

Card* SectionPage::addCard() {
    auto* card = new Card(this);
    addBlock(card);
    return card;
}

void SectionPage::addBlock(QWidget* block) {
    column_->insertWidget(column_->count() - 1, block);  // before the stretch
}

void SectionPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (isFollowing_) return;
    observe(coordinator_.preferences);
    observe(Localization::shared().effective);
    follow();
    isFollowing_ = true;  // what was told while subscribing is shown at once, here
    refresh();
}

void SectionPage::hideEvent(QHideEvent* event) {
    isFollowing_ = false;
    subscriptions_.clear();
    QWidget::hideEvent(event);
}

void SectionPage::changed() {
    if (!isFollowing_ || std::exchange(isRefreshDue_, true)) return;
    const auto show = [this] {
        isRefreshDue_ = false;
        if (isFollowing_) refresh();
    };
    QMetaObject::invokeMethod(this, show, Qt::QueuedConnection);
}

}  // namespace vtx
