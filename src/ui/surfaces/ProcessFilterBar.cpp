// SPDX-License-Identifier: MIT
#include "ui/surfaces/ProcessFilterBar.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>

#include "ui/kit/Button.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Symbol.h"
#include "ui/kit/TextField.h"
#include "ui/models/ProcessTabModel.h"
#include "ui/surfaces/QtText.h"

namespace vtx {

namespace {
constexpr int fieldLeft = metrics::contentInset + metrics::fieldSymbol + metrics::symbolToTitle;
/// The button keeps room around its shape for the focus ring.
constexpr int right = metrics::contentInset - metrics::focusReach;
}  // namespace

ProcessFilterBar::ProcessFilterBar(QWidget* parent)
    : KitWidget(parent),
      field_(new TextField(TextField::Frame::plain, this)),
      refresh_(new Button(ButtonKind::quiet, this)),
      tip_(*this) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    field_->setPlaceholder(qt(processTexts::filter));
    refresh_->setSymbol(QStringLiteral("arrow.clockwise"));
    refresh_->setAccessibleName(qt(processTexts::refresh));
    refresh_->installEventFilter(this);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(fieldLeft, 0, right, 1);
    layout->setSpacing(0);
    layout->addWidget(field_, 1);
    layout->addWidget(refresh_);
}

QSize ProcessFilterBar::sizeHint() const {
    return {metrics::popoverWidth, metrics::sectionBarHeight};
}

void ProcessFilterBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paint::separator(painter, 0, width(), height(), color(ColorToken::separator));
    const QRect symbol(metrics::contentInset, 0, metrics::fieldSymbol, height() - 1);
    symbols::draw(painter, mirrored(symbol), QStringLiteral("magnifyingglass"),
                  metrics::fieldSymbol, color(ColorToken::text2));
}

void ProcessFilterBar::hideEvent(QHideEvent*) { tip_.dismiss(); }

bool ProcessFilterBar::eventFilter(QObject* object, QEvent* event) {
    if (object == refresh_) {
        const auto type = event->type();
        if (type == QEvent::Enter)
            tip_.pointAt(refresh_->shape().translated(refresh_->pos()), qt(processTexts::refresh));
        if (type == QEvent::Leave || type == QEvent::MouseButtonPress) tip_.dismiss();
    }
    return KitWidget::eventFilter(object, event);
}

}  // namespace vtx
