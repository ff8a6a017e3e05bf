// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxProcessTable.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>

#include "linux/ProcTree.h"
#include "platform/simulated/ManualClock.h"

namespace vtx::test {
namespace {

constexpr auto applications =
    "0::/user.slice/user-0.slice/user@0.service/app.slice/app-x-1.scope\n";

struct LinuxProcessTables : testing::Test {
    ProcTree tree;
    LinuxRoot root{tree.path()};
    ManualClock clock;
    std::optional<LinuxProcessTable> table{std::in_place, root, clock};

    std::vector<KinfoProc> list() {
        std::size_t bytes = 0;
        EXPECT_EQ(table->kernProcAll({}, bytes), 0);
        std::vector<KinfoProc> records(bytes / kinfoProcBytes + 1);
        EXPECT_EQ(table->kernProcAll(records, bytes), 0);
        records.resize(bytes / kinfoProcBytes);
        return records;
    }
    std::vector<std::int32_t> pids() {
        std::vector<std::int32_t> all;
        for (const auto& record : list()) all.push_back(record.pid);
        return all;
    }
    ProcessDetails details(std::int32_t pid) {
        (void)list();
        return table->details(pid);
    }
};

TEST_F(LinuxProcessTables, every_figure_comes_from_the_one_line) {
    tree.put({.pid = 300, .userTicks = 250, .nice = 5, .threads = 7, .startTime = 42, .pages = 3});
    const auto process = details(300);
    EXPECT_EQ(process.name, "program");
    EXPECT_EQ(process.taskInfoBytes, procTaskInfoBytes);
    EXPECT_EQ(process.taskInfo.totalUser + process.taskInfo.totalSystem, 250U);
    EXPECT_EQ(process.taskInfo.residentSize,
              3U * static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE)));
    EXPECT_EQ(process.taskInfo.threadNum, 7);
    EXPECT_EQ(process.priority, 5);
    EXPECT_EQ(process.priorityError, 0);
    EXPECT_EQ(process.startTime, 42U);
    EXPECT_EQ(process.path, std::nullopt);
}

TEST_F(LinuxProcessTables, the_user_is_the_one_who_runs_the_program) {
    EXPECT_EQ(table->getuid(), ::getuid());
}

TEST_F(LinuxProcessTables, what_a_process_has_used_is_told_by_the_last_listing) {
    tree.put({.pid = 300, .userTicks = 250});
    RusageInfo info;
    EXPECT_EQ(table->procPidRusage(300, info), ESRCH);
    (void)list();
    tree.put({.pid = 300, .userTicks = 400});
    EXPECT_EQ(table->procPidRusage(300, info), 0);
    EXPECT_EQ(info, (RusageInfo{.userTime = 250}));
    (void)list();
    EXPECT_EQ(table->procPidRusage(300, info), 0);
    EXPECT_EQ(info.userTime, 400U);
}

TEST_F(LinuxProcessTables, a_process_that_ended_or_refuses_has_used_nothing_that_is_known) {
    tree.put({.pid = 300});
    tree.put({.pid = 301});
    (void)list();
    tree.end(300);
    tree.put(301, "stat", "cut");
    (void)list();
    RusageInfo info{.userTime = 7};
    EXPECT_EQ(table->procPidRusage(300, info), ESRCH);
    EXPECT_EQ(table->procPidRusage(301, info), ESRCH);
    EXPECT_EQ(info.userTime, 7U);
}

TEST_F(LinuxProcessTables, only_numbers_are_processes_and_they_ascend) {
    for (const int pid : {300, 9, 1200, 77}) tree.put({.pid = pid});
    tree.write("/proc/meminfo", "");
    tree.write("/proc/12x/stat", "");
    tree.write("/proc/0/stat", "");
    EXPECT_EQ(pids(), (std::vector<std::int32_t>{9, 77, 300, 1200}));
}

TEST_F(LinuxProcessTables, the_owner_is_that_of_the_folder) {
    tree.put({.pid = 300});
    EXPECT_EQ(list().front().uid, ::geteuid());
    if (::geteuid() != 0) GTEST_SKIP() << "only the superuser gives folders away";
    ASSERT_EQ(::chown((tree / "proc/300").c_str(), 1234, static_cast<gid_t>(-1)), 0);
    EXPECT_EQ(list().front().uid, 1234U);
}

TEST_F(LinuxProcessTables, a_process_that_went_is_gone_and_its_descriptor_closed) {
    tree.put({.pid = 300});
    tree.put({.pid = 301});
    (void)list();
    EXPECT_EQ(table->keptDescriptors(), 2U);
    tree.end(300);
    EXPECT_EQ(pids(), std::vector<std::int32_t>{301});
    EXPECT_EQ(table->keptDescriptors(), 1U);
    EXPECT_EQ(table->details(300).taskInfoBytes, 0);
    EXPECT_EQ(table->details(300).priorityError, ESRCH);
}

TEST_F(LinuxProcessTables, beyond_the_bound_files_are_opened_for_each_read) {
    table.emplace(root, clock, 2);
    for (int pid = 300; pid < 305; ++pid) tree.put({.pid = pid, .userTicks = 7});
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(list().size(), 5U);
        EXPECT_EQ(table->keptDescriptors(), 2U);
        for (int pid = 300; pid < 305; ++pid) EXPECT_EQ(table->details(pid).taskInfo.totalUser, 7U);
    }
}

TEST_F(LinuxProcessTables, the_bound_leaves_descriptors_to_the_rest_of_the_program) {
    const auto all = static_cast<std::size_t>(::sysconf(_SC_OPEN_MAX));
    EXPECT_LT(LinuxProcessTable::usualDescriptors(), all);
    EXPECT_GE(LinuxProcessTable::usualDescriptors(), std::min<std::size_t>(all / 2, 256));
}

TEST_F(LinuxProcessTables, nothing_stays_open_when_nobody_asks_and_everything_is_found_again) {
    for (const int pid : {300, 301}) tree.put({.pid = pid, .userTicks = 7});
    (void)list();
    EXPECT_EQ(table->keptDescriptors(), 2U);
    table->letGo();
    EXPECT_EQ(table->keptDescriptors(), 0U);
    EXPECT_EQ(table->details(300).priorityError, ESRCH);
    EXPECT_EQ(pids(), (std::vector<std::int32_t>{300, 301}));
    EXPECT_EQ(table->details(301).taskInfo.totalUser, 7U);
    EXPECT_EQ(table->keptDescriptors(), 2U);
}

TEST_F(LinuxProcessTables, the_path_is_read_once_for_a_program) {
    tree.put({.pid = 300});
    tree.link(300, "/opt/first");
    EXPECT_EQ(details(300).path, "/opt/first");
    tree.link(300, "/opt/second");
    EXPECT_EQ(details(300).path, "/opt/first");
}

TEST_F(LinuxProcessTables, another_program_in_the_same_process_is_noticed) {
    tree.put({.pid = 300});
    tree.link(300, "/opt/first");
    (void)details(300);
    tree.link(300, "/opt/second");
    tree.put({.pid = 300, .startStack = 16384});
    EXPECT_EQ(details(300).path, "/opt/second");
    tree.link(300, "/opt/third");
    tree.put({.pid = 300, .comm = "third", .startStack = 16384});
    EXPECT_EQ(details(300).path, "/opt/third");
    EXPECT_EQ(table->details(300).name, "third");
}

TEST_F(LinuxProcessTables, a_number_given_again_is_another_process) {
    tree.put({.pid = 300, .startTime = 1000});
    tree.link(300, "/opt/first");
    EXPECT_EQ(details(300).path, "/opt/first");
    tree.link(300, "/opt/second");
    tree.put({.pid = 300, .startTime = 2000});
    EXPECT_EQ(details(300).path, "/opt/second");
    EXPECT_EQ(table->details(300).startTime, 2000U);
}

TEST_F(LinuxProcessTables, a_deleted_executable_has_the_path_that_it_had) {
    tree.put({.pid = 300});
    tree.link(300, "/opt/no such folder/x (deleted)");
    EXPECT_EQ(details(300).path, "/opt/no such folder/x");
    tree.put({.pid = 301});
    tree.link(301, "/opt/x (deleted) (deleted)");
    EXPECT_EQ(details(301).path, "/opt/x (deleted)");
}

TEST_F(LinuxProcessTables, a_name_that_the_kernel_cut_is_made_whole) {
    tree.put({.pid = 300, .comm = "gnome-terminal-"});
    tree.link(300, "/usr/libexec/gnome-terminal-server");
    EXPECT_EQ(details(300).name, "gnome-terminal-server");
    tree.put({.pid = 301, .comm = "gnome-terminal-"});
    tree.put(301, "cmdline", std::string_view("python3\0/x/gnome-terminal-helper\0", 33));
    EXPECT_EQ(details(301).name, "gnome-terminal-helper");
}

TEST_F(LinuxProcessTables, a_whole_name_ends_with_the_program_that_had_it) {
    tree.put({.pid = 300, .comm = "gnome-terminal-"});
    tree.link(300, "/usr/libexec/gnome-terminal-server");
    (void)details(300);
    tree.put({.pid = 300, .comm = "gnome-terminal-", .startStack = 16384});
    tree.link(300, "/opt/gnome-terminal-");
    EXPECT_EQ(details(300).name, "gnome-terminal-");
}

TEST_F(LinuxProcessTables, a_program_that_hides_its_file_keeps_its_whole_name) {
    tree.put({.pid = 300, .comm = "gnome-terminal-"});
    tree.link(300, "/usr/libexec/gnome-terminal-server");
    (void)details(300);
    tree.put({.pid = 300, .comm = "gnome-terminal-", .startCode = 1, .startStack = 0});
    std::filesystem::remove(tree / "proc/300/exe");
    EXPECT_EQ(details(300).name, "gnome-terminal-server");
    EXPECT_EQ(table->details(300).path, std::nullopt);
}

TEST_F(LinuxProcessTables, what_has_ended_keeps_its_whole_name) {
    tree.put({.pid = 300, .comm = "gnome-terminal-"});
    tree.link(300, "/usr/libexec/gnome-terminal-server");
    (void)details(300);
    tree.put({.pid = 300, .comm = "gnome-terminal-", .startCode = 0, .startStack = 0});
    EXPECT_EQ(details(300).name, "gnome-terminal-server");
    EXPECT_EQ(table->details(300).path, std::nullopt);
}

TEST_F(LinuxProcessTables, a_thread_of_the_kernel_is_named_and_has_no_file) {
    tree.put({.pid = 300, .comm = "kworker/0:1-events_power", .startCode = 0, .startStack = 0});
    EXPECT_EQ(details(300).name, "kworker/0:1-events_power");
    EXPECT_EQ(table->details(300).path, std::nullopt);
    EXPECT_EQ(table->details(300).isSystemSoftware, std::nullopt);
}

TEST_F(LinuxProcessTables, hostile_names_come_through_as_they_are) {
    for (const std::string name : {"a b", "x) S 1", "((", "a\nb", "\xFF\xC3", ""}) {
        tree.put({.pid = 300, .comm = name});
        EXPECT_EQ(details(300).name.value_or(""), name);
        EXPECT_EQ(table->details(300).taskInfo.threadNum, 1);
    }
}

TEST_F(LinuxProcessTables, a_line_that_breaks_off_tells_nothing_and_what_was_learned_stays) {
    tree.put({.pid = 300, .pages = 5});
    tree.link(300, "/opt/x");
    (void)details(300);
    tree.put(300, "stat", TreeProcess{.pid = 300}.stat().substr(0, 40));
    const auto process = details(300);
    EXPECT_EQ(process.taskInfoBytes, 0);
    EXPECT_EQ(process.priorityError, ESRCH);
    EXPECT_EQ(process.name, "program");
    EXPECT_EQ(process.path, "/opt/x");
    EXPECT_EQ(pids(), std::vector<std::int32_t>{300});
    tree.put({.pid = 300, .pages = 5});
    EXPECT_EQ(details(300).taskInfoBytes, procTaskInfoBytes);
}

TEST_F(LinuxProcessTables, a_process_whose_line_never_was_whole_is_listed_without_details) {
    tree.put(300, "stat", "");
    const auto process = details(300);
    EXPECT_EQ(process.name, std::nullopt);
    EXPECT_EQ(process.startTime, std::nullopt);
    EXPECT_EQ(pids(), std::vector<std::int32_t>{300});
}

TEST_F(LinuxProcessTables, a_process_that_dies_between_the_listing_and_its_read_is_not_there) {
    std::filesystem::create_directory(tree / "proc/300");
    tree.put({.pid = 301});
    EXPECT_EQ(pids(), std::vector<std::int32_t>{301});
}

TEST_F(LinuxProcessTables, a_process_that_refuses_its_line_is_listed_with_its_owner) {
    tree.put({.pid = 300});
    std::filesystem::create_directory(tree / "proc/301");
    std::filesystem::create_symlink("stat", tree / "proc/301/stat");  // opens with ELOOP
    const auto all = list();
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[1], (KinfoProc{301, ::geteuid()}));
    EXPECT_EQ(table->details(301).taskInfoBytes, 0);
}

TEST_F(LinuxProcessTables, only_the_users_own_are_asked_whose_software_they_are) {
    tree.put({.pid = 300});
    tree.put(300, "cgroup", applications);
    EXPECT_EQ(details(300).isSystemSoftware, false);
    if (::geteuid() != 0) GTEST_SKIP() << "only the superuser gives folders away";
    ASSERT_EQ(::chown((tree / "proc/300").c_str(), 1234, static_cast<gid_t>(-1)), 0);
    EXPECT_EQ(details(300).isSystemSoftware, std::nullopt);
}

TEST_F(LinuxProcessTables, a_group_that_the_session_gives_a_moment_later_is_noticed) {
    tree.put({.pid = 300});
    tree.put(300, "cgroup", "0::/user.slice/user-0.slice/user@0.service/session.slice/x.service\n");
    EXPECT_EQ(details(300).isSystemSoftware, true);
    tree.put(300, "cgroup", applications);
    EXPECT_EQ(details(300).isSystemSoftware, false);
    tree.put(300, "cgroup", "0::/init.scope\n");
    EXPECT_EQ(details(300).isSystemSoftware, false);  // it is settled by now
}

TEST_F(LinuxProcessTables, without_groups_names_and_folders_decide) {
    tree.put({.pid = 300, .comm = "gnome-shell"});
    tree.put({.pid = 301});
    tree.link(301, "/usr/bin/program");
    EXPECT_EQ(details(300).isSystemSoftware, true);
    EXPECT_EQ(table->details(301).isSystemSoftware, false);
}

TEST_F(LinuxProcessTables, a_filling_for_which_there_is_no_room_says_so) {
    tree.put({.pid = 300});
    tree.put({.pid = 301});
    (void)list();
    std::vector<KinfoProc> one(1);
    std::size_t bytes = 0;
    EXPECT_EQ(table->kernProcAll(one, bytes), ENOMEM);
}

TEST_F(LinuxProcessTables, a_machine_without_the_folder_fails_and_is_tried_again) {
    tree.remove("/proc");
    std::size_t bytes = 0;
    EXPECT_EQ(table->kernProcAll({}, bytes), ENOENT);
    tree.put({.pid = 300});
    EXPECT_EQ(pids(), std::vector<std::int32_t>{300});
}

TEST_F(LinuxProcessTables, times_are_in_ticks_of_the_systems_clock) {
    const auto timebase = table->machTimebaseInfo();
    EXPECT_EQ(timebase.denom, 1U);
    EXPECT_EQ(timebase.numer * static_cast<std::uint32_t>(::sysconf(_SC_CLK_TCK)), 1'000'000'000U);
}

TEST_F(LinuxProcessTables, thirty_thousand_processes_are_all_read) {
    table.emplace(root, clock, 500);
    for (int pid = 1; pid <= 30'000; ++pid) tree.put({.pid = pid, .userTicks = 3});
    EXPECT_EQ(list().size(), 30'000U);
    EXPECT_EQ(table->keptDescriptors(), 500U);
    for (int pid = 1; pid <= 30'000; ++pid) ASSERT_EQ(table->details(pid).taskInfo.totalUser, 3U);
}

TEST(ProcessListing, the_last_number_is_the_last_word_of_the_averages) {
    EXPECT_EQ(ProcessListing::lastPid("0.00 0.01 0.05 1/123 4567\n"), 4567);
    for (const auto* text : {"", "\n", "0.00 ", "0.00 0.01 0.05 1/123 -4\n", "0 0 0 1/1 0\n",
                             "0 0 0 1/1 99999999999\n"})
        EXPECT_EQ(ProcessListing::lastPid(text), std::nullopt) << text;
}

}  // namespace
}  // namespace vtx::test
