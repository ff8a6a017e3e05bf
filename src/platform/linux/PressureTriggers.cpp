// SPDX-License-Identifier: MIT
#include "platform/linux/PressureTriggers.h"

#include <fcntl.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <cstring>

#include <linux/magic.h>

namespace vtx {

FileDescriptor KernelPressureTriggers::open(const char* trigger) {
    const auto path = root_.path("/proc/pressure/memory");
    FileDescriptor file(::open(path.c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK));
    if (!file) return {};
    // In a recorded tree it is a file like any other, which the text would spoil.
    struct statfs system{};
    if (::fstatfs(file.get(), &system) != 0 || system.f_type != PROC_SUPER_MAGIC) return {};
    // With the zero byte at its end, as the kernel wants it.
    const std::size_t size = std::strlen(trigger) + 1;
    if (::write(file.get(), trigger, size) != static_cast<ssize_t>(size)) return {};
    return file;
}

}  // namespace vtx
