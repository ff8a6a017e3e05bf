// SPDX-License-Identifier: MIT
#include "ui/kit/KitPage.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/kit/Card.h"
#include "ui/kit/KitCharts.h"
#include "ui/kit/KitSheets.h"
#include "ui/kit/MetricRows.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/PopoverFrame.h"
#include "ui/kit/ScrollArea.h"
#include "ui/kit/SectionBar.h"
#include "ui/kit/SectionHead.h"
#include "ui/kit/Surface.h"
#include "ui/kit/Symbol.h"
#include "ui/kit/Type.h"

namespace vtx {

namespace {

using Items = std::vector<SectionItem>;

constexpr int pageWidth = 760;

QString text(const char* value) { return QString::fromUtf8(value); }

Items sections() {
    Items items;
    for (const char* symbol :
         {"square.grid.2x2", "cpu", "cube.transparent", "memorychip", "internaldrive", "fan",
          "network", "battery.75", "list.bullet.rectangle", "info.circle", "gearshape"}) {
        items.push_back({text(symbol), text(symbol), text(symbol)});
    }
    return items;
}

std::vector<MetricRow> rows() {
    return {{text("cpu"), text("CPU"), text("97 %"), ColorToken::red},
            {text("p.circle"), text("P-cores (8)"), text("88 %"), ColorToken::orange},
            {text("e.circle"), text("E-cores (4)"), text("9 %")},
            {text("waveform.path.ecg"), text("P-Core Clock"), text("3.23 GHz")},
            {text("waveform.path.ecg"), text("E-Core Clock"), text("1.34 GHz")},
            {text("display"), text("GPU"), text("74 %"), ColorToken::yellow},
            {text("thermometer.variable"), text("Temperature"), text("63 °C")},
            {text("memorychip"), text("Memory used"), text("21.4G")},
            {text("arrow.triangle.swap"), text("Swap"), text("—")}};
}

/// A page of symbols at the sizes they are used at.
class SymbolSheet final : public KitWidget {
public:
    SymbolSheet() { setFixedHeight(rowHeight * ((count() + columns - 1) / columns)); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const QStringList names = symbols::names();
        for (int i = 0; i < count(); ++i) {
            int x = i % columns * (width() / columns);
            for (const int size : {11, 13, 16, 28}) {
                const QRect box(x, i / columns * rowHeight, size + 6, rowHeight);
                symbols::draw(painter, box, names[i], size, color(ColorToken::text1));
                x += size + 6;
            }
        }
    }

private:
    static constexpr int columns = 7;
    static constexpr int rowHeight = 34;
    static int count() { return static_cast<int>(symbols::names().size()); }
};

/// One line of every kind of text.
class TypeSheet final : public KitWidget {
public:
    TypeSheet() { setFixedHeight(totalHeight()); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        int y = 0;
        for (int i = 0; i <= static_cast<int>(TextRole::tray); ++i) {
            const auto role = static_cast<TextRole>(i);
            painter.setPen(color(ColorToken::text1));
            drawTabular(painter, QRectF(0, y, 240, lineHeight(role)), text("23 % 3.11 GHz"), role,
                        Qt::AlignLeft | Qt::AlignVCenter);
            painter.setPen(color(ColorToken::text2));
            drawText(painter, QRectF(320, y, width() - 320, lineHeight(role)),
                     text("Updated 2 seconds ago · Wärmster Sensor · 温度 · Температура"), role);
            y += lineHeight(role) + 4;
        }
    }

private:
    static int totalHeight() {
        int height = 0;
        for (int i = 0; i <= static_cast<int>(TextRole::tray); ++i) {
            height += lineHeight(static_cast<TextRole>(i)) + 4;
        }
        return height;
    }
};

/// Popover shapes with the arrow on either edge.
class FrameSheet final : public KitWidget {
public:
    FrameSheet() { setFixedHeight(100); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const QSize body(200, 70);
        PopoverFrame{body, ArrowEdge::top, 100}.paint(painter);
        painter.translate(230, 0);
        PopoverFrame{body, ArrowEdge::bottom, 24}.paint(painter);
        painter.translate(230, 0);
        PopoverFrame{body, ArrowEdge::top, 176}.paint(painter);
    }
};

std::unique_ptr<SectionBar> sectionBar(const char* current, bool hasAction) {
    auto bar = std::make_unique<SectionBar>();
    bar->setItems(sections());
    bar->setCurrent(text(current));
    if (hasAction) bar->setAction(SectionItem{text("pin"), text("pin"), text("Pin")});
    return bar;
}

std::unique_ptr<Card> metricCard(std::vector<MetricRow> shown, Card::Emphasis emphasis) {
    auto card = std::make_unique<Card>();
    card->setEmphasis(emphasis);
    constexpr int side = metrics::cardPadding;
    constexpr int ends = metrics::metricRowsInset;
    card->content()->setContentsMargins(side, ends, side, ends);
    auto list = std::make_unique<MetricRows>();
    list->setRows(std::move(shown));
    card->content()->addWidget(list.release());
    return card;
}

std::unique_ptr<Card> sheetCard(std::unique_ptr<QWidget> sheet) {
    auto card = std::make_unique<Card>();
    card->content()->addWidget(sheet.release());
    return card;
}

std::unique_ptr<ScrollArea> scrolledRows() {
    auto area = std::make_unique<ScrollArea>();
    auto contents = std::make_unique<QWidget>();
    auto* column = std::make_unique<QVBoxLayout>(contents.get()).release();
    constexpr int inset = metrics::contentInset;
    column->setContentsMargins(inset, inset, inset, inset);
    column->addWidget(metricCard(rows(), Card::Emphasis::none).release());
    area->setContents(contents.release());
    area->setFixedSize(metrics::popoverWidth, 160);
    return area;
}

using SheetList = std::vector<std::unique_ptr<QWidget>>;

/// Sheets in two columns, each as wide as a card of the popover.
std::unique_ptr<QWidget> twoColumns(SheetList left, SheetList right) {
    auto pair = std::make_unique<QWidget>();
    auto* row = std::make_unique<QHBoxLayout>(pair.get()).release();
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(metrics::cardGap);
    for (SheetList* sheets : {&left, &right}) {
        auto column = std::make_unique<QVBoxLayout>();
        column->setSpacing(metrics::cardGap);
        for (std::unique_ptr<QWidget>& sheet : *sheets) column->addWidget(sheet.release());
        column->addStretch();
        row->addLayout(column.release(), 1);
    }
    return pair;
}

std::unique_ptr<QWidget> parts() {
    SheetList left;
    left.push_back(sheets::buttons());
    left.push_back(sheets::usageBars());
    left.push_back(sheets::gauges());
    left.push_back(sheets::banners());
    left.push_back(sheets::properties());
    left.push_back(sheets::placeholders());
    left.push_back(sheets::tiles());
    SheetList right;
    right.push_back(sheets::pills());
    right.push_back(sheets::perCoreBars());
    right.push_back(sheets::heroes());
    right.push_back(sheets::figures());
    right.push_back(sheets::lists());
    right.push_back(sheets::form());
    return twoColumns(std::move(left), std::move(right));
}

}  // namespace

std::unique_ptr<QWidget> makeKitPage() {
    auto page = std::make_unique<Surface>();
    auto* column = std::make_unique<QVBoxLayout>(page.get()).release();
    constexpr int inset = metrics::contentInset;
    column->setContentsMargins(inset, inset, inset, inset);
    column->setSpacing(metrics::cardGap);
    const auto add = [column](auto widget) { column->addWidget(widget.release()); };
    add(sectionBar("square.grid.2x2", true));
    add(sectionBar("cpu", false));
    add(std::make_unique<SectionHead>(text("Now")));
    add(metricCard(rows(), Card::Emphasis::none));
    add(metricCard({rows().front()}, Card::Emphasis::accent));
    add(scrolledRows());
    add(sheetCard(makeChartSheet()));
    add(parts());
    add(sheets::manyCores());
    add(sheetCard(std::make_unique<TypeSheet>()));
    add(sheetCard(std::make_unique<FrameSheet>()));
    add(sheetCard(std::make_unique<SymbolSheet>()));
    page->setFixedWidth(pageWidth);
    page->adjustSize();
    return page;
}

}  // namespace vtx
