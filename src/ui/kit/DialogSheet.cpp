// SPDX-License-Identifier: MIT
#include "ui/kit/DialogSheet.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <algorithm>

#include "ui/kit/Button.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Symbol.h"
#include "ui/kit/WrappedText.h"

namespace vtx {

namespace {

constexpr int padding = metrics::dialogPadding;
constexpr int titleSymbolRoom = metrics::titleSymbol + metrics::symbolToTitle;

Button* makeButton(ButtonKind kind, const QString& text, QWidget* parent) {
    auto* button = new Button(kind, parent);
    button->setText(text);
    button->setFixedHeight(metrics::dialogButtonHeight + 2 * metrics::focusReach);
    return button;
}

}  // namespace

DialogSheet::DialogSheet(QWidget& over, const DialogContent& content, int cornerRadius)
    : KitWidget(&over),
      content_(content),
      cornerRadius_(cornerRadius),
      primary_(makeButton(ButtonKind::primary, content.primary, this)) {
    setAccessibleName(content.title);
    setAccessibleDescription(content.message);
    connect(primary_, &Button::pressed, this, [this] { answer(Answer::accepted); });
    if (!content.cancel.isEmpty()) {
        cancel_ = makeButton(ButtonKind::standard, content.cancel, this);
        connect(cancel_, &Button::pressed, this, [this] { answer(Answer::dismissed); });
        setTabOrder(cancel_, primary_);
    }
    over.installEventFilter(this);
    setGeometry(over.rect());
    raise();
    show();
    primary_->setFocus(Qt::OtherFocusReason);
}

DialogSheet::~DialogSheet() = default;

DialogSheet::Layout DialogSheet::layOut() const {
    const int width = std::min(metrics::dialogWidth, this->width() - 2 * metrics::dialogMargin);
    const int text = width - 2 * padding;
    const int indent = content_.symbol.isEmpty() ? 0 : titleSymbolRoom;
    const int title = wrapped::height(content_.title, TextRole::sectionHead, text - indent);
    const int message = wrapped::height(content_.message, TextRole::caption, text);
    const int height = 2 * padding + title + metrics::dialogTitleToMessage + message +
                       metrics::dialogMessageToButtons + metrics::dialogButtonHeight;
    const QRect dialog((this->width() - width) / 2, (this->height() - height) / 2, width, height);
    const QRect inner = dialog.adjusted(padding, padding, -padding, -padding);
    return {dialog,
            {inner.left() + indent, inner.top(), text - indent, title},
            {inner.left(), inner.top() + title + metrics::dialogTitleToMessage, text, message}};
}

QRect DialogSheet::shape() const { return layOut().dialog; }

void DialogSheet::resizeEvent(QResizeEvent*) {
    const QRect dialog = layOut().dialog;
    constexpr int reach = metrics::focusReach;
    int right = dialog.right() + 1 - padding;
    for (Button* button : {primary_, cancel_}) {
        if (!button) continue;
        const QSize size(button->sizeHint().width(), button->height());
        const QRect place(right - size.width() + reach,
                          dialog.bottom() + 1 - padding - size.height() + reach, size.width(),
                          size.height());
        button->setGeometry(mirrored(place));
        right -= size.width() - 2 * reach + metrics::dialogButtonGap;
    }
}

void DialogSheet::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paint::fillRounded(painter, rect(), cornerRadius_, withOpacity(Qt::black, metrics::dialogDim));
    const Layout at = layOut();
    paint::fillRounded(painter, at.dialog, metrics::radiusWindow, color(ColorToken::raised));
    paint::outline(painter, at.dialog, metrics::radiusWindow, color(ColorToken::borderStrong),
                   paint::hairline(painter));
    if (!content_.symbol.isEmpty()) {
        const QRect symbol(at.title.left() - titleSymbolRoom, at.title.top(), metrics::titleSymbol,
                           lineHeight(TextRole::sectionHead));
        symbols::draw(painter, mirrored(symbol), content_.symbol, metrics::titleSymbol,
                      color(ColorToken::orange));
    }
    painter.setPen(color(ColorToken::text1));
    wrapped::draw(painter, mirrored(at.title), content_.title, TextRole::sectionHead, atStart());
    painter.setPen(color(ColorToken::text2));
    wrapped::draw(painter, mirrored(at.message), content_.message, TextRole::caption, atStart());
}

void DialogSheet::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key == Qt::Key_Escape) answer(cancel_ ? Answer::dismissed : Answer::accepted);
    if (key == Qt::Key_Return || key == Qt::Key_Enter) answer(Answer::accepted);
    event->accept();  // whatever lies below must not hear of it
}

void DialogSheet::mousePressEvent(QMouseEvent* event) {
    KitWidget::mousePressEvent(event);
    event->accept();
}

void DialogSheet::wheelEvent(QWheelEvent* event) { event->accept(); }

bool DialogSheet::eventFilter(QObject* object, QEvent* event) {
    if (object == parent() && event->type() == QEvent::Resize) setGeometry(parentWidget()->rect());
    return KitWidget::eventFilter(object, event);
}

bool DialogSheet::focusNextPrevChild(bool next) {
    if (!cancel_) {
        primary_->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        return true;
    }
    Button* target = primary_->hasFocus() ? cancel_ : primary_;
    target->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

void DialogSheet::answer(Answer given) {
    if (isAnswered_) return;
    isAnswered_ = true;
    hide();
    deleteLater();
    if (given == Answer::accepted)
        Q_EMIT accepted();
    else
        Q_EMIT dismissed();
}

}  // namespace vtx
