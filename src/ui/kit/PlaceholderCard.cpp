// SPDX-License-Identifier: MIT
#include "ui/kit/PlaceholderCard.h"

#include <QPainter>
#include <algorithm>

#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Symbol.h"
#include "ui/kit/WrappedText.h"

namespace vtx {

PlaceholderCard::PlaceholderCard(QWidget* parent) : KitWidget(parent) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void PlaceholderCard::setContent(PlaceholderContent content) {
    if (content_ == content) return;
    content_ = std::move(content);
    updateGeometry();
    update();
}

PlaceholderCard::Layout PlaceholderCard::layOut(int width) const {
    const int text = std::clamp(width - 2 * metrics::cardPadding, 1, metrics::placeholderTextWidth);
    const int left = (width - text) / 2;
    Layout layout{};
    int y = metrics::placeholderPadding;
    if (!content_.symbol.isEmpty()) {
        layout.symbol = {left, y, text, metrics::placeholderSymbol};
        y += metrics::placeholderSymbol + metrics::placeholderGap;
    }
    const int title = wrapped::height(content_.title, TextRole::sectionHead, text);
    layout.title = {left, y, text, title};
    y += title;
    if (!content_.body.isEmpty()) {
        y += metrics::placeholderTextGap;
        layout.body = {left, y, text, wrapped::height(content_.body, TextRole::caption, text)};
        y += layout.body.height();
    }
    layout.height = y + metrics::placeholderPadding;
    return layout;
}

int PlaceholderCard::heightForWidth(int width) const { return layOut(width).height; }

QSize PlaceholderCard::sizeHint() const {
    constexpr int width = metrics::popoverWidth - 2 * metrics::contentInset;
    return {width, heightForWidth(width)};
}

QSize PlaceholderCard::minimumSizeHint() const { return {2 * metrics::placeholderPadding, 0}; }

AccessiblePart PlaceholderCard::part(int index) const {
    return {.name = index == 0 ? content_.title : content_.body,
            .value = {},
            .role = QAccessible::StaticText};
}

QRect PlaceholderCard::partRect(int index) const {
    const Layout layout = layOut(width());
    return index == 0 ? layout.title : layout.body;
}

void PlaceholderCard::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paint::fillRounded(painter, rect(), metrics::radiusWindow, color(ColorToken::card));
    paint::outline(painter, rect(), metrics::radiusWindow, color(ColorToken::cardBorder),
                   paint::hairline(painter));
    Layout layout = layOut(width());
    const int spare = std::max(0, (height() - layout.height) / 2);
    painter.translate(0, spare);
    symbols::draw(painter, layout.symbol, content_.symbol, metrics::placeholderSymbol,
                  color(ColorToken::text3));
    painter.setPen(color(ColorToken::text1));
    wrapped::draw(painter, layout.title, content_.title, TextRole::sectionHead, Qt::AlignHCenter);
    painter.setPen(color(ColorToken::text2));
    wrapped::draw(painter, layout.body, content_.body, TextRole::caption, Qt::AlignHCenter);
}

}  // namespace vtx
