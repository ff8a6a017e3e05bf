// SPDX-License-Identifier: MIT
#include "processes/ProcessSamplingEngine.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "platform/simulated/Operations.h"
#include "support/DisturbedTable.h"
#include "support/TestBench.h"

namespace vtx {
namespace {

constexpr auto category = "ProcessSamplingEngine";

// An engine over a machine that runs only what a test starts.
struct Sampled {
    Sampled() { bench.mac.processes.removeAll(); }

    TestBench bench;
    SimulatedProcesses& processes = bench.mac.processes;
    DisturbedTable table{bench.platform.processTable};
    ProcessSamplingEngine engine{table, bench.clock};

    void start(std::int32_t pid, double load = 0.0, std::uint64_t used = 0) {
        SimulatedProcess process;
        process.pid = pid;
        process.uid = SimulatedProcesses::user;
        process.name = "program";
        process.path = "/Applications/program";
        process.load = load;
        process.cpuNanoseconds = used;
        process.residentBytes = 4096;
        process.threads = 2;
        processes.add(process);
    }
    ProcessSnapshot only() {
        const auto all = engine.snapshot();
        return all.size() == 1 ? all.front() : ProcessSnapshot{};
    }
    ProcessSnapshot onlyAfter(double seconds) {
        bench.clock.advanceBy(vtx::seconds(seconds));
        return only();
    }
    std::size_t said(std::string_view message) {
        return bench.log.count(LogLevel::error, category, message);
    }
};

TEST(ProcessSamplingEngine, the_first_sample_is_complete_and_knows_no_share) {
    Sampled s;
    s.start(200, 0.5, 7'000'000'000);
    const auto process = s.only();
    EXPECT_EQ(process.pid, 200);
    EXPECT_EQ(process.name, "program");
    EXPECT_EQ(process.executablePath, "/Applications/program");
    EXPECT_EQ(process.uid, SimulatedProcesses::user);
    EXPECT_EQ(process.cpuPercent, 0.0);
    EXPECT_EQ(process.residentMemoryBytes, 4096U);
    EXPECT_EQ(process.threadCount, 2);
}

TEST(ProcessSamplingEngine, a_share_is_a_fraction_of_one_core) {
    Sampled s;
    s.start(200, 2.5);
    (void)s.only();
    EXPECT_NEAR(s.onlyAfter(5).cpuPercent, 2.5, 1e-6);
}

TEST(ProcessSamplingEngine, without_time_between_two_samples_there_is_no_share) {
    Sampled s;
    s.start(200);
    (void)s.only();
    s.processes.change(200, [](auto& p) { p.cpuNanoseconds += 1'000'000'000; });
    EXPECT_EQ(s.only().cpuPercent, 0.0);
}

TEST(ProcessSamplingEngine, a_clock_that_stepped_back_gives_no_share_in_that_round_alone) {
    Sampled s;
    s.start(200, 1.0);
    (void)s.only();
    s.bench.clock.setWallClock(s.bench.clock.now() - std::chrono::hours(1));
    EXPECT_EQ(s.onlyAfter(5).cpuPercent, 0.0);
    EXPECT_NEAR(s.onlyAfter(5).cpuPercent, 1.0, 1e-6);
}

TEST(ProcessSamplingEngine, a_clock_that_is_set_within_an_interval_changes_no_share) {
    for (const auto by : {std::chrono::milliseconds(-4990), std::chrono::milliseconds(7'200'000)}) {
        Sampled s;
        s.start(200, 1.0);
        (void)s.only();
        s.bench.clock.setWallClock(s.bench.clock.now() + by);
        EXPECT_NEAR(s.onlyAfter(5).cpuPercent, 1.0, 1e-6) << by.count();
    }
}

/// An engine that counts processor time in hundredths of a second.
struct CoarselySampled : Sampled {
    CoarselySampled() {
        table.timebase = {10'000'000, 1};
        coarse.emplace(table, bench.clock);
        start(200);
    }
    std::optional<ProcessSamplingEngine> coarse;

    double shareAfter(double seconds, std::uint64_t ticks) {
        bench.clock.advanceBy(vtx::seconds(seconds));
        // As many units as the table makes of them.
        processes.change(200, [ticks](auto& p) { p.cpuNanoseconds += ticks * 125 / 3 + 1; });
        return coarse->snapshot().at(0).cpuPercent;
    }
};

TEST(ProcessSamplingEngine, a_single_tick_within_a_moment_makes_no_busy_process) {
    CoarselySampled s;
    (void)s.shareAfter(0, 0);
    EXPECT_NEAR(s.shareAfter(2, 20), 0.1, 1e-6);
    EXPECT_NEAR(s.shareAfter(0.01, 1), 21 * 0.01 / 2.01, 1e-6);
    EXPECT_NEAR(s.shareAfter(0.1, 0), 21 * 0.01 / 2.11, 1e-6);
    EXPECT_NEAR(s.shareAfter(1.89, 19), 20 * 0.01 / 2.0, 1e-6) << "since the one before those";
}

TEST(ProcessSamplingEngine, a_moment_after_the_first_sample_no_share_is_known) {
    CoarselySampled s;
    (void)s.shareAfter(0, 0);
    EXPECT_EQ(s.shareAfter(0.01, 1), 0.0);
    EXPECT_NEAR(s.shareAfter(0.99, 0), 0.01, 1e-6);
}

TEST(ProcessSamplingEngine, a_process_that_ends_while_it_is_read_stays_for_this_sample) {
    Sampled s;
    s.start(200, 1.0);
    (void)s.only();
    s.table.ended = {200};
    s.table.afterFill = [&s] { s.processes.remove(200); };
    const auto process = s.onlyAfter(5);
    EXPECT_EQ(process.pid, 200);
    EXPECT_EQ(process.cpuPercent, 0.0);
    EXPECT_EQ(process.residentMemoryBytes, 0U);
    EXPECT_EQ(process.threadCount, 0);
    EXPECT_EQ(process.nice, 0);
    s.table.afterFill = nullptr;
    EXPECT_TRUE(s.engine.snapshot().empty());
}

TEST(ProcessSamplingEngine, a_number_used_again_with_less_time_behind_it_reads_no_share) {
    Sampled s;
    s.start(200, 0.0, 9'000'000'000);
    (void)s.only();
    s.processes.remove(200);
    s.start(200, 0.0, 1'000'000'000);
    EXPECT_EQ(s.onlyAfter(5).cpuPercent, 0.0);
}

TEST(ProcessSamplingEngine, a_number_used_again_with_more_time_behind_it_counts_the_difference) {
    Sampled s;
    s.start(200, 0.0, 1'000'000'000);
    (void)s.only();
    s.processes.remove(200);
    s.start(200, 0.0, 6'000'000'000);
    EXPECT_NEAR(s.onlyAfter(5).cpuPercent, 1.0, 1e-6);
}

TEST(ProcessSamplingEngine, a_process_that_tells_nothing_for_a_round_starts_anew) {
    Sampled s;
    s.start(200, 1.0);
    (void)s.only();
    s.processes.change(200, [](auto& p) { p.refusesTaskInfo = true; });
    EXPECT_EQ(s.onlyAfter(5).cpuPercent, 0.0);
    s.processes.change(200, [](auto& p) { p.refusesTaskInfo = false; });
    EXPECT_EQ(s.onlyAfter(5).cpuPercent, 0.0);
    EXPECT_NEAR(s.onlyAfter(5).cpuPercent, 1.0, 1e-6);
}

TEST(ProcessSamplingEngine, a_process_that_is_new_in_the_list_has_no_share_yet) {
    Sampled s;
    s.start(200);
    (void)s.only();
    s.start(150, 1.0, 3'000'000'000);
    s.bench.clock.advanceBy(seconds(5));
    const auto all = s.engine.snapshot();
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[1].cpuPercent, 0.0);
}

TEST(ProcessSamplingEngine, refused_details_leave_the_process_in_the_list) {
    Sampled s;
    s.start(200);
    s.processes.change(200, [](auto& p) {
        p.refusesName = p.refusesTaskInfo = true;
        p.path.clear();
        p.priorityError = EPERM;
    });
    const auto process = s.only();
    EXPECT_EQ(process.pid, 200);
    EXPECT_EQ(process.uid, SimulatedProcesses::user);
    EXPECT_EQ(process.name, "");
    EXPECT_EQ(process.executablePath, std::nullopt);
}

TEST(ProcessSamplingEngine, a_refused_name_is_the_last_part_of_the_path) {
    Sampled s;
    s.start(200);
    s.processes.change(200, [](auto& p) {
        p.refusesName = true;
        p.path = "/Applications/My Program";
    });
    EXPECT_EQ(s.only().name, "My Program");
    s.processes.change(200, [](auto& p) { p.path = "program"; });
    EXPECT_EQ(s.only().name, "program");
    s.processes.change(200, [](auto& p) { p.path = "/Applications/"; });
    EXPECT_EQ(s.only().name, "");
}

TEST(ProcessSamplingEngine, texts_end_at_a_zero_byte_and_are_repaired) {
    Sampled s;
    s.start(200);
    s.processes.change(200, [](auto& p) {
        p.name = std::string(
            "a\xFF"
            "b\0c",
            5);
        p.path = std::string("/x\xC3\0y", 5);
    });
    const auto process = s.only();
    EXPECT_EQ(process.name,
              "a\xEF\xBF\xBD"
              "b");
    EXPECT_EQ(process.executablePath, "/x\xEF\xBF\xBD");
}

TEST(ProcessSamplingEngine, minus_one_is_a_niceness_unless_an_error_says_otherwise) {
    Sampled s;
    s.start(200);
    s.processes.change(200, [](auto& p) { p.nice = -1; });
    EXPECT_EQ(s.only().nice, -1);
    s.processes.change(200, [](auto& p) { p.priorityError = ESRCH; });
    EXPECT_EQ(s.only().nice, 0);
}

TEST(ProcessSamplingEngine, number_zero_is_never_reported) {
    Sampled s;
    s.start(0);
    s.start(-1);
    s.start(1);
    EXPECT_EQ(s.only().pid, 1);
}

TEST(ProcessSamplingEngine, the_kernels_order_is_kept) {
    Sampled s;
    for (const int pid : {7, 900, 3}) s.start(pid);
    const auto all = s.engine.snapshot();
    ASSERT_EQ(all.size(), 3U);
    EXPECT_EQ(all[0].pid, 7);
    EXPECT_EQ(all[1].pid, 900);
    EXPECT_EQ(all[2].pid, 3);
}

TEST(ProcessSamplingEngine, what_the_platform_alone_knows_travels_with_the_process) {
    Sampled s;
    s.start(200);
    EXPECT_EQ(s.only().startTime, std::nullopt);
    EXPECT_EQ(s.only().isSystemSoftware, std::nullopt);
    s.processes.change(200, [](auto& p) {
        p.startTime = 77;
        p.isSystemSoftware = true;
    });
    EXPECT_EQ(s.only().startTime, 77U);
    EXPECT_EQ(s.only().isSystemSoftware, true);
}

TEST(ProcessTableFetch, gives_up_after_three_fillings_that_did_not_fit) {
    Sampled s;
    s.start(200);
    s.bench.failures.failAlways(operations::kernProcAllFill, ENOMEM);
    EXPECT_TRUE(s.engine.snapshot().empty());
    EXPECT_EQ(s.bench.platform.calls(operations::kernProcAllFill), 3U);
    EXPECT_EQ(s.bench.platform.calls(operations::kernProcAllSize), 3U);
    EXPECT_EQ(s.said("sysctl(KERN_PROC_ALL) gave up after 3 ENOMEM retries"), 1U);
    EXPECT_EQ(s.said("sysctl(KERN_PROC_ALL) returned no data"), 1U);
    EXPECT_EQ(s.bench.log.lines(category).size(), 2U);
}

TEST(ProcessTableFetch, measures_the_table_afresh_after_a_filling_that_did_not_fit) {
    Sampled s;
    s.start(200);
    s.bench.failures.failNext(operations::kernProcAllFill, 2, ENOMEM);
    EXPECT_EQ(s.engine.snapshot().size(), 1U);
    EXPECT_EQ(s.bench.platform.calls(operations::kernProcAllSize), 3U);
    EXPECT_TRUE(s.bench.log.lines(category).empty());
}

TEST(ProcessTableFetch, a_table_that_outgrows_its_headroom_is_measured_again) {
    Sampled s;
    s.start(1000);
    // Seventeen begin between the first sizing and its filling.
    struct Growing final : ProcessTable {
        Sampled& s;
        int fills = 0;
        explicit Growing(Sampled& sampled) : s(sampled) {}
        int kernProcAll(std::span<KinfoProc> into, std::size_t& bytes) override {
            if (!into.empty() && fills++ == 0)
                for (int i = 0; i < 17; ++i) s.start(2000 + i);
            return s.table.kernProcAll(into, bytes);
        }
        ProcessDetails details(std::int32_t pid) override { return s.table.details(pid); }
        void letGo() override {}
        MachTimebaseInfo machTimebaseInfo() const override { return {}; }
        int procPidRusage(std::int32_t, RusageInfo&) const override { return 1; }
        std::uint32_t getuid() const override { return 0; }
        int setpriority(std::int32_t, std::optional<ProcessStartTime>, std::int32_t) override {
            return 0;
        }
    } growing(s);
    ProcessSamplingEngine engine(growing, s.bench.clock);
    EXPECT_EQ(engine.snapshot().size(), 18U);
    EXPECT_EQ(growing.fills, 2);
}

TEST(ProcessTableFetch, uses_only_whole_records_of_what_came_back) {
    Sampled s;
    for (const int pid : {200, 201, 202}) s.start(pid);
    s.bench.failures.failNext(operations::kernProcAllShort);
    const auto all = s.engine.snapshot();
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all.back().pid, 201);
}

TEST(ProcessTableFetch, a_failing_call_says_which_and_why) {
    Sampled s;
    s.bench.failures.failNext(operations::kernProcAllSize, 1, EPERM);
    EXPECT_TRUE(s.engine.snapshot().empty());
    EXPECT_EQ(s.said("sysctl(KERN_PROC_ALL) sizing call failed: errno=1 attempt=0"), 1U);
    s.bench.failures.failNext(operations::kernProcAllFill, 1, EIO);
    EXPECT_TRUE(s.engine.snapshot().empty());
    EXPECT_EQ(s.said("sysctl(KERN_PROC_ALL) fill call failed: errno=5 attempt=0"), 1U);
    EXPECT_EQ(s.said("sysctl(KERN_PROC_ALL) returned no data"), 2U);
}

TEST(ProcessTableFetch, a_failing_call_in_a_later_round_tells_the_round) {
    Sampled s;
    s.bench.failures.failNext(operations::kernProcAllFill, 1, ENOMEM);
    s.bench.failures.failAfter(operations::kernProcAllSize, 1, 1, EIO);
    EXPECT_TRUE(s.engine.snapshot().empty());
    EXPECT_EQ(s.said("sysctl(KERN_PROC_ALL) sizing call failed: errno=5 attempt=1"), 1U);
}

TEST(ProcessTableFetch, after_a_failed_sample_shares_are_those_since_the_last_good_one) {
    Sampled s;
    s.start(200, 1.0);
    (void)s.only();
    s.bench.clock.advanceBy(seconds(5));
    s.bench.failures.failNext(operations::kernProcAllSize);
    EXPECT_TRUE(s.engine.snapshot().empty());
    s.processes.change(200, [](auto& p) { p.load = 0.0; });
    EXPECT_NEAR(s.onlyAfter(5).cpuPercent, 0.5, 1e-6);
}

TEST(ProcessTableFetch, thirty_thousand_processes_are_all_in_the_list) {
    Sampled s;
    for (int i = 0; i < 30'000; ++i) s.start(40'000 - i, 0.25);
    EXPECT_EQ(s.engine.snapshot().size(), 30'000U);
    s.bench.clock.advanceBy(seconds(5));
    const auto all = s.engine.snapshot();
    ASSERT_EQ(all.size(), 30'000U);
    for (const auto& process : all) ASSERT_NEAR(process.cpuPercent, 0.25, 1e-6);
}

}  // namespace
}  // namespace vtx
