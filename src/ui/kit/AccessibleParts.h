// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QRect>
#include <QString>
#include <optional>

class QWidget;

namespace vtx {

/// One element of a painted widget as assistive technology hears it.
struct AccessiblePart {
    QString name;
    /// Spoken after the name; empty for a part that has none.
    QString value;
    QAccessible::Role role = QAccessible::StaticText;
    bool pressable = false;
    bool selected = false;
};

/// Where a control that is set within bounds stands.
struct AccessibleRange {
    double value = 0;
    double min = 0;
    double max = 0;
    double step = 0;
};

/// What a widget that paints its elements itself tells about them. Implemented by widgets; asked
/// only while assistive technology listens.
class AccessibleHost {
public:
    AccessibleHost() = default;
    AccessibleHost(const AccessibleHost&) = delete;
    AccessibleHost& operator=(const AccessibleHost&) = delete;
    virtual ~AccessibleHost() = default;

    [[nodiscard]] virtual QAccessible::Role accessibleRole() const = 0;
    [[nodiscard]] virtual int partCount() const { return 0; }
    /// `index` is below partCount().
    [[nodiscard]] virtual AccessiblePart part(int index) const;
    /// In the widget's own coordinates.
    [[nodiscard]] virtual QRect partRect(int index) const;
    /// The part that the keyboard acts on, -1 for none.
    [[nodiscard]] virtual int focusedPart() const { return -1; }
    virtual void pressPart(int index);

    /// For a widget that is one control as a whole: what pressing it does.
    [[nodiscard]] virtual bool isPressable() const { return false; }
    virtual void pressWhole() {}
    /// Whether it is on, for a control that is on or off.
    [[nodiscard]] virtual std::optional<bool> checkedState() const { return std::nullopt; }
    /// For a control that is set within bounds, and how it is set.
    [[nodiscard]] virtual std::optional<AccessibleRange> range() const { return std::nullopt; }
    virtual void setRangeValue(double /*value*/) {}
    /// Whether pressing it opens a menu.
    [[nodiscard]] virtual bool hasMenu() const { return false; }
};

namespace accessibility {

/// Teaches the toolkit to speak for every AccessibleHost. Any number of times.
void install();

/// Tells listeners, where there are any, that a part took the keyboard focus, or that its value is
/// another now.
void announceFocus(QWidget& widget, int index);
void announceValue(QWidget& widget, int index);

/// The same for a widget that is one control: that it is on or off now, or where it stands.
void announceChecked(QWidget& widget);
void announceRange(QWidget& widget, double value);

}  // namespace accessibility

}  // namespace vtx
