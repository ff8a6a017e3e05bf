// SPDX-License-Identifier: MIT
#include "pass/SystemMeter.h"

#include <fmt/format.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>

#include "pass/ThreadClock.h"
#include "platform/HostInfo.h"
#include "platform/IORegistry.h"
#include "platform/NetworkInterfaces.h"
#include "platform/Sysctl.h"
#include "platform/linux/BlockDevices.h"

namespace vtx::bench {
namespace {

constexpr int uncountedRounds = 3;
constexpr std::size_t readAtOnce = 64 << 10;

LinuxPlatform::Options optionsWith(const std::filesystem::path& configFolder) {
    LinuxPlatform::Options options;
    options.configFolder = configFolder;
    return options;
}

bool readProcessors(const Ports& ports) {
    return ports.hostInfo.processorLoadInfo().result == kernSuccess;
}

bool readMemory(const Ports& ports) {
    std::array<std::uint32_t, 104> pages{};
    std::array<std::byte, 32> swap{};
    std::size_t size = swap.size();
    return ports.hostInfo.statistics64(hostVMInfo64, pages).result == kernSuccess &&
           ports.sysctl.sysctlbyname("vm.swapusage", swap, size) == 0;
}

bool readDisks(const Ports& ports) {
    auto& registry = ports.ioRegistry;
    const auto match = registry.serviceMatching("IOBlockStorageDriver");
    const auto services = registry.getMatchingServices(*match);
    while (const auto entry = registry.iteratorNext(services.iterator)) {
        if (!registry.entryProperty(entry, "Statistics").exists()) return false;
        if (!registry.entryGetRegistryEntryID(entry)) return false;
    }
    return services.result == kernSuccess;
}

bool readNetwork(const Ports& ports) {
    const auto [error, list] = ports.networkInterfaces.getifaddrs();
    for (const auto& record : list.records())
        if (record.address->family != AddressFamily::link)
            (void)ports.networkInterfaces.getnameinfo(*record.address);
    return error == 0;
}

std::vector<std::string> memoryFiles(const LinuxRoot& root) {
    std::vector<std::string> files{"/proc/meminfo"};
    for (const auto& device : root.list("/sys/block"))
        if (device.starts_with("zram"))
            files.push_back(fmt::format("/sys/block/{}/mm_stat", device));
    return files;
}

std::vector<std::string> diskFiles(const LinuxRoot& root) {
    std::vector<std::string> files;
    for (const auto& disk : listBlockDevices(root))
        files.push_back(fmt::format("/sys/block/{}/stat", disk.name));
    return files;
}

}  // namespace

SystemMeter::SystemMeter() : platform_(loop_, loop_.executor(), optionsWith(settings_.path())) {
    add({"processors", readProcessors, {"/proc/stat"}});
    // Pressure is told by triggers and costs nothing between events. Interfaces, addresses and
    // devices are told by announcements: to ask whether there are any is in the ports' time, and
    // nothing in that of the files.
    add({"memory", readMemory, memoryFiles(root_)});
    add({"disks", readDisks, diskFiles(root_)});
    add({"network", readNetwork, {"/proc/net/dev"}});
}

void SystemMeter::add(SystemSource source) {
    Metered metered{std::move(source), {}};
    for (const auto& file : metered.source.files) metered.files.emplace_back(file);
    sources_.push_back(std::move(metered));
}

std::vector<SystemCosts> SystemMeter::measure(int rounds, std::chrono::milliseconds gap) {
    std::vector<SystemCosts> costs;
    for (const auto& each : sources_) costs.push_back({each.source.name, {}, {}});
    costs.push_back({"all of them", {}, {}});
    const ThreadClock clock;
    const Ports ports = platform_.ports();
    // Each as the others leave the caches, and all from start to end.
    const auto timeAll = [&](Statistics SystemCosts::* which, bool isCounted, const auto& work) {
        std::chrono::nanoseconds sum{};
        for (std::size_t i = 0; i < sources_.size(); ++i) {
            const auto before = clock.used();
            if (!work(sources_[i])) throw std::runtime_error(costs[i].name + " gave no reading");
            const auto used = clock.used() - before;
            sum += used;
            if (isCounted) (costs[i].*which).add(used);
        }
        if (isCounted) (costs.back().*which).add(sum);
    };
    for (int round = -uncountedRounds; round < rounds; ++round) {
        wait(gap);
        timeAll(&SystemCosts::ports, round >= 0,
                [&ports](Metered& each) { return each.source.read(ports); });
        wait(gap);
        timeAll(&SystemCosts::preads, round >= 0, [](Metered& each) {
            for (auto& file : each.files)
                if (!file.read(readAtOnce)) return false;
            return true;
        });
    }
    return costs;
}

std::vector<std::string> SystemMeter::files() const {
    std::vector<std::string> all;
    for (const Metered& each : sources_)
        all.insert(all.end(), each.source.files.begin(), each.source.files.end());
    return all;
}

void SystemMeter::wait(std::chrono::milliseconds gap) {
    loop_.runUntil([] { return false; }, gap);
}

}  // namespace vtx::bench
