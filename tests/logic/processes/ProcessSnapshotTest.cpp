// SPDX-License-Identifier: MIT
#include "processes/ProcessSnapshot.h"

#include <gtest/gtest.h>

#include "processes/CPUTotals.h"
#include "processes/MachTime.h"

namespace vtx {
namespace {

constexpr std::uint32_t user = 501;

ProcessSnapshot ownApplication() {
    ProcessSnapshot process;
    process.pid = 100;
    process.uid = user;
    process.name = "Notes";
    process.executablePath = "/Applications/Notes.app/Contents/MacOS/Notes";
    return process;
}

template <class Edit>
bool isModifiableWith(Edit edit) {
    auto process = ownApplication();
    edit(process);
    return process.isModifiable(user);
}

TEST(ProcessModifiable, is_an_application_of_the_user) {
    EXPECT_TRUE(ownApplication().isModifiable(user));
    EXPECT_FALSE(ownApplication().isModifiable(0));
}

TEST(ProcessModifiable, is_not_what_another_user_runs) {
    EXPECT_FALSE(isModifiableWith([](auto& p) { p.uid = 0; }));
}

TEST(ProcessModifiable, is_not_one_of_the_first_numbers) {
    EXPECT_FALSE(isModifiableWith([](auto& p) { p.pid = 99; }));
}

TEST(ProcessModifiable, is_not_what_has_no_path) {
    EXPECT_FALSE(isModifiableWith([](auto& p) { p.executablePath.reset(); }));
}

TEST(ProcessModifiable, is_not_what_lies_where_the_system_lies) {
    for (const auto* folder :
         {"/System/", "/usr/libexec/", "/usr/sbin/", "/usr/bin/", "/sbin/", "/bin/"})
        EXPECT_FALSE(isModifiableWith([&](auto& p) {
            p.executablePath = std::string(folder) + "program";
        })) << folder;
}

TEST(ProcessModifiable, is_what_lies_in_folders_that_only_look_like_the_systems) {
    for (const auto* path : {"/usr/local/bin/program", "/opt/bin/program", "/Applications/bin/x",
                             "/usr/binary/program", "/Systems/program", "/home/bin/program"})
        EXPECT_TRUE(isModifiableWith([&](auto& p) { p.executablePath = path; })) << path;
}

TEST(ProcessModifiable, is_not_the_kernel_or_the_first_process_by_name) {
    EXPECT_FALSE(isModifiableWith([](auto& p) { p.name = "kernel_task"; }));
    EXPECT_FALSE(isModifiableWith([](auto& p) { p.name = "launchd"; }));
    EXPECT_TRUE(isModifiableWith([](auto& p) { p.name = "launchd2"; }));
}

TEST(ProcessModifiable, is_what_the_platform_says_where_it_says_it) {
    EXPECT_FALSE(isModifiableWith([](auto& p) { p.isSystemSoftware = true; }));
    EXPECT_TRUE(isModifiableWith([](auto& p) {
        p.isSystemSoftware = false;
        p.executablePath = "/usr/bin/editor";
    }));
    EXPECT_FALSE(isModifiableWith([](auto& p) {
        p.isSystemSoftware = false;
        p.uid = 0;
    }));
}

TEST(ProcessOwnSoftware, does_not_ask_for_the_number) {
    auto process = ownApplication();
    process.pid = 50;
    EXPECT_TRUE(process.isOwnSoftware(user));
    EXPECT_FALSE(process.isModifiable(user));
}

TEST(MachTime, converts_without_leaving_sixty_four_bits) {
    EXPECT_EQ(nanoseconds(24'000'000, {125, 3}), 1'000'000'000U);
    EXPECT_EQ(nanoseconds(7, {125, 3}), 291U);
    EXPECT_EQ(nanoseconds(~std::uint64_t{0}, {1, 1}), ~std::uint64_t{0});
    EXPECT_EQ(nanoseconds(600'000'000'000'000'000U, {125, 5}), 15'000'000'000'000'000'000U);
}

TEST(MachTime, units_without_a_timebase_stand_as_they_are) {
    EXPECT_EQ(nanoseconds(7, {1, 0}), 7U);
    EXPECT_EQ(nanoseconds(7, {0, 0}), 7U);
}

TEST(CPUTotals, finds_each_whatever_the_order) {
    CPUTotals totals;
    totals.add(9, 90);
    totals.add(3, 30);
    totals.add(5, 50);
    totals.arrange();
    EXPECT_EQ(totals.find(5), 50U);
    EXPECT_EQ(totals.find(3), 30U);
    EXPECT_EQ(totals.find(9), 90U);
    EXPECT_EQ(totals.find(9), 90U);
    EXPECT_EQ(totals.find(4), std::nullopt);
    EXPECT_EQ(CPUTotals().find(4), std::nullopt);
}

}  // namespace
}  // namespace vtx
