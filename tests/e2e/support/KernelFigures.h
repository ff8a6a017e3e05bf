// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace vtx::e2e {

/// Bytes in both directions since the machine started.
struct Moved {
    std::uint64_t in = 0;
    std::uint64_t out = 0;
};

/// The machine's figures as the kernel's own text files tell them, read by the test itself.
namespace kernel {

/// A line of /proc/meminfo, such as "MemTotal".
[[nodiscard]] std::uint64_t memoryBytes(const std::string& line);
/// Whether a drive with a device behind it is here, which a loop or a compressed memory has not.
[[nodiscard]] bool hasDrive();
/// What a whole disk has read and written, by its name such as "vda".
[[nodiscard]] Moved movedByDisk(const std::string& device);
/// What every interface has received and sent.
[[nodiscard]] std::map<std::string, Moved> movedByInterface();

}  // namespace kernel
}  // namespace vtx::e2e
