// SPDX-License-Identifier: MIT
#include "ui/kit/FormRow.h"

#include <QEvent>
#include <QLayout>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "ui/kit/FormNote.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/Slider.h"
#include "ui/kit/Type.h"
#include "ui/kit/WrappedText.h"

namespace vtx {

namespace {

constexpr int inset = metrics::formInset;
// Controls bring the room of their focus ring with them.
constexpr int reach = metrics::focusReach;
constexpr TextRole labelRole = TextRole::body;
constexpr TextRole valueRole = TextRole::body;
constexpr TextRole sliderRole = TextRole::keyValue;

int heightOf(const QWidget& widget, int width) {
    return widget.hasHeightForWidth() ? widget.heightForWidth(width) : widget.sizeHint().height();
}

}  // namespace

FormRow::FormRow(QWidget* parent) : KitWidget(parent) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void FormRow::setLabel(const QString& label) {
    if (label_ == label) return;
    label_ = label;
    setAccessibleName(label);
    for (QWidget* control : namedByLabel_) control->setAccessibleName(label);
    contentsChanged();
}

void FormRow::setValue(const QString& value) {
    if (value_ == value) return;
    value_ = value;
    contentsChanged();
}

void FormRow::setNote(const QString& note) {
    if (!note_ && note.isEmpty()) return;
    if (!note_) note_ = new FormNote(this);
    note_->setText(note);
    contentsChanged();
}

void FormRow::addControl(QWidget* control, ControlName name) {
    control->setParent(this);
    controls_.push_back(control);
    if (name == ControlName::byLabel) {
        control->setAccessibleName(label_);
        namedByLabel_.push_back(control);
    }
    contentsChanged();
}

void FormRow::setWideControl(QWidget* control) {
    wide_ = control;
    control->setParent(this);
    contentsChanged();
}

void FormRow::setSlider(Slider* slider, int valueWidth) {
    slider_ = slider;
    slider->setParent(this);
    slider->setAccessibleName(label_);
    namedByLabel_.push_back(slider);
    sliderValueWidth_ = valueWidth;
    contentsChanged();
}

void FormRow::setSliderValue(const QString& text) {
    if (sliderValue_ == text) return;
    sliderValue_ = text;
    slider_->setSpokenValue(text);
    update();
}

void FormRow::setSliderShown(bool shown) {
    if (!slider_ || slider_->isVisibleTo(this) == shown) return;
    slider_->setVisible(shown);
    contentsChanged();
}

void FormRow::setTip(const QString& tip) {
    if (tip_ == tip) return;
    tip_ = tip;
    if (hoverTip_) hoverTip_->dismiss();
    // Whoever has no pointer hears it with the control that it is about.
    setAccessibleDescription(tip);
    for (QWidget* control : controls_) control->setAccessibleDescription(tip);
}

void FormRow::enterEvent(QEnterEvent*) {
    if (tip_.isEmpty()) return;
    if (!hoverTip_) hoverTip_ = std::make_unique<HoverTip>(*this);
    hoverTip_->pointAt(rect(), tip_);
}

void FormRow::leaveEvent(QEvent*) {
    if (hoverTip_) hoverTip_->dismiss();
}

void FormRow::hideEvent(QHideEvent* event) {
    if (hoverTip_) hoverTip_->dismiss();
    KitWidget::hideEvent(event);
}

void FormRow::contentsChanged() {
    updateGeometry();
    place();
    update();
}

int FormRow::controlsWidth() const {
    int width = 0;
    for (const QWidget* control : controls_)
        if (control->isVisibleTo(this)) width += control->sizeHint().width() - 2 * reach;
    if (value_.isEmpty()) return width;
    return width + static_cast<int>(std::ceil(textWidth(value_, valueRole)));
}

FormRow::Plan FormRow::plan(int width) const {
    Plan plan;
    const int inner = width - 2 * inset;
    const int taken = controlsWidth();
    const int beside = inner - taken - (taken > 0 ? metrics::labelToValue : 0);
    const bool isStacked =
        taken > 0 && beside < metrics::formLabelLeast && textWidth(label_, labelRole) > beside;
    const int labelWidth = isStacked ? inner : beside;
    const int labelHeight = wrapped::height(label_, labelRole, labelWidth);
    const int line = lineHeight(labelRole);
    const int padding = (metrics::formRowHeight - line) / 2;
    int y = 0;
    const bool hasHead = !label_.isEmpty() || taken > 0;
    if (hasHead) {
        plan.label = {inset, padding, labelWidth, std::max(line, labelHeight)};
        y = plan.label.bottom() + 1 + padding;
        plan.controlsTop = isStacked ? y - padding : 0;
        if (isStacked) y += metrics::formRowHeight - padding;
        plan.head = {inset, plan.controlsTop, inner, y - plan.controlsTop};
    }
    if (wide_) {
        const int least = heightOf(*wide_, inner + 2 * reach);
        const int free = std::max(metrics::formRowHeight - least, metrics::formWideRoom);
        plan.wide = {inset - reach, y + free / 2, inner + 2 * reach, least};
        y = plan.wide.bottom() + 1 + free - free / 2;
    }
    if (slider_ && slider_->isVisibleTo(this)) {
        const int top = y - (metrics::formRowHeight - metrics::formSliderTop);
        const int value = sliderValueWidth_;
        plan.slider = {inset, top, inner - value - metrics::formSliderGap, metrics::sliderHeight};
        plan.sliderValue = {width - inset - value, top, value, metrics::sliderHeight};
        y = plan.slider.bottom() + 1 + metrics::formSliderBottom;
    }
    if (note_ && note_->isVisibleTo(this)) {
        // Beneath a label the row's own padding is room enough.
        const int spare = hasHead ? metrics::formRowHeight - metrics::formSecondLine : 0;
        const int top = hasHead || wide_ ? y - spare : metrics::formNotePadding;
        plan.note = {inset, top, inner, note_->heightForWidth(inner)};
        y = plan.note.bottom() + 1 + metrics::formNotePadding;
    }
    plan.height = y;
    return plan;
}

int FormRow::heightForWidth(int width) const { return plan(width).height; }

QSize FormRow::sizeHint() const {
    constexpr int width = metrics::popoverWidth - 2 * metrics::contentInset;
    return {width, heightForWidth(width)};
}

void FormRow::place() {
    const Plan placed = plan(width());
    int right = width() - inset + reach;
    for (auto control = controls_.rbegin(); control != controls_.rend(); ++control) {
        if (!(*control)->isVisibleTo(this)) continue;
        const QSize wanted = (*control)->sizeHint();
        const int room = std::max(0, right - inset + reach);
        const QSize size(std::min(wanted.width(), room), wanted.height());
        const int top = placed.controlsTop + (metrics::formRowHeight - size.height()) / 2;
        (*control)->setGeometry(mirrored({right - size.width(), top, size.width(), size.height()}));
        right -= size.width() - 2 * reach + metrics::labelToValue;
    }
    if (wide_) wide_->setGeometry(mirrored(placed.wide));
    if (slider_) slider_->setGeometry(mirrored(placed.slider));
    if (note_) note_->setGeometry(mirrored(placed.note));
}

void FormRow::resizeEvent(QResizeEvent* event) {
    KitWidget::resizeEvent(event);
    place();
}

// A control that wants another size, such as a menu button with another choice.
bool FormRow::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) {
        updateGeometry();
        place();
    }
    return KitWidget::event(event);
}

void FormRow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Plan placed = plan(width());
    painter.setPen(color(isEnabled() ? ColorToken::text1 : ColorToken::disabled));
    wrapped::draw(painter, mirrored(placed.label), label_, labelRole, atStart());
    if (slider_ && slider_->isVisibleTo(this))
        drawTabular(painter, mirrored(placed.sliderValue), sliderValue_, sliderRole, atEnd());
    painter.setPen(color(ColorToken::text2));
    if (!value_.isEmpty()) drawValue(painter, mirrored(placed.head), value_, valueRole, atEnd());
}

AccessiblePart FormRow::part(int) const { return {.name = label_, .value = value_}; }

QRect FormRow::partRect(int) const { return rect(); }

}  // namespace vtx
