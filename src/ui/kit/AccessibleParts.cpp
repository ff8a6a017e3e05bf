// SPDX-License-Identifier: MIT
#include "ui/kit/AccessibleParts.h"

#include <QAccessibleActionInterface>
#include <QAccessibleWidget>
#include <QWidget>
#include <vector>

namespace vtx {

AccessiblePart AccessibleHost::part(int) const { return {}; }
QRect AccessibleHost::partRect(int) const { return {}; }
void AccessibleHost::pressPart(int) {}

namespace {

/// One part of a widget. Owned by the widget's interface, which outlives it.
class PartInterface final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    PartInterface(QAccessibleInterface& owner, int index) : owner_(owner), index_(index) {}

    bool isValid() const override { return host() && index_ < host()->partCount(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* parent() const override { return &owner_; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override {}

    // A value that is no number reaches listeners as the description.
    QString text(QAccessible::Text kind) const override {
        if (!isValid()) return {};
        const AccessiblePart part = host()->part(index_);
        if (kind == QAccessible::Name) return part.name;
        const bool isValue = kind == QAccessible::Value || kind == QAccessible::Description;
        return isValue ? part.value : QString();
    }

    QRect rect() const override {
        if (!isValid()) return {};
        const QRect local = host()->partRect(index_);
        return {widget()->mapToGlobal(local.topLeft()), local.size()};
    }

    QAccessible::Role role() const override {
        return isValid() ? host()->part(index_).role : QAccessible::NoRole;
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        state.invalid = !isValid();
        if (!isValid()) return state;
        const AccessiblePart part = host()->part(index_);
        state.invisible = !widget()->isVisible();
        state.focusable = part.pressable;
        state.focused = widget()->hasFocus() && host()->focusedPart() == index_;
        state.checkable = part.role == QAccessible::RadioButton;
        state.checked = state.checkable && part.selected;
        state.selectable = part.role == QAccessible::PageTab || state.checkable;
        state.selected = part.selected;
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        const bool acts =
            type == QAccessible::ActionInterface && isValid() && host()->part(index_).pressable;
        return acts ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }

    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }
    void doAction(const QString& action) override {
        if (!isValid()) return;
        if (action == setFocusAction()) widget()->setFocus();
        if (action == pressAction()) host()->pressPart(index_);
    }

private:
    QWidget* widget() const { return qobject_cast<QWidget*>(owner_.object()); }
    AccessibleHost* host() const { return dynamic_cast<AccessibleHost*>(owner_.object()); }

    QAccessibleInterface& owner_;
    int index_;
};

/// A widget with its painted parts as children, followed by its child widgets. Owned by the
/// toolkit, for as long as the widget.
class HostInterface final : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    HostInterface(QWidget* widget, QAccessible::Role role) : QAccessibleWidget(widget, role) {}
    ~HostInterface() override {
        for (const QAccessible::Id id : parts_) QAccessible::deleteAccessibleInterface(id);
    }

    int childCount() const override { return partCount() + Base::childCount(); }

    QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= partCount()) return Base::child(index - partCount());
        while (parts_.size() <= static_cast<std::size_t>(index)) {
            auto made = std::make_unique<PartInterface>(const_cast<HostInterface&>(*this),
                                                        static_cast<int>(parts_.size()));
            parts_.push_back(QAccessible::registerAccessibleInterface(made.release()));
        }
        return QAccessible::accessibleInterface(parts_[static_cast<std::size_t>(index)]);
    }

    int indexOfChild(const QAccessibleInterface* wanted) const override {
        for (int i = 0; i < partCount(); ++i) {
            if (child(i) == wanted) return i;
        }
        const int among = Base::indexOfChild(wanted);
        return among < 0 ? among : partCount() + among;
    }

    QAccessibleInterface* childAt(int x, int y) const override {
        for (int i = 0; i < partCount(); ++i) {
            if (child(i)->rect().contains(x, y)) return child(i);
        }
        return Base::childAt(x, y);
    }

    QAccessibleInterface* focusChild() const override {
        const bool isPart = widget()->hasFocus() && host() && host()->focusedPart() >= 0;
        return isPart ? child(host()->focusedPart()) : Base::focusChild();
    }

    QAccessible::State state() const override {
        QAccessible::State state = Base::state();
        const auto checked = host() ? host()->checkedState() : std::nullopt;
        state.checkable = checked.has_value();
        state.checked = checked.value_or(false);
        state.hasPopup = host() && host()->hasMenu();
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface && host() && host()->range())
            return static_cast<QAccessibleValueInterface*>(this);
        return Base::interface_cast(type);
    }

    QVariant currentValue() const override { return range().value; }
    QVariant minimumValue() const override { return range().min; }
    QVariant maximumValue() const override { return range().max; }
    QVariant minimumStepSize() const override { return range().step; }
    void setCurrentValue(const QVariant& value) override {
        if (host() && widget()->isEnabled()) host()->setRangeValue(value.toDouble());
    }

    QStringList actionNames() const override {
        QStringList names = Base::actionNames();
        if (isPressable()) names.prepend(pressAction());
        return names;
    }
    void doAction(const QString& action) override {
        if (action == pressAction() && isPressable()) {
            host()->pressWhole();
        } else {
            Base::doAction(action);
        }
    }

private:
    using Base = QAccessibleWidget;

    AccessibleHost* host() const { return dynamic_cast<AccessibleHost*>(object()); }
    int partCount() const { return host() ? host()->partCount() : 0; }
    bool isPressable() const { return host() && host()->isPressable() && widget()->isEnabled(); }
    AccessibleRange range() const {
        return (host() ? host()->range() : std::nullopt).value_or(AccessibleRange{});
    }

    mutable std::vector<QAccessible::Id> parts_;
};

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    auto* host = dynamic_cast<AccessibleHost*>(object);
    if (!widget || !host) return nullptr;
    return std::make_unique<HostInterface>(widget, host->accessibleRole()).release();
}

void announce(QWidget& widget, int index, QAccessible::Event what) {
    if (!QAccessible::isActive()) return;
    QAccessibleInterface* owner = QAccessible::queryAccessibleInterface(&widget);
    QAccessibleInterface* part = owner ? owner->child(index) : nullptr;
    if (!part) return;
    QAccessibleEvent event(part, what);
    QAccessible::updateAccessibility(&event);
}

}  // namespace

namespace accessibility {

void install() { QAccessible::installFactory(makeInterface); }

void announceFocus(QWidget& widget, int index) { announce(widget, index, QAccessible::Focus); }

void announceValue(QWidget& widget, int index) {
    announce(widget, index, QAccessible::DescriptionChanged);
}

void announceChecked(QWidget& widget) {
    if (!QAccessible::isActive()) return;
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(&widget, changed);
    QAccessible::updateAccessibility(&event);
}

void announceRange(QWidget& widget, double value) {
    if (!QAccessible::isActive()) return;
    QAccessibleValueChangeEvent event(&widget, value);
    QAccessible::updateAccessibility(&event);
}

}  // namespace accessibility

}  // namespace vtx
