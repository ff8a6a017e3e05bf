// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

#include "linux/TemporaryTree.h"
#include "platform/linux/DeviceChanges.h"

namespace vtx::test {

struct FakeChanges final : DeviceChanges {
    std::uint64_t generation() override { return now; }
    std::uint64_t now = 1;
};

/// A tree of graphics devices, as the kernel lays it out.
class GraphicsTree {
public:
    static constexpr const char* address = "0000:03:00.0";

    static std::string folderOf(const std::string& at) { return "/sys/bus/pci/devices/" + at; }

    void link(const std::string& at, const std::string& target) const {
        const std::filesystem::path file = tree.path() + at;
        std::filesystem::create_directories(file.parent_path());
        std::filesystem::remove(file);
        std::filesystem::create_symlink(target, file);
    }
    /// A device that is awake and may suspend itself after five seconds.
    void add(const std::string& card, const std::string& at, const std::string& driver) const {
        tree.write(folderOf(at) + "/power/runtime_status", "active\n");
        tree.write(folderOf(at) + "/power/control", "auto\n");
        tree.write(folderOf(at) + "/power/autosuspend_delay_ms", "5000\n");
        link(folderOf(at) + "/driver", "../../../bus/pci/drivers/" + driver);
        link("/sys/class/drm/" + card + "/device", "../../../bus/pci/devices/" + at);
    }
    void addAmd(const std::string& card, const std::string& at) const {
        add(card, at, "amdgpu");
        tree.write(folderOf(at) + "/gpu_busy_percent", "30\n");
    }
    void addNvidia(const std::string& at) const {
        add("card9", at, "nvidia");
        tree.remove("/sys/class/drm/card9");
        link("/sys/bus/pci/drivers/nvidia/" + at, "../../../../bus/pci/devices/" + at);
    }
    /// Writes a file of the device with the usual address.
    void set(const std::string& file, std::string_view text) const {
        tree.write(folderOf(address) + "/" + file, text);
    }
    void remove(const std::string& file) const { tree.remove(folderOf(address) + "/" + file); }

    TemporaryTree tree;
};

}  // namespace vtx::test
