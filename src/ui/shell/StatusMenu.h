// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>
#include <QRect>
#include <QString>
#include <functional>
#include <vector>

namespace vtx {

class WindowSystem;

/// A row of a menu, as a value.
struct StatusMenuItem {
    QString title;
    /// As key sequences are written, "Ctrl+R"; shown at the right, and works while the menu is
    /// open. Empty for none.
    QString shortcut;
    std::function<void()> action;
    bool isSeparator = false;
    bool isEnabled = true;

    [[nodiscard]] static StatusMenuItem separator() { return {{}, {}, {}, true, true}; }
};

/// The menu of the status item, in the colours of the theme. It opens without waiting for its end
/// and deletes itself when it has closed. Main executor.
class StatusMenu final : public QMenu {
public:
    StatusMenu(WindowSystem& system, const std::vector<StatusMenuItem>& items);

    /// Opens below `anchor`, or above it where there is no room; both on the desktop. An action
    /// runs after the menu has gone.
    static StatusMenu& popUp(WindowSystem& system, const std::vector<StatusMenuItem>& items,
                             const QRect& anchor);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    WindowSystem& system_;
};

}  // namespace vtx
