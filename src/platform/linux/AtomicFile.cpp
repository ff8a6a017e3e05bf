// SPDX-License-Identifier: MIT
#include "platform/linux/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "platform/linux/FileDescriptor.h"

namespace vtx {
namespace {

namespace fs = std::filesystem;

constexpr int maxLinks = 40;  // as the kernel follows
constexpr int maxSetAside = 10'000;

std::error_code lastError() { return {errno, std::generic_category()}; }

FileDescriptor openFile(const fs::path& path, int flags) {
    for (;;) {
        const int fd = ::open(path.c_str(), flags | O_CLOEXEC);
        if (fd >= 0 || errno != EINTR) return FileDescriptor(fd);
    }
}

std::error_code writeAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(fd, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return lastError();
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return {};
}

std::error_code writeOut(FileDescriptor file, std::string_view bytes, Durability durability) {
    if (const auto error = writeAll(file.get(), bytes)) return error;
    if (durability == Durability::onDisk && ::fsync(file.get()) != 0) return lastError();
    return {};
}

/// Without it the new name may be lost in a power cut. A file system that cannot, says EINVAL.
std::error_code syncFolder(const fs::path& folder) {
    const FileDescriptor fd = openFile(folder, O_RDONLY | O_DIRECTORY);
    if (!fd) return lastError();
    if (::fsync(fd.get()) != 0 && errno != EINVAL) return lastError();
    return {};
}

fs::path folderOf(const fs::path& file) {
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

/// `std::errc::file_exists` where `to` is taken.
std::error_code renameToFree(const fs::path& from, const fs::path& to) {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return {};
    if (errno != EINVAL && errno != ENOSYS) return lastError();
    // Not every file system has that operation.
    struct stat there{};
    if (::lstat(to.c_str(), &there) == 0) return std::make_error_code(std::errc::file_exists);
    if (errno != ENOENT || ::rename(from.c_str(), to.c_str()) != 0) return lastError();
    return {};
}

}  // namespace

FileContents readFile(const fs::path& file, std::size_t maxBytes) {
    // Not waiting, as a pipe of that name would have us do.
    const FileDescriptor fd = openFile(file, O_RDONLY | O_NONBLOCK | O_NOCTTY);
    if (!fd) return {{}, lastError()};
    struct stat status{};
    if (::fstat(fd.get(), &status) != 0) return {{}, lastError()};
    if (S_ISDIR(status.st_mode)) return {{}, std::make_error_code(std::errc::is_a_directory)};
    if (!S_ISREG(status.st_mode)) return {{}, std::make_error_code(std::errc::not_supported)};
    std::string bytes;
    std::array<char, 65536> chunk;
    for (;;) {
        const ssize_t count = ::read(fd.get(), chunk.data(), chunk.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return {{}, lastError()};
        if (count == 0) return {std::move(bytes), {}};
        bytes.append(chunk.data(), static_cast<std::size_t>(count));
        if (bytes.size() > maxBytes) return {{}, std::make_error_code(std::errc::file_too_large)};
    }
}

std::error_code replaceFile(const fs::path& file, std::string_view bytes, Durability durability) {
    const fs::path folder = folderOf(file);
    fs::path pattern = ".";
    pattern += file.filename();
    pattern += ".XXXXXX";
    std::string temporary = (folder / pattern).string();
    FileDescriptor fd(::mkostemp(temporary.data(), O_CLOEXEC));
    if (!fd) return lastError();
    std::error_code error = writeOut(std::move(fd), bytes, durability);
    if (!error && ::rename(temporary.c_str(), file.c_str()) != 0) error = lastError();
    if (error) {
        ::unlink(temporary.c_str());
        return error;
    }
    return durability == Durability::onDisk ? syncFolder(folder) : std::error_code();
}

std::error_code createFolders(const fs::path& folder) {
    if (::mkdir(folder.c_str(), S_IRWXU) == 0) return {};
    if (errno == ENOENT && folder.has_parent_path() && folder.parent_path() != folder) {
        if (const auto error = createFolders(folder.parent_path())) return error;
        if (::mkdir(folder.c_str(), S_IRWXU) == 0) return {};
    }
    if (errno != EEXIST) return lastError();
    struct stat status{};
    if (::stat(folder.c_str(), &status) != 0) return lastError();
    return S_ISDIR(status.st_mode) ? std::error_code()
                                   : std::make_error_code(std::errc::not_a_directory);
}

SetAside setAside(const fs::path& file) {
    std::error_code error;
    for (int n = 1; n <= maxSetAside; ++n) {
        fs::path name = file;
        name += ".damaged-" + std::to_string(n);
        error = renameToFree(file, name);
        if (!error) return {std::move(name), {}};
        if (error != std::errc::file_exists) break;
    }
    return {{}, error};
}

fs::path linkTarget(const fs::path& file) {
    fs::path path = file;
    for (int i = 0; i < maxLinks; ++i) {
        std::error_code error;
        const fs::path target = fs::read_symlink(path, error);
        if (error) return path;  // not a link
        path = folderOf(path) / target;
    }
    return file;
}

}  // namespace vtx
