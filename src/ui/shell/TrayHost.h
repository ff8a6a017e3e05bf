// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPoint>
#include <QString>
#include <functional>
#include <vector>

#include "ui/shell/StatusItem.h"

namespace vtx {

/// The desktop's tray, as far as an application has a place in it. Main executor; owned by what
/// stands for the desktop.
class TrayHost {
public:
    TrayHost() = default;
    TrayHost(const TrayHost&) = delete;
    TrayHost& operator=(const TrayHost&) = delete;
    virtual ~TrayHost() = default;

    /// Called with the pointer's place on the desktop, or its origin where the tray does not tell.
    std::function<void(StatusItemClick, QPoint)> onClick;
    /// The answer of `isHosted` changed.
    std::function<void()> onHostedChange;

    /// Whether some tray shows what is set here.
    [[nodiscard]] virtual bool isHosted() const = 0;
    /// The same picture in several sizes, of which the tray takes the one that fits. Sent at once.
    virtual void setPictures(const std::vector<QImage>& pictures) = 0;
    /// What the pointer and assistive software are told. Sent at once.
    virtual void setToolTip(const QString& text) = 0;
};

}  // namespace vtx
