// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>

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
    /// A digest of the strip's picture: another one when it shows something else. Absent while the
    /// strip cannot be seen.
    [[nodiscard]] std::optional<std::size_t> stripPicture();
    /// A click on the strip opens it, Escape closes it.
    void openAndClosePopover();
    /// The same in two steps, with the time from the click to the whole popover on the screen.
    std::chrono::duration<double> openPopover();
    void closePopover();
    /// The strip's menu opens it, the window manager closes it.
    void openAndCloseDashboard();

private:
    class Display;
    std::unique_ptr<Display> display_;
};

}  // namespace vtx::bench
