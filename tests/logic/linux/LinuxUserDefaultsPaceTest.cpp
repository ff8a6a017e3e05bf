// SPDX-License-Identifier: MIT
// Many changes of the settings within a second.
#include <gtest/gtest.h>

#include "linux/TemporaryTree.h"
#include "platform/linux/LinuxUserDefaults.h"
#include "platform/simulated/ManualClock.h"

namespace vtx {
namespace {

namespace fs = std::filesystem;
using Names = std::set<std::string>;
using test::contentsOf;
using test::namesIn;
using test::TemporaryTree;
using test::writeFile;

class LinuxUserDefaultsPace : public testing::Test {
protected:
    TemporaryTree tree;
    const fs::path folder = tree.path();
    const fs::path file = folder / "defaults.json";
    const fs::path latest = folder / "defaults.json.latest";
    ManualClock clock;
    std::optional<LinuxUserDefaults> store{std::in_place, folder, &clock};

    void set(int value) { store->setData("x", toData(std::to_string(value))); }
    void pass(Duration span) {
        const Instant target = clock.continuous() + span;
        while (clock.fireNext(target)) {
        }
        clock.advanceTo(target);
    }
    [[nodiscard]] static std::string storedIn(const fs::path& path) {
        const auto document = parseDefaults(contentsOf(path));
        if (!document || !document->values.contains("x")) return "none";
        return std::string(asText(document->values.at("x")));
    }
    /// The process ends without a word; what it had in memory is gone.
    [[nodiscard]] std::string afterCrash() {
        const TemporaryTree copy;
        const fs::path to = fs::path(copy.path()) / "left";
        fs::copy(folder, to);
        const LinuxUserDefaults next(to);
        const auto data = next.data("x");
        EXPECT_EQ(namesIn(to), Names{"defaults.json"}) << "one file again";
        return data ? std::string(asText(*data)) : "none";
    }
};

TEST_F(LinuxUserDefaultsPace, a_single_change_is_in_the_file_at_once) {
    set(1);
    EXPECT_EQ(storedIn(file), "1");
    EXPECT_EQ(namesIn(folder), Names{"defaults.json"});
    EXPECT_TRUE(clock.pending().empty()) << "no timer for nothing";
}

TEST_F(LinuxUserDefaultsPace, a_flood_of_changes_replaces_the_file_once_a_second) {
    for (int i = 0; i <= 60; ++i) {
        set(i);
        EXPECT_EQ(storedIn(file), "0");
        pass(std::chrono::milliseconds(15));
    }
    pass(std::chrono::milliseconds(1100));
    EXPECT_EQ(storedIn(file), "60");
    EXPECT_EQ(namesIn(folder), Names{"defaults.json"});
}

TEST_F(LinuxUserDefaultsPace, every_change_is_in_force_at_once) {
    set(1);
    set(2);
    EXPECT_EQ(asText(*store->data("x")), "2");
}

TEST_F(LinuxUserDefaultsPace, a_crash_loses_no_change) {
    set(1);
    set(2);
    set(3);
    EXPECT_EQ(storedIn(file), "1");
    EXPECT_EQ(afterCrash(), "3");
}

TEST_F(LinuxUserDefaultsPace, the_end_of_the_program_leaves_the_last_change_in_the_file) {
    set(1);
    set(2);
    store.reset();
    EXPECT_EQ(storedIn(file), "2");
    EXPECT_EQ(namesIn(folder), Names{"defaults.json"});
}

TEST_F(LinuxUserDefaultsPace, a_change_after_a_quiet_second_is_in_the_file_at_once) {
    set(1);
    pass(std::chrono::seconds(1));
    set(2);
    EXPECT_EQ(storedIn(file), "2");
}

TEST_F(LinuxUserDefaultsPace, a_removal_is_stored_like_a_change) {
    set(1);
    store->remove("x");
    EXPECT_EQ(storedIn(file), "1");
    EXPECT_EQ(afterCrash(), "none");
}

TEST_F(LinuxUserDefaultsPace, what_a_power_cut_left_of_the_latest_is_passed_over) {
    set(1);
    for (const char* torn : {"", "{\"x\": \"2", "[]"}) {
        writeFile(latest, torn);
        EXPECT_EQ(afterCrash(), "1") << torn;
    }
}

TEST_F(LinuxUserDefaultsPace, the_latest_stays_while_the_file_cannot_be_replaced) {
    set(1);
    set(2);
    fs::remove(file);
    fs::create_directory(file);  // in the way of every replacement
    pass(std::chrono::seconds(3));
    EXPECT_EQ(storedIn(latest), "2");
}

}  // namespace
}  // namespace vtx
