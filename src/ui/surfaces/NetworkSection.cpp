// SPDX-License-Identifier: MIT
#include "ui/surfaces/NetworkSection.h"

#include <QVBoxLayout>

#include "core/MetricsCoordinator.h"
#include "language/Localization.h"
#include "ui/kit/ListRows.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/TextBlock.h"
#include "ui/models/NetworkSectionModel.h"
#include "ui/surfaces/CollectingCard.h"
#include "ui/surfaces/KeyValueCard.h"
#include "ui/surfaces/KitContent.h"
#include "ui/surfaces/QtText.h"

namespace vtx {

NetworkSection::NetworkSection(MetricsCoordinator& coordinator, QWidget* parent)
    : SectionPage(coordinator, parent),
      collecting_(new CollectingCard(this)),
      placeholder_(new PlaceholderCard(this)),
      title_(new CardTitle),
      throughput_(new Figures(FigureSize::medium)),
      throughputCard_(makeThroughputCard()),
      primary_(new KeyValueCard(this)),
      interfacesTitle_(new CardTitle),
      noneActive_(new TextBlock),
      interfaces_(new ListRows(ListKind::oneLine)),
      interfacesCard_(makeInterfacesCard()) {
    for (QWidget* block : std::initializer_list<QWidget*>{
             collecting_, placeholder_, throughputCard_, primary_, interfacesCard_})
        addBlock(block);
    refresh();
}

Card* NetworkSection::makeThroughputCard() {
    auto* card = new Card(this);
    card->content()->setSpacing(metrics::titleToRows);
    card->content()->addWidget(title_);
    card->content()->addWidget(throughput_);
    return card;
}

Card* NetworkSection::makeInterfacesCard() {
    auto* card = new Card(this);
    constexpr int padding = metrics::cardPadding;
    card->content()->setContentsMargins(padding, padding, padding, metrics::cardRowsInset);
    card->content()->setSpacing(metrics::titleToRows);
    card->content()->addWidget(interfacesTitle_);
    card->content()->addWidget(noneActive_);
    card->content()->addWidget(interfaces_);
    return card;
}

void NetworkSection::display(const NetworkSectionModel& model) {
    const bool isKnown = !model.placeholder && model.collecting.empty();
    collecting_->display(model.collecting);
    if (model.placeholder) placeholder_->setContent(toKit(*model.placeholder));
    placeholder_->setVisible(model.placeholder.has_value());
    title_->setContent({.title = qt(model.title)});
    throughput_->setFigures(toKit(model.throughput));
    displayPrimary(model);
    displayInterfaces(model);
    throughputCard_->setVisible(isKnown);
    interfacesCard_->setVisible(isKnown);
}

void NetworkSection::displayPrimary(const NetworkSectionModel& model) {
    primary_->setVisible(model.primary.has_value());
    if (!model.primary) return;
    primary_->display({.title = qt(model.primary->title),
                       .symbol = qt(model.primary->symbol),
                       .trailing = qt(model.primary->name)},
                      model.primary->addresses);
}

void NetworkSection::displayInterfaces(const NetworkSectionModel& model) {
    interfacesTitle_->setContent({.title = qt(model.interfacesTitle)});
    noneActive_->setContent({.text = qt(model.noneActive), .place = TextPlace::middle});
    noneActive_->setVisible(!model.noneActive.empty());
    std::vector<ListRow> rows;
    rows.reserve(model.interfaces.size());
    for (const InterfaceRowModel& row : model.interfaces)
        rows.push_back({.title = qt(row.name),
                        .symbol = qt(row.symbol),
                        .symbolColor = row.isActive ? ColorToken::text1 : ColorToken::text3,
                        .caption = qt(row.kind),
                        .mark = row.isActive ? StateMark::filled : StateMark::hollow,
                        .values = {{.text = qt(row.state), .color = colorOf(row.hue)}}});
    interfaces_->setRows(std::move(rows));
}

void NetworkSection::follow() { observe(coordinator().network.latest); }

void NetworkSection::refresh() {
    display(describeNetworkSection(*coordinator().network.latest, Localization::shared()));
}

}  // namespace vtx
