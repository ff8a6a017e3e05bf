// SPDX-License-Identifier: MIT
#include "ui/surfaces/KeyValueCard.h"

#include <QVBoxLayout>
#include <utility>

#include "ui/kit/Metrics.h"
#include "ui/surfaces/KitContent.h"
#include "ui/surfaces/QtText.h"

namespace vtx {

KeyValueCard::KeyValueCard(QWidget* parent)
    : Card(parent), title_(new CardTitle), rows_(new KeyValueRows) {
    content()->setSpacing(metrics::titleToKeyValues);
    content()->addWidget(title_);
    content()->addWidget(rows_);
}

void KeyValueCard::display(const KeyValueCardModel& model) {
    display(CardTitleContent{.title = qt(model.title)}, model.rows);
}

void KeyValueCard::display(CardTitleContent title, const std::vector<KeyValueModel>& rows) {
    const bool isTitled = !title.title.isEmpty();
    const int top = isTitled ? metrics::cardPadding : metrics::cardRowsInset;
    content()->setContentsMargins(metrics::cardPadding, top, metrics::cardPadding,
                                  metrics::cardRowsInset);
    title_->setVisible(isTitled);
    title_->setContent(std::move(title));
    rows_->setRows(toKit(rows));
}

}  // namespace vtx
