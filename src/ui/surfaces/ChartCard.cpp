// SPDX-License-Identifier: MIT
#include "ui/surfaces/ChartCard.h"

#include <QVBoxLayout>

#include "ui/kit/CardTitle.h"
#include "ui/kit/HistoryChart.h"
#include "ui/kit/Metrics.h"
#include "ui/models/ChartCardModel.h"
#include "ui/surfaces/ChartContent.h"
#include "ui/surfaces/QtText.h"

namespace vtx {

ChartCard::ChartCard(QWidget* parent) : Card(parent), title_(new CardTitle) {
    content()->setSpacing(metrics::chartGap);
    content()->addWidget(title_);
}

void ChartCard::display(const std::optional<ChartCardModel>& model) {
    setVisible(model.has_value());
    if (!model) return;
    title_->setContent({.title = qt(model->title)});
    while (charts_.size() < model->charts.size()) {
        charts_.push_back(new HistoryChart);
        content()->addWidget(charts_.back());
    }
    for (std::size_t i = 0; i < charts_.size(); ++i) {
        const bool isThere = i < model->charts.size();
        if (isThere) charts_[i]->setContent(chartContent(model->charts[i]));
        charts_[i]->setVisible(isThere);
    }
}

}  // namespace vtx
