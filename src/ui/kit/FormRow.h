// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <memory>
#include <vector>

#include "ui/kit/KitWidget.h"
#include "ui/kit/Tooltip.h"

namespace vtx {

class FormNote;
class Slider;

/// Whether a control is called by its row's label or brings a name of its own.
enum class ControlName : quint8 { byLabel, own };

/// One row of a form: a label, its controls at the other end, and below them, each where there is
/// one, a slider with its value and an explanation. A label without enough room beside the controls
/// goes above them, and wraps. Grouping for assistive technology: the controls speak for
/// themselves, by the label's name.
class FormRow : public KitWidget {
public:
    explicit FormRow(QWidget* parent = nullptr);

    void setLabel(const QString& label);
    /// In the place of a control, such as a version.
    void setValue(const QString& value);
    void setNote(const QString& note);
    /// Adds a control behind those there are, and becomes its parent.
    void addControl(QWidget* control, ControlName name = ControlName::byLabel);
    /// A control that is as wide as the row, such as buttons side by side.
    void setWideControl(QWidget* control);
    void setSlider(Slider* slider, int valueWidth);
    void setSliderValue(const QString& text);
    void setSliderShown(bool shown);
    /// A word of explanation for the pointer that rests here; none where it is empty.
    void setTip(const QString& tip);
    [[nodiscard]] Slider* slider() const { return slider_; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {}; }
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;

    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::Grouping;
    }
    /// What is written without a control of its own.
    [[nodiscard]] int partCount() const override { return value_.isEmpty() ? 0 : 1; }
    [[nodiscard]] AccessiblePart part(int index) const override;
    [[nodiscard]] QRect partRect(int index) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    struct Plan {
        QRect label, head, wide, slider, sliderValue, note;
        int controlsTop = 0;
        int height = 0;
    };

    [[nodiscard]] Plan plan(int width) const;
    [[nodiscard]] int controlsWidth() const;
    void place();
    void contentsChanged();

    QString label_;
    QString value_;
    QString sliderValue_;
    int sliderValueWidth_ = 0;
    QString tip_;
    std::unique_ptr<HoverTip> hoverTip_;
    std::vector<QWidget*> controls_;
    std::vector<QWidget*> namedByLabel_;
    QWidget* wide_ = nullptr;
    Slider* slider_ = nullptr;
    FormNote* note_ = nullptr;
};

}  // namespace vtx
