// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>
#include <map>
#include <string>

#include "platform/UserDefaults.h"
#include "ui/shell/WindowSystem.h"

namespace vtx {

/// A window system that grants everything and writes down what it was asked for.
class FakeWindowSystem final : public WindowSystem {
public:
    bool blends = true;
    /// Empty for those of the toolkit.
    StripPlacement::Screens desktop;
    int cuts = 0;
    QPoint pointerAt{-1, -1};
    std::vector<Strut> others;
    std::vector<std::optional<Strut>> reserved;
    int strips = 0;
    int popovers = 0;
    int floating = 0;
    std::function<void(QPoint)> pressed;
    bool userWorksElsewhere = true;
    int broughtHere = 0;

    [[nodiscard]] bool placesWindows() const override { return true; }
    [[nodiscard]] bool blendsWindows() const override { return blends; }
    [[nodiscard]] StripPlacement::Screens screens() const override {
        return desktop.empty() ? WindowSystem::screens() : desktop;
    }
    void cutOut(QWidget& window, const QPainterPath& path) override {
        ++cuts;
        WindowSystem::cutOut(window, path);
    }
    void makeStrip(QWidget& window) override { strips += window.isVisible() ? 100 : 1; }
    void makePopover(QWidget& window) override { popovers += window.isVisible() ? 100 : 1; }
    void bringHere(QWidget&) override { ++broughtHere; }
    void makeFloating(QWidget& window) override { floating += window.isVisible() ? 100 : 1; }
    void reserve(QWidget&, const std::optional<Strut>& strut) override {
        reserved.push_back(strut);
    }
    [[nodiscard]] std::vector<Strut> reservations(const QWidget&) const override { return others; }
    [[nodiscard]] QPoint pointer() const override { return pointerAt; }
    [[nodiscard]] bool worksElsewhere(const QWidget&) const override { return userWorksElsewhere; }
    [[nodiscard]] Subscription watchPresses(std::function<void(QPoint)> told) override {
        pressed = std::move(told);
        return Subscription([this] { pressed = nullptr; });
    }
};

/// Settings in memory.
class FakeUserDefaults final : public UserDefaults {
public:
    std::map<std::string, Data, std::less<>> values;

    [[nodiscard]] std::optional<Data> data(std::string_view key) const override {
        const auto found = values.find(key);
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }
    void setData(std::string_view key, Data value) override {
        values.insert_or_assign(std::string(key), std::move(value));
    }
    void remove(std::string_view key) override {
        if (const auto found = values.find(key); found != values.end()) values.erase(found);
    }
};

inline void sendMouse(QWidget& to, QEvent::Type type, QPoint desktop, Qt::MouseButton button,
                      Qt::KeyboardModifiers modifiers = {}) {
    const QPointF local = to.mapFromGlobal(desktop);
    const bool up = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, local, desktop, type == QEvent::MouseMove ? Qt::NoButton : button,
                      up ? Qt::NoButton : button, modifiers);
    QApplication::sendEvent(&to, &event);
}

inline void press(QWidget& to, QPoint at, Qt::MouseButton button = Qt::LeftButton) {
    sendMouse(to, QEvent::MouseButtonPress, at, button);
}

inline void release(QWidget& to, QPoint at, Qt::MouseButton button = Qt::LeftButton,
                    Qt::KeyboardModifiers modifiers = {}) {
    sendMouse(to, QEvent::MouseButtonRelease, at, button, modifiers);
}

inline void move(QWidget& to, QPoint at) { sendMouse(to, QEvent::MouseMove, at, Qt::LeftButton); }

inline void pressKey(QWidget& to, int key, Qt::KeyboardModifiers modifiers = {}) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(&to, &event);
}

}  // namespace vtx
