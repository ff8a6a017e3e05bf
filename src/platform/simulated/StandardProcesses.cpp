// SPDX-License-Identifier: MIT
#include <string_view>

#include "platform/simulated/SimulatedProcesses.h"

namespace vtx {
namespace {

constexpr std::uint64_t mebibyte = 1 << 20;
constexpr std::uint32_t root = 0;
constexpr std::uint32_t user = SimulatedProcesses::user;

struct Row {
    std::int32_t pid;
    std::uint32_t uid;
    std::string_view name;
    std::string_view path;
    std::uint64_t residentMebibytes;
    std::int32_t threads;
    double weight;
    std::int32_t nice = 0;
};

/// In the kernel's order, the youngest first.
constexpr Row rows[]{
    {4102, user, "Vantrix", "/Applications/Vantrix.app/Contents/MacOS/Vantrix", 38, 7, 0.4},
    {3987, user, "Terminal", "/System/Applications/Utilities/Terminal.app/Contents/MacOS/Terminal",
     86, 9, 0.5},
    {3991, user, "zsh", "/bin/zsh", 6, 1, 0.0},
    {3874, user, "Xcode", "/Applications/Xcode.app/Contents/MacOS/Xcode", 2150, 64, 6.0},
    {3880, user, "swift-frontend",
     "/Applications/Xcode.app/Contents/Developer/Toolchains/XcodeDefault.xctoolchain/usr/bin/"
     "swift-frontend",
     640, 3, 9.0, 5},
    {3811, user, "Keynote", "/Applications/Keynote.app/Contents/MacOS/Keynote", 412, 12, 0.6},
    {3760, user, "Photos", "/System/Applications/Photos.app/Contents/MacOS/Photos", 731, 18, 1.2},
    {3702, user, "Music", "/System/Applications/Music.app/Contents/MacOS/Music", 298, 21, 1.0},
    {3644, user, "Safari",
     "/System/Volumes/Preboot/Cryptexes/App/System/Applications/Safari.app/Contents/MacOS/Safari",
     540, 15, 2.5},
    {3650, user, "Safari Web Content",
     "/System/Library/Frameworks/WebKit.framework/Versions/A/XPCServices/WebContent", 890, 24, 5.0},
    {3590, user, "Mail", "/System/Applications/Mail.app/Contents/MacOS/Mail", 265, 13, 0.7},
    {3555, user, "Backup Helper", "/usr/local/bin/backup-helper", 74, 4, 0.8, 10},
    {812, user, "Finder", "/System/Library/CoreServices/Finder.app/Contents/MacOS/Finder", 145, 8,
     0.5},
    {806, user, "Dock", "/System/Library/CoreServices/Dock.app/Contents/MacOS/Dock", 61, 5, 0.3},
    {790, user, "distnoted", "/usr/sbin/distnoted", 9, 2, 0.1},
    {402, 88, "WindowServer",
     "/System/Library/PrivateFrameworks/SkyLight.framework/Resources/WindowServer", 310, 17, 3.5},
    {377, root, "mds_stores",
     "/System/Library/Frameworks/CoreServices.framework/Support/mds_stores", 120, 6, 1.5},
    {361, root, "bluetoothd", "/usr/sbin/bluetoothd", 18, 9, 0.2},
    {340, root, "coreaudiod", "/usr/sbin/coreaudiod", 34, 11, 0.6},
    {98, root, "logd", "/usr/libexec/logd", 27, 4, 0.3},
    {1, root, "launchd", "/sbin/launchd", 22, 4, 0.2},
    {0, root, "kernel_task", "", 1480, 612, 2.0},
};

}  // namespace

std::vector<SimulatedProcess> standardProcesses() {
    std::vector<SimulatedProcess> all;
    all.reserve(std::size(rows));
    for (const Row& row : rows) {
        SimulatedProcess process;
        process.pid = row.pid;
        process.uid = row.uid;
        process.name = row.name;
        process.path = row.path;
        process.residentBytes = row.residentMebibytes * mebibyte;
        process.threads = row.threads;
        process.nice = row.nice;
        process.weight = row.weight;
        all.push_back(std::move(process));
    }
    return all;
}

}  // namespace vtx
