// SPDX-License-Identifier: MIT
#include "ui/kit/FormNote.h"

#include <QPainter>
#include <algorithm>

#include "ui/kit/Metrics.h"
#include "ui/kit/Symbol.h"
#include "ui/kit/Type.h"

namespace vtx {

namespace {

constexpr TextRole role = TextRole::caption;
constexpr int symbolSize = 12;
constexpr int symbolGap = 5;
// Narrower than this, a text would become a column of letters.
constexpr int leastWidth = 24;

QTextCharFormat emphasis() {
    QTextCharFormat format;
    format.setFontWeight(QFont::DemiBold);
    return format;
}

}  // namespace

FormNote::FormNote(QWidget* parent) : KitWidget(parent) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void FormNote::setText(const QString& text, const QString& symbol) {
    QString plain;
    QList<QTextLayout::FormatRange> emphasised;
    const QStringList parts = text.split(QStringLiteral("**"));
    for (qsizetype i = 0; i < parts.size(); ++i) {
        const auto start = static_cast<int>(plain.size());
        const auto length = static_cast<int>(parts[i].size());
        if (i % 2 == 1) emphasised.append({start, length, emphasis()});
        plain += parts[i];
    }
    if (plain == plain_ && emphasised == emphasised_ && symbol == symbol_) return;
    plain_ = plain;
    emphasised_ = emphasised;
    symbol_ = symbol;
    setAccessibleName(plain);
    setVisible(!plain.isEmpty());
    updateGeometry();
    update();
}

int FormNote::lead() const { return symbol_.isEmpty() ? 0 : symbolSize + symbolGap; }

int FormNote::layOut(QTextLayout& layout, int width) const {
    QTextOption option(atStart() & Qt::AlignHorizontal_Mask);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.setFormats(emphasised_);
    int lines = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(std::max(leastWidth, width));
        const double slack = lineHeight(role) - line.height();
        line.setPosition({0, lines * lineHeight(role) + slack / 2});
        ++lines;
    }
    layout.endLayout();
    return lines;
}

int FormNote::heightForWidth(int width) const {
    if (plain_.isEmpty()) return 0;
    QTextLayout layout(plain_, fontFor(role));
    return layOut(layout, width - lead()) * lineHeight(role);
}

QSize FormNote::sizeHint() const {
    constexpr int width = metrics::popoverWidth - 2 * (metrics::contentInset + metrics::formInset);
    return {width, heightForWidth(width)};
}

void FormNote::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor ink = color(ColorToken::text2);
    const QRect symbol(0, 0, symbolSize, lineHeight(role));
    symbols::draw(painter, mirrored(symbol), symbol_, symbolSize, ink);
    QTextLayout layout(plain_, fontFor(role));
    layOut(layout, width() - lead());
    painter.setPen(ink);
    layout.draw(&painter, mirrored(rect().adjusted(lead(), 0, 0, 0)).topLeft());
}

}  // namespace vtx
