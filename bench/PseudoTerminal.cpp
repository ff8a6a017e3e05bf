// SPDX-License-Identifier: MIT
#include "PseudoTerminal.h"

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/eventfd.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <system_error>

namespace vtx::bench {
namespace {

constexpr winsize size{40, 120, 0, 0};

}  // namespace

PseudoTerminal::PseudoTerminal() : end_(eventfd(0, EFD_CLOEXEC)) {
    if (end_ < 0 || openpty(&ours_, &theirs_, nullptr, nullptr, &size) != 0)
        throw std::system_error(errno, std::generic_category(), "pseudo terminal");
    fcntl(ours_, F_SETFD, FD_CLOEXEC);
    fcntl(theirs_, F_SETFD, FD_CLOEXEC);
    thread_ = std::thread([this] { drain(); });
}

PseudoTerminal::~PseudoTerminal() {
    const std::uint64_t once = 1;
    (void)!write(end_, &once, sizeof once);
    thread_.join();
    for (const int descriptor : {ours_, theirs_, end_}) close(descriptor);
}

void PseudoTerminal::adopt() const {
    setsid();
    ioctl(theirs_, TIOCSCTTY, 0);
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(theirs_, standard);
}

void PseudoTerminal::drain() {
    std::array<char, 1 << 16> taken{};
    std::array<pollfd, 2> waited{{{ours_, POLLIN, 0}, {end_, POLLIN, 0}}};
    while (poll(waited.data(), waited.size(), -1) > 0 && waited[1].revents == 0) {
        const auto length = read(ours_, taken.data(), taken.size());
        if (length <= 0) return;
        written_ += static_cast<std::size_t>(length);
    }
}

}  // namespace vtx::bench
