// SPDX-License-Identifier: MIT
#include "ui/surfaces/CollectingCard.h"

#include <QVBoxLayout>

#include "ui/kit/Metrics.h"
#include "ui/kit/Spinner.h"
#include "ui/surfaces/QtText.h"

namespace vtx {

CollectingCard::CollectingCard(QWidget* parent) : Card(parent), spinner_(new Spinner) {
    constexpr int padding = metrics::collectingPadding;
    content()->setContentsMargins(metrics::cardPadding, padding, metrics::cardPadding, padding);
    content()->addWidget(spinner_);
}

void CollectingCard::display(const std::string& text) {
    spinner_->setText(qt(text));
    setVisible(!text.empty());
}

}  // namespace vtx
