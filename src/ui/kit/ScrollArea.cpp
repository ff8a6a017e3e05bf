// SPDX-License-Identifier: MIT
#include "ui/kit/ScrollArea.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QScrollBar>

#include "ui/kit/Metrics.h"
#include "ui/kit/OverlayScrollBar.h"

namespace vtx {

namespace {
constexpr int barRoom = metrics::scrollBarWidth + 2 * metrics::scrollBarInset;
}

ScrollArea::ScrollArea(QWidget* parent)
    : QScrollArea(parent), bar_(new OverlayScrollBar(*verticalScrollBar(), this)) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAutoFillBackground(false);
    verticalScrollBar()->setSingleStep(metrics::metricRowHeight);
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, &ScrollArea::rangeChanged);
    rangeChanged();
}

bool ScrollArea::scrolls() const {
    return verticalScrollBar()->maximum() > verticalScrollBar()->minimum();
}

void ScrollArea::rangeChanged() {
    setFocusPolicy(scrolls() ? Qt::StrongFocus : Qt::NoFocus);
    // Later: while contents give way to others, the range is none for a moment.
    QMetaObject::invokeMethod(this, [this] { passFocusOn(); }, Qt::QueuedConnection);
}

void ScrollArea::passFocusOn() {
    if (!hasFocus() || scrolls()) return;
    if (!focusNextPrevChild(false)) clearFocus();
}

void ScrollArea::setContents(QWidget* contents) {
    setWidget(contents);
    contents->setAutoFillBackground(false);
    bar_->raise();
}

void ScrollArea::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    const int x = layoutDirection() == Qt::LeftToRight ? width() - barRoom : 0;
    bar_->setGeometry(x, 0, barRoom, height());
    bar_->raise();
}

void ScrollArea::focusInEvent(QFocusEvent* event) {
    QScrollArea::focusInEvent(event);
    const bool byKeyboard =
        event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (byKeyboard) bar_->setHeldByFocus(true);
}

void ScrollArea::focusOutEvent(QFocusEvent* event) {
    QScrollArea::focusOutEvent(event);
    bar_->setHeldByFocus(false);
}

void ScrollArea::keyPressEvent(QKeyEvent* event) {
    QScrollBar& model = *verticalScrollBar();
    switch (event->key()) {
        case Qt::Key_Home:
            model.setValue(model.minimum());
            break;
        case Qt::Key_End:
            model.setValue(model.maximum());
            break;
        default:
            QScrollArea::keyPressEvent(event);
    }
}

}  // namespace vtx
