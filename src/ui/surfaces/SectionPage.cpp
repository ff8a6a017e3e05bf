// SPDX-License-Identifier: MIT
#include "ui/surfaces/SectionPage.h"

#include <QVBoxLayout>

#include "ui/kit/Card.h"
#include "ui/kit/Metrics.h"

namespace vtx {

SectionPage::SectionPage(MetricsCoordinator& coordinator, QWidget* parent)
    : LivePage(coordinator, parent), column_(new QVBoxLayout(this)) {
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

}  // namespace vtx
