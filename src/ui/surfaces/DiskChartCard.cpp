// SPDX-License-Identifier: MIT
#include "ui/surfaces/DiskChartCard.h"

#include <QVBoxLayout>

#include "ui/kit/CardTitle.h"
#include "ui/kit/HistoryChart.h"
#include "ui/kit/Metrics.h"
#include "ui/models/ChartThroughput.h"
#include "ui/surfaces/ChartContent.h"
#include "ui/surfaces/QtText.h"

namespace vtx {

DiskChartCard::DiskChartCard(QWidget* parent)
    : Card(parent), title_(new CardTitle), chart_(new HistoryChart) {
    content()->setSpacing(metrics::titleToChart);
    content()->addWidget(title_);
    content()->addWidget(chart_);
}

void DiskChartCard::display(const std::optional<DiskThroughputChart>& model) {
    setVisible(model.has_value());
    if (!model) return;
    title_->setContent({.title = qt(model->title)});
    chart_->setContent(chartContent(*model));
}

}  // namespace vtx
