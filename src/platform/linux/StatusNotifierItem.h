// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/linux/SystemBus.h"

namespace vtx {

/// An application's item in the tray of desktops that speak org.kde.StatusNotifierItem. It offers
/// itself to the session's watcher, again whenever that one comes back, and is not there at all
/// while no tray listens. It has no menu of its own: the tray passes the click on. Main executor.
class StatusNotifierItem {
public:
    /// One size of the picture, row by row from the top: four bytes a pixel in the order alpha,
    /// red, green, blue, not premultiplied.
    struct Picture {
        std::int32_t width = 0;
        std::int32_t height = 0;
        std::vector<std::uint8_t> argb;
    };
    enum class Click { primary, secondary, menu };

    /// The bus is the session's and must outlive the item. `identifier` and `title` are for the
    /// tray's own settings.
    StatusNotifierItem(SystemBus& session, std::string identifier, std::string title);
    ~StatusNotifierItem();
    StatusNotifierItem(const StatusNotifierItem&) = delete;
    StatusNotifierItem& operator=(const StatusNotifierItem&) = delete;

    /// Called with the place on the screen that the tray tells, in its own units; 0, 0 for none.
    std::function<void(Click, int x, int y)> onClick;
    std::function<void()> onHostedChange;

    /// Whether a tray is there to show the item.
    [[nodiscard]] bool isHosted() const { return isHosted_; }

    /// Told to the tray at once.
    void setPictures(std::vector<Picture> pictures);
    void setToolTip(std::string text);

private:
    struct Table;

    void askWatcher();
    void setHosted(bool hosted);

    SystemBus& session_;
    const std::string identifier_;
    const std::string title_;
    std::string toolTip_;
    std::vector<Picture> pictures_;
    bool isHosted_ = false;
    Subscription object_;
    Subscription question_;
    Subscription registration_;
    Subscriptions watches_;
};

}  // namespace vtx
