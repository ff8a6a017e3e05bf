// SPDX-License-Identifier: MIT
#include "ui/kit/TextBlock.h"

#include <QPainter>

#include "ui/kit/Metrics.h"
#include "ui/kit/Symbol.h"
#include "ui/kit/WrappedText.h"

namespace vtx {

namespace {
constexpr int symbolSize = metrics::figureSymbol;
}

TextBlock::TextBlock(QWidget* parent) : KitWidget(parent) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void TextBlock::setContent(TextBlockContent content) {
    if (content_ == content) return;
    content_ = std::move(content);
    setAccessibleName(content_.text);
    updateGeometry();
    update();
}

int TextBlock::lead() const {
    return content_.symbol.isEmpty() ? 0 : symbolSize + metrics::symbolToTitle;
}

int TextBlock::heightForWidth(int width) const {
    return wrapped::height(content_.text, content_.role, width - lead());
}

QSize TextBlock::sizeHint() const {
    return {metrics::cardContentWidth, heightForWidth(metrics::cardContentWidth)};
}

QSize TextBlock::minimumSizeHint() const { return {lead(), 0}; }

void TextBlock::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect symbol(0, 0, symbolSize, lineHeight(content_.role));
    symbols::draw(painter, mirrored(symbol), content_.symbol, symbolSize,
                  color(content_.symbolColor.value_or(content_.color)));
    painter.setPen(color(content_.color));
    const bool isCentred = content_.place == TextPlace::middle;
    wrapped::draw(painter, mirrored(rect().adjusted(lead(), 0, 0, 0)), content_.text, content_.role,
                  isCentred ? Qt::AlignHCenter : atStart());
}

}  // namespace vtx
