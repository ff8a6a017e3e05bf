// SPDX-License-Identifier: MIT
#pragma once

#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>

namespace vtx {

/// One entry of a folder.
struct FolderEntry {
    std::int64_t next = 0;  ///< the position of the one behind it
    std::string_view name;
};

/// Takes the first entry off what the kernel wrote: inode, position of the next one, length, type,
/// name.
inline FolderEntry takeEntry(std::string_view& bytes) {
    constexpr std::size_t lengthAt = 16;
    constexpr std::size_t nameAt = 19;
    FolderEntry entry;
    std::uint16_t length = 0;
    std::memcpy(&entry.next, bytes.data() + 8, sizeof entry.next);
    std::memcpy(&length, bytes.data() + lengthAt, sizeof length);
    const auto name = bytes.substr(nameAt, length - nameAt);
    entry.name = name.substr(0, name.find('\0'));
    bytes.remove_prefix(length);
    return entry;
}

/// Calls `take` for every entry from the folder's present position, until that says false. The
/// errno value. The buffer, in which the names stand, has room for more than the longest of them.
template <class Take>
int forEachEntry(int folder, std::span<char> buffer, Take take) {
    for (;;) {
        const long got = ::syscall(SYS_getdents64, folder, buffer.data(), buffer.size());
        if (got < 0) return errno;
        if (got == 0) return 0;
        std::string_view bytes(buffer.data(), static_cast<std::size_t>(got));
        while (!bytes.empty())
            if (!take(takeEntry(bytes))) return 0;
    }
}

}  // namespace vtx
