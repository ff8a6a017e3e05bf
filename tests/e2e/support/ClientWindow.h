// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "support/XDisplay.h"

namespace vtx::e2e {

/// A window as any program has them. Goes with the object.
class ClientWindow {
public:
    explicit ClientWindow(const XDisplay& display);
    ~ClientWindow();
    ClientWindow(const ClientWindow&) = delete;
    ClientWindow& operator=(const ClientWindow&) = delete;

    [[nodiscard]] xcb_window_t id() const { return id_; }
    /// Says whose it is, and on which machine that one runs.
    void belongTo(std::uint32_t pid) const;
    void runOn(const std::string& machine) const;
    /// Shows it, as a user brings a window to the front by a panel; false if it does not become the
    /// active one.
    [[nodiscard]] bool comesToFront() const;

private:
    void askForFront() const;

    const XDisplay& display_;
    xcb_window_t id_;
};

}  // namespace vtx::e2e
