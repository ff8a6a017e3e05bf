// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

// How the sections write their values. What is not known, or not finite, is the empty mark. All
// units are powers of 1024, whatever their names say.
namespace vtx {

/// A clock in MHz as "600 MHz" or, from 1000 on, "3.23 GHz"; unknown where it is not above 0.
std::string formatFreq(std::optional<double> mhz);

/// What the disks move in a second: "0 B/s", "412 KB/s", "38.4 MB/s".
std::string formatThroughput(double bytesPerSecond);
/// What a drive has moved: "846 MB", "1.9 GB".
std::string formatDiskBytes(std::uint64_t bytes);
/// Operations a second: "612 IOPS".
std::string formatIOPS(std::optional<double> perSecond);

/// What the network moves in a second: "1023 B/s", "1 KB/s", "8.4 MB/s", "1.25 GB/s".
std::string formatRate(std::optional<double> bytesPerSecond);
/// What the network has moved: "0 KB", "874.2 MB", "6.31 GB", "1.00 TB".
std::string formatNetworkBytes(std::uint64_t bytes);

/// Memory as "21.4 GB", however little it is.
std::string formatGB(std::uint64_t bytes);
/// Memory as "640 MB" or, from a gigabyte on, "1.5 GB".
std::string formatGBCompact(std::optional<std::uint64_t> bytes);
/// The memory of a process, by the same steps.
std::string formatMB(std::uint64_t bytes);
/// A difference of memory, with its sign where it is negative.
std::string formatMBSigned(std::int64_t bytes);
/// Installed memory in whole gigabytes, from 1024 of them on "1.5 TB".
std::string formatInstalledBytes(std::uint64_t bytes);

/// A span as "59 min", "1 h" or "1 h 1 min".
std::string formatMinutes(std::int64_t minutes);

/// A number with its unit, such as "7913 mAh".
std::string formatWhole(std::optional<std::int64_t> value, const char* unit);

/// The cores of both kinds, as "8 P · 4 E".
std::string formatCores(std::int64_t performance, std::int64_t efficiency);

}  // namespace vtx
