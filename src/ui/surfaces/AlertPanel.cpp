// SPDX-License-Identifier: MIT
#include "ui/surfaces/AlertPanel.h"

#include <QKeyEvent>
#include <QVBoxLayout>

#include "ui/kit/Button.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/TextBlock.h"

namespace vtx {
namespace {

constexpr int panelWidth = 304;
constexpr int padding = 20;
constexpr int gap = 10;
constexpr QLatin1String warning("exclamationmark.triangle.fill");
// The same in every language.
constexpr auto dismissText = "OK";

QWidget* block(const QString& text, TextRole role, ColorToken color) {
    auto* made = new TextBlock;
    made->setContent({.text = text, .color = color, .role = role});
    return made;
}

}  // namespace

AlertPanel::AlertPanel(const QString& title, const QString& message, QWidget* parent,
                       const QString& symbol)
    : Surface(parent), dismiss_(new Button(ButtonKind::primary)) {
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    setWindowModality(Qt::WindowModal);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(title);
    setAccessibleName(title);
    setAccessibleDescription(message);
    auto* heading = new TextBlock;
    heading->setContent(
        {.text = title,
         .color = ColorToken::text1,
         .role = TextRole::sectionHead,
         .symbol = symbol,
         .symbolColor = symbol == warning ? ColorToken::orange : ColorToken::accent});
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(padding, padding, padding - metrics::focusReach,
                               padding - metrics::focusReach);
    column->setSpacing(gap);
    column->addWidget(heading);
    column->addWidget(block(message, TextRole::caption, ColorToken::text2));
    column->addSpacing(gap);
    column->addWidget(dismiss_, 0, Qt::AlignRight);
    dismiss_->setText(dismissText);
    connect(dismiss_, &Button::pressed, this, &QWidget::close);
    // Not every window manager gives the keyboard back to the window from which it came.
    if (parent)
        connect(this, &QObject::destroyed, parent,
                [owner = parent->window()] { owner->activateWindow(); });
    setFixedWidth(panelWidth);
    setFixedHeight(column->totalHeightForWidth(panelWidth));
    dismiss_->setFocus();
}

void AlertPanel::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Escape:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            close();
            break;
        default:
            Surface::keyPressEvent(event);
    }
}

}  // namespace vtx
