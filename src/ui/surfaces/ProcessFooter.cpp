// SPDX-License-Identifier: MIT
#include "ui/surfaces/ProcessFooter.h"

#include <QPainter>
#include <utility>

#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Type.h"
#include "ui/surfaces/QtText.h"

namespace vtx {

namespace {
/// No text reaches so far up or down.
constexpr int edge = 6;
}  // namespace

ProcessFooter::ProcessFooter(QWidget* parent) : KitWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void ProcessFooter::setModel(ProcessFooterModel model) {
    if (model_ == model) return;
    model_ = std::move(model);
    // The age grows each second, and the window's outline, which is drawn anew where anything
    // touches it, runs along the edges.
    constexpr int inset = metrics::contentInset;
    update(rect().adjusted(inset, edge, -inset, -edge));
}

QSize ProcessFooter::sizeHint() const {
    return {metrics::popoverWidth, metrics::processFooterHeight};
}

AccessiblePart ProcessFooter::part(int index) const {
    return {.name = qt(index == 0 ? model_.count : model_.updated), .value = {}};
}

QRect ProcessFooter::partRect(int index) const {
    const QRect inner = rect().adjusted(metrics::contentInset, 0, -metrics::contentInset, 0);
    const int middle = inner.width() / 2;
    return mirrored(index == 0 ? inner.adjusted(0, 0, -middle, 0)
                               : inner.adjusted(middle, 0, 0, 0));
}

void ProcessFooter::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paint::separator(painter, 0, width(), 1, color(ColorToken::separator));
    painter.setPen(color(ColorToken::text2));
    const QRect inner = rect().adjusted(metrics::contentInset, 0, -metrics::contentInset, 0);
    const QString count = qt(model_.count);
    drawTabular(painter, inner, count, TextRole::caption, atStart());
    const int taken = static_cast<int>(tabularWidth(count, TextRole::caption));
    drawText(painter, mirrored(inner.adjusted(taken + metrics::labelToValue, 0, 0, 0)),
             qt(model_.updated), TextRole::caption, atEnd());
}

}  // namespace vtx
