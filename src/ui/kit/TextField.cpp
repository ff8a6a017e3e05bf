// SPDX-License-Identifier: MIT
#include "ui/kit/TextField.h"

#include <QAction>
#include <QIcon>
#include <QKeyEvent>
#include <QPainter>
#include <QPixmap>
#include <QProxyStyle>

#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Symbol.h"
#include "ui/kit/Theme.h"
#include "ui/kit/Type.h"

namespace vtx {

namespace {

/// Leaves out what the field draws itself: its ground and the caret, which would blink.
class FieldStyle final : public QProxyStyle {
public:
    FieldStyle() : QProxyStyle("fusion") {}

    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override {
        if (metric == PM_TextCursorWidth) return 0;
        if (metric == PM_SmallIconSize) return metrics::fieldSymbol;
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        if (element == PE_PanelLineEdit) return;
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
};

/// One for every field: a style is a large object.
QStyle* fieldStyle() {
    static FieldStyle style;
    return &style;
}

QIcon clearIcon() {
    QIcon icon;
    for (const qreal scale : {1.0, 2.0}) {
        QPixmap picture = QPixmap::fromImage(symbols::image(
            "xmark", metrics::fieldSymbol, Theme::current().color(ColorToken::text3), scale));
        picture.setDevicePixelRatio(scale);
        icon.addPixmap(picture);
    }
    return icon;
}

}  // namespace

TextField::TextField(Frame frame, QWidget* parent)
    : QLineEdit(parent), frame_(frame), clear_(addAction(QIcon(), TrailingPosition)) {
    setStyle(fieldStyle());
    setFrame(false);
    setFont(fontFor(TextRole::body));
    setAttribute(Qt::WA_MacShowFocusRect, false);
    setContextMenuPolicy(Qt::NoContextMenu);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFixedHeight(metrics::fieldHeight);
    const int padding = frame == Frame::box ? metrics::fieldPadding : 0;
    setTextMargins(padding, 0, padding, 0);
    clear_->setVisible(false);
    connect(clear_, &QAction::triggered, this, &QLineEdit::clear);
    connect(this, &QLineEdit::textChanged, this,
            [this](const QString& text) { clear_->setVisible(!text.isEmpty()); });
    connect(&Theme::current(), &Theme::changed, this, &TextField::applyTheme);
    applyTheme();
}

void TextField::setPlaceholder(const QString& text) {
    setPlaceholderText(text);
    setAccessibleName(text);
}

QSize TextField::sizeHint() const { return {metrics::cardContentWidth / 2, metrics::fieldHeight}; }

void TextField::applyTheme() {
    const Theme& theme = Theme::current();
    QPalette colors = palette();
    colors.setColor(QPalette::Base, Qt::transparent);
    colors.setColor(QPalette::Text, theme.color(ColorToken::text1));
    colors.setColor(QPalette::PlaceholderText, theme.color(ColorToken::text3));
    colors.setColor(QPalette::Highlight, theme.color(ColorToken::accent));
    colors.setColor(QPalette::HighlightedText, theme.color(ColorToken::onAccent));
    colors.setColor(QPalette::Disabled, QPalette::Text, theme.color(ColorToken::disabled));
    setPalette(colors);
    clear_->setIcon(clearIcon());
    update();
}

void TextField::paintEvent(QPaintEvent* event) {
    const Theme& theme = Theme::current();
    if (frame_ == Frame::box) {
        QPainter painter(this);
        paint::fillRounded(painter, rect(), metrics::radiusButton, theme.color(ColorToken::field));
        paint::outline(painter, rect(), metrics::radiusButton,
                       theme.color(ColorToken::borderStrong), paint::hairline(painter));
        if (hasFocus()) paint::focusRingInside(painter, rect(), metrics::radiusButton);
    }
    QLineEdit::paintEvent(event);
    if (!hasFocus() || hasSelectedText()) return;
    QPainter painter(this);
    const QRectF place = cursorRect();
    const double x = place.center().x() - metrics::caretWidth / 2;
    painter.fillRect(QRectF(x, place.top(), metrics::caretWidth, place.height()),
                     theme.color(ColorToken::accent));
}

void TextField::keyPressEvent(QKeyEvent* event) {
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (isPlain && event->key() == Qt::Key_Escape && !text().isEmpty()) {
        clear();
        return;
    }
    if (isPlain && event->key() == Qt::Key_Down) {
        Q_EMIT movedDown();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

}  // namespace vtx
