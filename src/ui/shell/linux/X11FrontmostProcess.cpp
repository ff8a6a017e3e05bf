// SPDX-License-Identifier: MIT
#include "ui/shell/linux/X11FrontmostProcess.h"

#include <unistd.h>

#include <array>
#include <limits>
#include <memory>
#include <string>

#include "ui/shell/linux/X11Connection.h"

namespace vtx {
namespace {

std::optional<std::uint32_t> onlyNumber(X11Connection& x11, xcb_window_t window,
                                        const char* property) {
    const auto numbers = x11.numbers(window, property);
    if (numbers.empty() || numbers.front() == 0) return std::nullopt;
    return numbers.front();
}

/// As programs give it to the server; empty where the kernel does not tell.
std::string machineName() {
    std::array<char, 256> name{};
    return ::gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

/// A window that does not say where its program runs is of one that runs here.
bool isElsewhere(X11Connection& x11, xcb_window_t window) {
    const std::string machine = x11.text(window, "WM_CLIENT_MACHINE");
    return !machine.empty() && machine != machineName();
}

}  // namespace

std::optional<std::int32_t> x11FrontmostProcess(X11Connection& x11) {
    const auto window = onlyNumber(x11, x11.root(), "_NET_ACTIVE_WINDOW");
    const auto pid = window ? onlyNumber(x11, *window, "_NET_WM_PID") : std::nullopt;
    if (!pid || *pid > std::uint32_t{std::numeric_limits<std::int32_t>::max()}) return std::nullopt;
    if (isElsewhere(x11, *window)) return std::nullopt;
    return static_cast<std::int32_t>(*pid);
}

std::function<std::optional<std::int32_t>()> x11FrontmostProcess() {
    const std::shared_ptr<X11Connection> x11 = X11Connection::ofToolkit();
    if (!x11) return {};
    return [x11] { return x11FrontmostProcess(*x11); };
}

}  // namespace vtx
