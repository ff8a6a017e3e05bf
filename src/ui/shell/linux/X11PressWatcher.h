// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractNativeEventFilter>
#include <QPoint>
#include <cstdint>
#include <functional>
#include <memory>

#include "base/Subscription.h"

namespace vtx {

class X11Connection;

/// Hears of mouse presses anywhere on the desktop by the input extension's raw events, which are
/// told beside the normal ones and take nothing away from other programs. Listens to the server
/// only while somebody watches. Main executor.
class X11PressWatcher final : public QAbstractNativeEventFilter {
public:
    explicit X11PressWatcher(X11Connection& x11);
    ~X11PressWatcher() override;

    /// One watcher at a time; the newest one is told. The subscription may outlive this.
    [[nodiscard]] Subscription watch(std::function<void(QPoint)> pressed);

    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

private:
    void listen(bool on);

    X11Connection& x11_;
    /// The extension's number on this server; 0 where there is none.
    std::uint8_t opcode_ = 0;
    std::shared_ptr<std::function<void(QPoint)>> pressed_;
    /// Set to null when this goes, so that late subscriptions do nothing.
    std::shared_ptr<X11PressWatcher*> self_;
};

}  // namespace vtx
