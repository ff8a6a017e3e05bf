// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>
#include <QPointer>
#include <QRect>
#include <functional>
#include <memory>
#include <vector>

#include "ui/models/ProcessMenuModel.h"

class QWidget;

namespace vtx {

class WindowSystem;

/// The menu of one process, which is open or not. Owned by the page.
class ProcessMenu {
public:
    ProcessMenu();
    ~ProcessMenu();
    ProcessMenu(const ProcessMenu&) = delete;
    ProcessMenu& operator=(const ProcessMenu&) = delete;

    /// How the menu was asked for, which decides whether an entry is lit at first.
    enum class Asked { byPointer, byKeyboard };
    using Chosen = std::function<void(const ProcessMenuEntry&)>;

    /// Opens below `anchor`, which is on the desktop, ending where that ends, or above it where
    /// there is no room. `closed` is told when it has gone, before `chosen` of an entry.
    void popUp(const std::vector<ProcessMenuEntry>& entries, const QRect& anchor, Asked asked,
               const QWidget& page, Chosen chosen, std::function<void()> closed);
    void close();
    [[nodiscard]] QMenu* menu() const { return menu_; }

private:
    std::unique_ptr<WindowSystem> system_;  ///< made with the first menu
    QPointer<QMenu> menu_;
};

}  // namespace vtx
