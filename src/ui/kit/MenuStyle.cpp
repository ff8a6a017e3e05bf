// SPDX-License-Identifier: MIT
#include "ui/kit/MenuStyle.h"

#include <QAction>
#include <QMenu>
#include <QPainter>
#include <QStyleOption>
#include <algorithm>
#include <cmath>

#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Symbol.h"
#include "ui/kit/Theme.h"
#include "ui/kit/Type.h"

namespace vtx {

namespace {

constexpr int rowHeight = 25;
constexpr int separatorHeight = 9;
/// Between the menu's outline and its rows.
constexpr int margin = 5;
/// Between a row's end and its text, and at least between title and shortcut.
constexpr int rowInset = 10;
constexpr int shortcutGap = 24;
constexpr int symbolSize = 14;
constexpr int symbolColumn = symbolSize + 8;
/// With the room in front of it.
constexpr int checkColumn = 12 + 18;
constexpr auto checkMark = "checkmark";

struct RowText {
    QString title, shortcut;
};

RowText textOf(const QStyleOptionMenuItem& row) {
    const auto tab = row.text.indexOf('\t');
    const QString title = tab < 0 ? row.text : row.text.left(tab);
    return {QString(title).replace("&&", "&"), tab < 0 ? QString() : row.text.mid(tab + 1)};
}

QColor rowColor(const QStyleOptionMenuItem& row, bool selected) {
    if (!row.state.testFlag(QStyle::State_Enabled))
        return Theme::current().color(ColorToken::disabled);
    return Theme::current().color(selected ? ColorToken::onAccent : ColorToken::text1);
}

QString symbolOf(const QAction* action) { return action ? action->data().toString() : QString(); }

/// The symbol of the row that lies there.
QString symbolAt(const QWidget* menu, const QRect& row) {
    const auto* shown = qobject_cast<const QMenu*>(menu);
    return shown ? symbolOf(shown->actionAt(row.center())) : QString();
}

/// Where one row has a symbol, the texts of all begin behind it.
bool hasSymbols(const QWidget* menu) {
    const auto actions = menu ? menu->actions() : QList<QAction*>();
    return std::ranges::any_of(actions,
                               [](const QAction* action) { return !symbolOf(action).isEmpty(); });
}

bool canBeChecked(const QStyleOptionMenuItem& row) {
    return row.checkType != QStyleOptionMenuItem::NotCheckable;
}

void drawRow(const QStyleOptionMenuItem& row, QPainter& painter, const QWidget* widget) {
    const Theme& theme = Theme::current();
    if (row.menuItemType == QStyleOptionMenuItem::Separator) {
        const QPen pen(theme.color(ColorToken::separator), 1);
        const double y = std::floor(QRectF(row.rect).center().y()) + 0.5;
        painter.setPen(pen);
        painter.drawLine(QPointF(row.rect.left() + rowInset, y),
                         QPointF(row.rect.right() + 1 - rowInset, y));
        return;
    }
    const bool enabled = row.state.testFlag(QStyle::State_Enabled);
    const bool selected = enabled && row.state.testFlag(QStyle::State_Selected);
    if (selected) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme.color(ColorToken::accent));
        painter.drawRoundedRect(row.rect, metrics::radiusSegment, metrics::radiusSegment);
    }
    QRectF inner = QRectF(row.rect).adjusted(rowInset, 0, -rowInset, 0);
    const QColor ink = rowColor(row, selected);
    if (hasSymbols(widget)) {
        symbols::draw(painter, QRectF(inner.left(), inner.top(), symbolSize, inner.height()),
                      symbolAt(widget, row.rect), symbolSize, ink);
        inner.setLeft(inner.left() + symbolColumn);
    }
    if (canBeChecked(row) && row.checked)
        symbols::draw(painter,
                      QRectF(inner.right() - symbolSize, inner.top(), symbolSize, inner.height()),
                      checkMark, symbolSize, ink);
    const auto [title, shortcut] = textOf(row);
    painter.setPen(ink);
    drawText(painter, inner, title, TextRole::body);
    if (!selected && enabled) painter.setPen(theme.color(ColorToken::text2));
    drawText(painter, inner, shortcut, TextRole::body, Qt::AlignRight | Qt::AlignVCenter);
}

}  // namespace

MenuStyle::MenuStyle() : QProxyStyle("fusion") {}

MenuStyle* MenuStyle::shared() {
    static MenuStyle style;
    return &style;
}

void MenuStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    const auto* row = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element == CE_MenuItem && row) {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        drawRow(*row, *painter, widget);
        painter->restore();
    } else if (element != CE_MenuEmptyArea) {
        QProxyStyle::drawControl(element, option, painter, widget);
    }
}

void MenuStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const {
    if (element == PE_FrameMenu) return;
    if (element != PE_PanelMenu) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    const Theme& theme = Theme::current();
    const QRectF ground = option->rect;
    // Nothing shines through the pixels along the cut, which the outline covers in part.
    if (widget->window()->property(paint::cutOutProperty).toBool())
        painter->fillRect(ground, theme.color(ColorToken::raised));
    paint::fillRounded(*painter, ground, metrics::radiusMenu, theme.color(ColorToken::raised));
    paint::outline(*painter, ground, metrics::radiusMenu, theme.color(ColorToken::borderStrong),
                   paint::hairline(*painter));
}

int MenuStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                           const QWidget* widget) const {
    switch (metric) {
        case PM_MenuHMargin:
        case PM_MenuVMargin:
            return margin;
        case PM_MenuPanelWidth:
            return 0;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

QSize MenuStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                  const QWidget* widget) const {
    const auto* row = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type != CT_MenuItem || !row)
        return QProxyStyle::sizeFromContents(type, option, size, widget);
    if (row->menuItemType == QStyleOptionMenuItem::Separator) return {rowInset, separatorHeight};
    const auto [title, shortcut] = textOf(*row);
    double width = textWidth(title, TextRole::body) + 2 * rowInset;
    if (!shortcut.isEmpty()) width += shortcutGap;  // the menu itself adds the shortcut's width
    if (hasSymbols(widget)) width += symbolColumn;
    if (canBeChecked(*row)) width += checkColumn;
    return {static_cast<int>(std::ceil(width)), rowHeight};
}

int MenuStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* returned) const {
    switch (hint) {
        case SH_Menu_MouseTracking:
        case SH_Menu_KeyboardSearch:
            return 1;
        case SH_Menu_FadeOutOnHide:
        case SH_Menu_FlashTriggeredItem:
        case SH_UnderlineShortcut:
            return 0;
        default:
            return QProxyStyle::styleHint(hint, option, widget, returned);
    }
}

}  // namespace vtx
