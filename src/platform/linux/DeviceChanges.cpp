// SPDX-License-Identifier: MIT
#include "platform/linux/DeviceChanges.h"

#include <linux/netlink.h>
#include <sys/socket.h>
#include <time.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace vtx {
namespace {

/// The kernel's own announcements, before any daemon works on them.
constexpr unsigned kernelGroup = 1;
/// More than wait in a socket of the usual size; those beyond are taken the next time.
constexpr int messagesAtOnce = 4096;
/// All who ask within one pass share a look.
constexpr auto betweenLooks = std::chrono::milliseconds(100);

FileDescriptor openSocket() {
    FileDescriptor socket(
        ::socket(AF_NETLINK, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, NETLINK_KOBJECT_UEVENT));
    sockaddr_nl address{};
    address.nl_family = AF_NETLINK;
    address.nl_groups = kernelGroup;
    const auto* const generic = reinterpret_cast<const sockaddr*>(&address);
    if (!socket || ::bind(socket.get(), generic, sizeof(address)) != 0) return {};
    return socket;
}

}  // namespace

bool announcesDeviceChange(std::string_view message) {
    constexpr std::array<std::string_view, 5> actions = {"add", "remove", "bind", "unbind", "move"};
    const auto at = message.find('@');
    if (at == std::string_view::npos) return false;
    return std::ranges::find(actions, message.substr(0, at)) != actions.end();
}

std::uint64_t KernelDeviceChanges::generation() {
    const std::lock_guard lock(mutex_);
    if (generation_ == 0) {
        socket_ = openSocket();
        if (socket_) arrivals_ = ArrivalCheck(socket_);
        generation_ = 1;
    } else if (socket_ && isTimeToLook() && arrivals_.mayReceive() && takeAnnouncements()) {
        ++generation_;
    }
    return generation_;
}

bool KernelDeviceChanges::isTimeToLook() {
    timespec now{};
    if (::clock_gettime(CLOCK_MONOTONIC_COARSE, &now) != 0) return true;
    const auto time = std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
    if (time - lookedAt_ < betweenLooks) return false;
    lookedAt_ = time;
    return true;
}

bool KernelDeviceChanges::takeAnnouncements() {
    bool changed = false;
    std::array<char, 4096> message;  // NOLINT: what is received fills it as far as it is read
    for (int taken = 0; taken < messagesAtOnce; ++taken) {
        sockaddr_nl sender{};
        socklen_t size = sizeof(sender);
        const ssize_t got = ::recvfrom(socket_.get(), message.data(), message.size(), MSG_DONTWAIT,
                                       reinterpret_cast<sockaddr*>(&sender), &size);
        if (got < 0 && errno == EINTR) continue;
        // Announcements were lost: what they said is not known.
        if (got < 0 && errno == ENOBUFS) changed = true;
        if (got < 0 && errno != ENOBUFS) break;
        const bool isKernels = got > 0 && size == sizeof(sender) && sender.nl_pid == 0;
        if (isKernels && announcesDeviceChange({message.data(), static_cast<std::size_t>(got)}))
            changed = true;
    }
    return changed;
}

}  // namespace vtx
