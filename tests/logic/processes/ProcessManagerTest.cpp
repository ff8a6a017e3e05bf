// SPDX-License-Identifier: MIT
#include "processes/ProcessManager.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <random>

#include "base/TaskScope.h"
#include "platform/simulated/Operations.h"
#include "processes/ProcessOrder.h"
#include "support/TestBench.h"

namespace vtx {
namespace {

constexpr auto category = "ProcessManager";

SimulatedProcess application(std::int32_t pid, std::string name = "Notes") {
    SimulatedProcess process;
    process.pid = pid;
    process.uid = SimulatedProcesses::user;
    process.name = std::move(name);
    process.path = "/Applications/program";
    return process;
}

// A manager on a machine that runs only what a test starts.
struct Managed {
    Managed() { bench.mac.processes.removeAll(); }

    TestBench bench;
    SimulatedProcesses& running = bench.mac.processes;
    ProcessManager manager{bench.ports(), bench.executors()};
    TaskScope tasks{bench.main};

    void refresh() {
        tasks.spawn([this](std::stop_token) { return manager.refresh(); });
        bench.settle();
    }
    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> all;
        for (const auto& process : *manager.processes) all.push_back(process.name);
        return all;
    }
    const ProcessSnapshot& listed(std::int32_t pid) {
        return *std::ranges::find(*manager.processes, pid, &ProcessSnapshot::pid);
    }
    std::optional<ProcessManagerError> errorOf(const ProcessSnapshot& snapshot, std::int32_t nice) {
        const auto result = manager.renice(snapshot, nice);
        const auto* error = std::get_if<ProcessManagerError>(&result);
        return error ? std::optional(*error) : std::nullopt;
    }
    std::size_t said(LogLevel level, std::string_view message) {
        return bench.log.count(level, category, message);
    }
};

TEST(ProcessManager, knows_nothing_at_first) {
    Managed m;
    EXPECT_TRUE(m.manager.processes->empty());
    EXPECT_FALSE(*m.manager.isLoading);
    EXPECT_EQ(*m.manager.lastRefresh, std::nullopt);
    EXPECT_EQ(m.bench.platform.totalCalls(), 0U);
}

TEST(ProcessManager, a_refresh_tells_that_it_began_then_its_list_its_time_and_its_end) {
    Managed m;
    m.running.add(application(200));
    std::vector<std::string> told;
    const auto loading =
        m.manager.isLoading.subscribe([&](bool is) { told.emplace_back(is ? "loading" : "done"); });
    const auto list = m.manager.processes.subscribe(
        [&](const auto& all) { told.push_back(std::to_string(all.size())); });
    const auto time = m.manager.lastRefresh.subscribe(
        [&](const auto& date) { told.emplace_back(date ? "time" : "no time"); });
    told.clear();
    m.refresh();
    EXPECT_EQ(told, (std::vector<std::string>{"loading", "1", "time", "done"}));
    EXPECT_EQ(*m.manager.lastRefresh, m.bench.clock.now());
}

TEST(ProcessManager, walks_the_table_off_the_main_executor_and_the_tick) {
    Managed m;
    m.tasks.spawn([&m](std::stop_token) { return m.manager.refresh(); });
    while (m.bench.main.runOne() || m.bench.engine.runOne()) {
    }
    EXPECT_TRUE(*m.manager.isLoading);
    EXPECT_EQ(m.bench.platform.totalCalls(), 0U);
    EXPECT_TRUE(m.bench.blocking.runOne());
    EXPECT_GT(m.bench.platform.totalCalls(), 0U);
    EXPECT_EQ(*m.manager.lastRefresh, std::nullopt);
    m.bench.settle();
    EXPECT_NE(*m.manager.lastRefresh, std::nullopt);
}

TEST(ProcessManager, two_refreshes_at_once_both_end) {
    Managed m;
    m.running.add(application(200));
    m.tasks.spawn([&m](std::stop_token) { return m.manager.refresh(); });
    m.refresh();
    EXPECT_FALSE(*m.manager.isLoading);
    EXPECT_EQ(m.manager.processes->size(), 1U);
    EXPECT_EQ(m.bench.platform.calls(operations::kernProcAllFill), 2U);
}

TEST(ProcessManager, a_failed_sample_is_an_empty_list_and_time_goes_on) {
    Managed m;
    m.running.add(application(200));
    m.refresh();
    m.bench.clock.advanceBy(seconds(5));
    m.bench.failures.failNext(operations::kernProcAllSize);
    m.refresh();
    EXPECT_TRUE(m.manager.processes->empty());
    EXPECT_EQ(*m.manager.lastRefresh, m.bench.clock.now());
    EXPECT_FALSE(*m.manager.isLoading);
}

TEST(ProcessOrder, without_shares_the_names_alone_decide) {
    Managed m;
    for (const auto* name : {"zsh", "Äpfel", "birne", "Apfel", "Zebra", "apfel"})
        m.running.add(application(static_cast<std::int32_t>(200 + m.running.count()), name));
    m.refresh();
    EXPECT_EQ(m.names(),
              (std::vector<std::string>{"Apfel", "apfel", "Äpfel", "birne", "Zebra", "zsh"}));
}

TEST(ProcessOrder, the_busiest_stand_first) {
    Managed m;
    auto busy = application(200, "zsh");
    busy.load = 1.5;
    auto lessBusy = application(201, "aaa");
    lessBusy.load = 0.5;
    for (const auto& process : {application(202, "idle"), lessBusy, busy}) m.running.add(process);
    m.refresh();
    m.bench.clock.advanceBy(seconds(5));
    m.refresh();
    EXPECT_EQ(m.names(), (std::vector<std::string>{"zsh", "aaa", "idle"}));
}

TEST(ProcessOrder, equals_keep_the_kernels_order) {
    Managed m;
    for (const int pid : {300, 200, 250}) m.running.add(application(pid, pid == 200 ? "A" : "a"));
    m.refresh();
    std::vector<std::int32_t> pids;
    for (const auto& process : *m.manager.processes) pids.push_back(process.pid);
    EXPECT_EQ(pids, (std::vector<std::int32_t>{300, 200, 250}));
}

TEST(ProcessOrder, follows_a_name_that_changed) {
    Managed m;
    m.running.add(application(200, "b"));
    m.running.add(application(201, "c"));
    m.refresh();
    m.running.change(201, [](auto& process) { process.name = "a"; });
    m.refresh();
    EXPECT_EQ(m.names(), (std::vector<std::string>{"a", "b"}));
}

TEST(ProcessOrder, keeps_the_keys_of_the_last_list_until_it_rests) {
    TestBench bench;
    ProcessOrder order(bench.ports().locale);
    const auto listed = [&order] {
        std::vector<ProcessSnapshot> all(2);
        all[0].name = "zsh";
        all[1].name = "Notes";
        std::vector<std::string> names;
        for (const auto& process : order.sorted(std::move(all))) names.push_back(process.name);
        return names;
    };
    const auto before = listed();
    EXPECT_EQ(before, (std::vector<std::string>{"Notes", "zsh"}));
    EXPECT_EQ(order.keptKeys(), 2U);
    order.rest();
    EXPECT_EQ(order.keptKeys(), 0U);
    EXPECT_EQ(listed(), before);
}

TEST(ProcessRenice, shows_at_once_in_the_list_and_in_the_result) {
    Managed m;
    m.running.add(application(200));
    m.refresh();
    int told = 0;
    const auto token = m.manager.processes.subscribe([&](const auto&) { ++told; });
    const auto result = m.manager.renice(m.listed(200), 5);
    EXPECT_EQ(std::get<ProcessSnapshot>(result).nice, 5);
    EXPECT_EQ(m.listed(200).nice, 5);
    EXPECT_EQ(told, 2);  // at the subscription, and now
    EXPECT_EQ(m.running.find(200)->nice, 5);
    EXPECT_EQ(m.said(LogLevel::info, "renice succeeded: pid=200 nice=5"), 1U);
}

TEST(ProcessRenice, a_process_whose_start_is_not_told_is_taken_for_the_listed_one) {
    Managed m;
    auto process = application(200);
    process.startTime = 1;
    m.running.add(process);
    m.refresh();
    const ProcessSnapshot known = m.listed(200);
    EXPECT_EQ(m.errorOf(known, 3), std::nullopt);
    EXPECT_EQ(m.listed(200).nice, 3);
    ProcessSnapshot unknown = known;
    unknown.startTime.reset();
    EXPECT_EQ(m.errorOf(unknown, 5), std::nullopt);
    EXPECT_EQ(m.listed(200).nice, 5);
    m.manager.processes.modify([](auto& all) { all.front().startTime.reset(); });
    EXPECT_EQ(m.errorOf(known, 7), std::nullopt);
    EXPECT_EQ(m.listed(200).nice, 7);
}

TEST(ProcessRenice, accepts_the_whole_range_and_nothing_beyond) {
    Managed m;
    m.running.add(application(200));
    m.refresh();
    for (const int nice : {0, 1, 20}) EXPECT_EQ(m.errorOf(m.listed(200), nice), std::nullopt);
    for (const int nice : {21, -1, -2147483647 - 1, 2147483647})
        EXPECT_EQ(m.errorOf(m.listed(200), nice), ProcessManagerError::invalidNice(nice));
    EXPECT_TRUE(m.bench.log.lines(category).size() == 3U);  // the three that succeeded
}

TEST(ProcessRenice, refuses_the_process_before_it_looks_at_the_value) {
    Managed m;
    m.running.add(application(99));
    m.refresh();
    EXPECT_EQ(m.errorOf(m.listed(99), 400), ProcessManagerError::notModifiable());
    EXPECT_EQ(m.said(LogLevel::error, "renice rejected: pid=99 not modifiable"), 1U);
    EXPECT_EQ(m.bench.platform.calls(operations::setpriority), 0U);
}

TEST(ProcessRenice, refuses_a_process_without_a_path) {
    Managed m;
    auto process = application(200);
    process.path.clear();
    m.running.add(process);
    m.refresh();
    EXPECT_EQ(m.errorOf(m.listed(200), 5), ProcessManagerError::notModifiable());
}

TEST(ProcessRenice, tells_why_the_system_refused) {
    Managed m;
    auto process = application(200);
    process.nice = 5;
    m.running.add(process);
    m.refresh();
    EXPECT_EQ(m.errorOf(m.listed(200), 0), ProcessManagerError::systemCallFailed(EACCES));
    EXPECT_EQ(m.listed(200).nice, 5);
    EXPECT_EQ(m.said(LogLevel::error, "setpriority(200, 0) failed: errno=13"), 1U);
}

TEST(ProcessRenice, of_one_that_left_the_list_leaves_the_list_alone) {
    Managed m;
    m.running.add(application(200));
    m.refresh();
    const ProcessSnapshot before = m.listed(200);
    m.bench.failures.failNext(operations::kernProcAllSize);
    m.refresh();
    m.running.add(application(201));
    int told = 0;
    const auto token = m.manager.processes.subscribe([&](const auto&) { ++told; });
    const auto result = m.manager.renice(before, 7);
    EXPECT_EQ(std::get<ProcessSnapshot>(result).nice, 7);
    EXPECT_EQ(std::get<ProcessSnapshot>(result).pid, 200);
    EXPECT_TRUE(m.manager.processes->empty());
    EXPECT_EQ(told, 1);
}

TEST(ProcessRenice, returns_the_listed_record_and_not_the_one_it_was_given) {
    Managed m;
    m.running.add(application(200, "old"));
    m.refresh();
    const ProcessSnapshot stale = m.listed(200);
    m.running.change(200, [](auto& process) { process.name = "new"; });
    m.refresh();
    EXPECT_EQ(std::get<ProcessSnapshot>(m.manager.renice(stale, 5)).name, "new");
}

TEST(ProcessRenice, does_not_touch_another_process_that_has_the_number_by_now) {
    Managed m;
    auto first = application(200);
    first.startTime = 1;
    m.running.add(first);
    m.refresh();
    const ProcessSnapshot shown = m.listed(200);
    m.running.change(200, [](auto& process) { process.startTime = 2; });
    EXPECT_EQ(m.errorOf(shown, 5), ProcessManagerError::systemCallFailed(ESRCH));
    EXPECT_EQ(m.running.find(200)->nice, 0);
}

TEST(ProcessRenice, does_not_show_in_the_row_of_another_process_that_had_the_number) {
    Managed m;
    auto first = application(200);
    first.startTime = 1;
    m.running.add(first);
    m.refresh();
    m.running.change(200, [](auto& process) { process.startTime = 2; });
    ProcessSnapshot second = m.listed(200);
    second.startTime = 2;
    const auto result = m.manager.renice(second, 5);
    second.nice = 5;
    EXPECT_EQ(std::get<ProcessSnapshot>(result), second);
    EXPECT_EQ(m.listed(200).nice, 0);
}

TEST(ProcessRenice, during_a_sample_is_overwritten_and_corrected_by_the_next) {
    Managed m;
    m.running.add(application(200));
    m.refresh();
    m.tasks.spawn([&m](std::stop_token) { return m.manager.refresh(); });
    while (m.bench.main.runOne()) {
    }
    EXPECT_TRUE(m.bench.blocking.runOne());  // the sample is taken, not yet published
    EXPECT_EQ(m.errorOf(m.listed(200), 9), std::nullopt);
    EXPECT_EQ(m.listed(200).nice, 9);
    m.bench.settle();
    EXPECT_EQ(m.listed(200).nice, 0);
    m.refresh();
    EXPECT_EQ(m.listed(200).nice, 9);
}

TEST(ProcessManagerError, describes_itself_in_these_words) {
    EXPECT_EQ(
        ProcessManagerError::invalidNice(21).description(),
        "Niceness must be between 0 and 20 (got 21). macOS only lets non-root users *lower* a "
        "process's priority.");
    EXPECT_EQ(ProcessManagerError::systemCallFailed(EACCES).description(),
              "setpriority failed (errno 13: Permission denied).");
    EXPECT_EQ(ProcessManagerError::notModifiable().description(),
              "This process is owned by another user, is a system service, or has a protected PID. "
              "It can't be modified.");
}

}  // namespace
}  // namespace vtx
