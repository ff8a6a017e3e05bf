// SPDX-License-Identifier: MIT
#include "LivingSensors.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <stdexcept>

namespace vtx::bench {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr auto machine = "amd-two-gpus-laptop-6.15";
constexpr auto machineWithDrives = "sd-card-laptop-6.8";

// Each text is as long as all others of its kind, since it is written over the last one.
std::string load(int second) { return fmt::format("{:2}\n", 20 + second * 7 % 60); }
std::string temperature(int second) {
    return fmt::format("{:5}\n", 55'000 + second * 3 % 20 * 1000);
}
std::string speed(int second) { return fmt::format("{:4}\n", 3000 + second * 37 % 1000); }
std::string sectors(int second) {
    const auto seconds = static_cast<std::uint64_t>(second);
    const auto read = seconds * 20'000 + seconds % 7 * 4'000;
    return fmt::format("{0:12} 0 {1:12} 0 {0:12} 0 {1:12} 0 0 0 0\n", seconds * 100, read);
}

struct Source {
    const char* name;
    std::string (*at)(int second);
};
constexpr Source sources[] = {
    {"devices/pci0000:00/0000:00:08.1/0000:c4:00.0/gpu_busy_percent", load},
    {"devices/pci0000:00/0000:00:18.3/hwmon/hwmon5/temp1_input", temperature},
    {"devices/platform/asus-nb-wmi/hwmon/hwmon6/fan2_input", speed},
    {"block/nvme0n1/stat", sectors}};

void writeOver(const fs::path& file, const std::string& text) {
    const int descriptor = open(file.c_str(), O_WRONLY | O_CLOEXEC);
    if (descriptor < 0) return;
    const auto written = pwrite(descriptor, text.data(), text.size(), 0);
    if (written > 0) (void)!ftruncate(descriptor, written);
    close(descriptor);
}

}  // namespace

LivingSensors::LivingSensors() {
    const auto from = fs::path(VANTRIX_FIXTURES);
    constexpr auto how = fs::copy_options::recursive | fs::copy_options::copy_symlinks;
    fs::copy(from / machine / "sys", folder_.path(), how);
    fs::copy(from / machineWithDrives / "sys/block", folder_.path() / "block", how);
    find();
    write(0);
    thread_ = std::jthread([this](const std::stop_token& stop) { run(stop); });
}

void LivingSensors::find() {
    for (const Source& source : sources) {
        const auto file = folder_.path() / source.name;
        if (!fs::exists(file))
            throw std::runtime_error(fmt::format("{} is not recorded", source.name));
        figures_.push_back({file, source.at});
    }
}

bool LivingSensors::canBeShown() const {
    std::string line;
    for (const auto& word : command("true")) line += "'" + word + "' ";
    return std::system((line + ">/dev/null 2>&1").c_str()) == 0;
}

std::vector<std::string> LivingSensors::command(const std::string& program) const {
    // An ordinary user is root in a namespace of his own for it.
    return {"unshare",
            geteuid() == 0 ? "-m" : "-rm",
            "sh",
            "-c",
            "mount --bind \"$1\" /sys && exec \"$2\"",
            "sh",
            folder_.path(),
            program};
}

void LivingSensors::write(int second) const {
    for (const auto& [file, at] : figures_) writeOver(file, at(second));
}

void LivingSensors::run(const std::stop_token& stop) const {
    auto next = std::chrono::steady_clock::now();
    for (int second = 1; !stop.stop_requested(); ++second) {
        next += 1s;
        while (!stop.stop_requested() && std::chrono::steady_clock::now() < next)
            std::this_thread::sleep_for(50ms);
        write(second);
    }
}

}  // namespace vtx::bench
