// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <span>

namespace vtx::bench {

/// Uses the surfaces of a resident program as a person does: by clicks and keys that the X server
/// makes. Needs the display for itself.
class SurfaceDriver {
public:
    /// Throws `std::runtime_error` where no display answers.
    explicit SurfaceDriver(pid_t process);
    ~SurfaceDriver();
    SurfaceDriver(const SurfaceDriver&) = delete;
    SurfaceDriver& operator=(const SurfaceDriver&) = delete;

    /// Waits until the strip is shown. This and the following throw `std::runtime_error`, saying
    /// what did not happen.
    void awaitStrip();
    /// Waits until something is painted on it too, and tells when that was.
    std::chrono::steady_clock::time_point awaitPaintedStrip();
    /// A digest of the strip's picture: another one when it shows something else. Absent while the
    /// strip cannot be seen.
    [[nodiscard]] std::optional<std::size_t> stripPicture();
    /// A click on the strip opens it, Escape closes it.
    void openAndClosePopover();
    /// The same in two steps, with the time from the click to the whole popover on the screen.
    std::chrono::duration<double> openPopover();
    void closePopover();
    /// Of the open popover: the section of this number, 1 to 9, another than the one it shows.
    void showSection(int number);
    /// The strip's menu opens it, the window manager closes it.
    void openAndCloseDashboard();
    /// Whatever there is, one after the other: the popover with these of its sections, in this
    /// order, the dashboard, and the mini widget, which the strip's menu shows and hides. A section
    /// that begins at a field for text takes further numbers as text and so comes last.
    void useEverySurface(std::span<const int> sections);

private:
    class Display;
    /// Steps down from no entry of the strip's menu to the one that is chosen.
    void chooseInMenu(int steps);
    void openAndCloseWidget();

    std::unique_ptr<Display> display_;
};

}  // namespace vtx::bench
