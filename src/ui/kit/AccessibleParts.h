// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QRect>
#include <QString>

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
};

namespace accessibility {

/// Teaches the toolkit to speak for every AccessibleHost. Any number of times.
void install();

/// Tells listeners, where there are any, that a part took the keyboard focus, or that its value is
/// another now.
void announceFocus(QWidget& widget, int index);
void announceValue(QWidget& widget, int index);

}  // namespace accessibility

}  // namespace vtx
