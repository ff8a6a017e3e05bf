// SPDX-License-Identifier: MIT
#include "platform/linux/MemInfoReader.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <cstring>

#include "linux/TemporaryTree.h"
#include "memory/MemoryMonitorEngine.h"
#include "platform/linux/LinuxHostInfo.h"
#include "platform/linux/LinuxSysctl.h"
#include "platform/simulated/ManualClock.h"

namespace vtx::test {
namespace {

using namespace std::chrono_literals;

constexpr auto path = "/proc/meminfo";

std::string memory(int freeKB) {
    return "MemTotal: 1000 kB\nMemFree: " + std::to_string(freeKB) +
           " kB\nMemAvailable: 800 kB\nSwapTotal: 100 kB\nSwapFree: " +
           std::to_string(freeKB / 10) + " kB\n";
}

struct Changes final : DeviceChanges {
    std::uint64_t now = 1;
    std::uint64_t generation() override { return now; }
};

struct Machine {
    Machine() { tree.write(path, memory(400)); }
    [[nodiscard]] std::uint64_t freeKB(const std::optional<MemInfoReader::Sample>& sample) const {
        return sample ? sample->info.free : 0;
    }
    TemporaryTree tree;
    LinuxRoot root{tree.path()};
    ManualClock clock;
    Changes changes;
    MemInfoReader reader{root, clock, changes};
    LinuxProcessors processors{root};
    LinuxHostInfo host{root, processors, reader};
    LinuxSysctl sysctl{root, processors, reader};

    std::pair<std::uint64_t, std::uint64_t> swap() {
        std::array<std::byte, 32> record{};
        std::size_t size = 0;
        EXPECT_EQ(sysctl.sysctlbyname("vm.swapusage", record, size), 0);
        EXPECT_EQ(size, 32U);
        std::uint64_t total = 0, used = 0;
        std::memcpy(&total, record.data(), 8);
        std::memcpy(&used, record.data() + 16, 8);
        return {total, used};
    }
};

TEST(MemInfoReader, a_read_is_of_this_moment_and_a_recent_one_is_shared) {
    Machine m;
    EXPECT_EQ(m.freeKB(m.reader.read()), 400U);
    m.tree.write(path, memory(300));
    EXPECT_EQ(m.freeKB(m.reader.recent()), 400U);
    EXPECT_EQ(m.freeKB(m.reader.read()), 300U);
    m.tree.write(path, memory(200));
    m.clock.advanceBy(21ms);
    EXPECT_EQ(m.freeKB(m.reader.recent()), 200U);
}

TEST(MemInfoReader, the_swap_figures_are_of_the_same_moment_as_the_pages) {
    Machine m;
    std::array<std::uint32_t, 104> words{};
    EXPECT_EQ(m.host.statistics64(hostVMInfo64, words).result, kernSuccess);
    m.tree.write(path, memory(0));
    EXPECT_EQ(m.swap(), (std::pair<std::uint64_t, std::uint64_t>{100 * 1024, 60 * 1024}));
    m.clock.advanceBy(1s);
    EXPECT_EQ(m.swap(), (std::pair<std::uint64_t, std::uint64_t>{100 * 1024, 100 * 1024}));
}

TEST(MemInfoReader, what_follows_is_told_of_reads_alone_and_until_its_token_goes) {
    Machine m;
    int told = 0;
    auto token = m.reader.onRead([&told] { ++told; });
    static_cast<void>(m.reader.recent());
    EXPECT_EQ(told, 0);
    static_cast<void>(m.reader.read());
    EXPECT_EQ(told, 1);
    token.cancel();
    static_cast<void>(m.reader.read());
    EXPECT_EQ(told, 1);
}

TEST(MemInfoReader, a_token_may_outlive_it) {
    Subscription token;
    {
        Machine m;
        token = m.reader.onRead([] {});
    }
    token.cancel();
}

TEST(MemInfoReader, a_damaged_file_fails_both_ports_until_it_is_whole) {
    Machine m;
    m.clock.advanceBy(1s);
    m.tree.write(path, "MemTotal: 10");
    std::array<std::uint32_t, 104> words{};
    EXPECT_EQ(m.host.statistics64(hostVMInfo64, words).result, kernFailure);
    std::size_t size = 0;
    std::array<std::byte, 32> record{};
    EXPECT_EQ(m.sysctl.sysctlbyname("vm.swapusage", record, size), EIO);
    m.tree.write(path, memory(1));
    EXPECT_EQ(m.host.statistics64(hostVMInfo64, words).result, kernSuccess);
}

TEST(MemInfoReader, a_longer_file_than_kernels_write_is_read_to_its_end) {
    Machine m;
    std::string lines;
    while (lines.size() < 8000) lines += "Unknown: 1 kB\n";
    m.tree.write(path, lines + memory(350));
    EXPECT_EQ(m.freeKB(m.reader.read()), 350U);
}

TEST(MemInfoReader, the_pools_of_compressed_swap_devices_are_found_as_they_come_and_go) {
    Machine m;
    EXPECT_EQ(m.reader.read()->zramBytes, 0U);
    m.tree.write("/sys/block/zram0/mm_stat", "1 2 4096 0\n");
    m.tree.write("/sys/block/zram1/mm_stat", "1 2 8192 0\n");
    m.tree.write("/sys/block/sda/mm_stat", "1 2 5 0\n");
    EXPECT_EQ(m.reader.read()->zramBytes, 0U);
    ++m.changes.now;
    EXPECT_EQ(m.reader.read()->zramBytes, 12'288U);
    m.tree.write("/sys/block/zram1/mm_stat", "damaged\n");
    EXPECT_EQ(m.reader.read()->zramBytes, 4096U);
    m.tree.remove("/sys/block/zram0");
    ++m.changes.now;
    EXPECT_EQ(m.reader.read()->zramBytes, 0U);
}

TEST(LinuxHostInfo, knows_the_one_flavour_that_is_asked_for) {
    Machine m;
    std::array<std::uint32_t, 104> words{};
    EXPECT_NE(m.host.statistics64(2, words).result, kernSuccess);
    EXPECT_EQ(m.host.statistics64(hostVMInfo64, words).count, 38U);
    EXPECT_GT(m.host.pageSize().bytes, 0U);
}

TEST(LinuxSysctl, a_swap_record_does_not_fit_in_less_and_tells_its_size) {
    Machine m;
    std::size_t size = 0;
    std::array<std::byte, 31> less{};
    EXPECT_EQ(m.sysctl.sysctlbyname("vm.swapusage", less, size), ENOMEM);
    EXPECT_EQ(m.sysctl.sysctlbyname("vm.swapusage", {}, size), 0);
    EXPECT_EQ(size, 32U);
}

}  // namespace
}  // namespace vtx::test
