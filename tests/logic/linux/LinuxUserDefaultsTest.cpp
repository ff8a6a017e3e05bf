// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxUserDefaults.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <thread>
#include <vector>

#include "base/Log.h"
#include "linux/OrdinaryUser.h"
#include "linux/TemporaryTree.h"

namespace vtx {
namespace {

namespace fs = std::filesystem;
using Names = std::set<std::string>;
using test::contentsOf;
using test::namesIn;
using test::TemporaryTree;
using test::writeFile;

/// Takes the process's log lines for as long as it lives.
class RecordedLog final : public LogSink {
public:
    RecordedLog() : before_(AppLog::install(this)) {}
    ~RecordedLog() override { AppLog::install(before_); }

    void write(LogLevel level, std::string_view, std::string_view category,
               std::string_view message) noexcept override {
        if (category != "UserDefaults") return;
        (level == LogLevel::error ? errors : notices).emplace_back(message);
    }
    [[nodiscard]] bool isEnabled(LogLevel) const noexcept override { return true; }

    std::vector<std::string> errors;
    std::vector<std::string> notices;

private:
    LogSink* before_;
};

/// While it lives no file of this process can grow past so many bytes: a disk that is full.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) {
        handler_ = ::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        ::signal(SIGXFSZ, handler_);
    }

private:
    rlimit before_{};
    void (*handler_)(int) = nullptr;
};

std::string textOf(const LinuxUserDefaults& store, std::string_view key) {
    const auto data = store.data(key);
    return data ? std::string(asText(*data)) : "absent";
}

/// What the next run of the program reads.
std::string storedText(const fs::path& folder, std::string_view key) {
    return textOf(LinuxUserDefaults(folder), key);
}

mode_t modeOf(const fs::path& path) {
    struct stat status{};
    EXPECT_EQ(::lstat(path.c_str(), &status), 0) << path;
    return status.st_mode & 07777;
}

Environment environmentOf(std::map<std::string, std::string, std::less<>> variables) {
    return [variables](std::string_view name) -> std::optional<std::string> {
        const auto found = variables.find(name);
        if (found == variables.end()) return std::nullopt;
        return found->second;
    };
}

class LinuxUserDefaultsTest : public testing::Test {
protected:
    TemporaryTree folder;
    fs::path file = folder / "defaults.json";
    RecordedLog log;
};

}  // namespace

TEST(LinuxUserDefaults, the_standard_folder_follows_the_environment) {
    const auto folder = [](auto variables) {
        return LinuxUserDefaults::standardFolder(environmentOf(variables));
    };
    using Variables = std::map<std::string, std::string, std::less<>>;
    EXPECT_EQ(folder(Variables{{"XDG_CONFIG_HOME", "/c"}, {"HOME", "/h"}}), "/c/vantrix");
    EXPECT_EQ(folder(Variables{{"HOME", "/h"}}), "/h/.config/vantrix");
    EXPECT_EQ(folder(Variables{{"XDG_CONFIG_HOME", ""}, {"HOME", "/h"}}), "/h/.config/vantrix");
    EXPECT_EQ(folder(Variables{{"XDG_CONFIG_HOME", "c"}, {"HOME", "/h"}}), "/h/.config/vantrix");
    EXPECT_NE(folder(Variables{{"HOME", "relative"}}), "relative/.config/vantrix");
}

TEST_F(LinuxUserDefaultsTest, a_store_without_a_file_is_empty_and_makes_none) {
    const LinuxUserDefaults store(folder / "vantrix");
    EXPECT_EQ(store.data("a"), std::nullopt);
    EXPECT_EQ(namesIn(folder.path()), Names{});
    EXPECT_TRUE(log.errors.empty());
}

TEST_F(LinuxUserDefaultsTest, what_was_set_is_in_force_and_found_by_the_next_run) {
    LinuxUserDefaults store(folder.path());
    const Data bytes(300, std::byte{0x80});
    store.setData("text", toData("one"));
    store.setData("bytes", bytes);
    store.setData("text", toData("two"));
    EXPECT_EQ(textOf(store, "text"), "two");
    EXPECT_EQ(storedText(folder.path(), "text"), "two");
    EXPECT_EQ(LinuxUserDefaults(folder.path()).data("bytes"), bytes);
    EXPECT_EQ(namesIn(folder.path()), Names{"defaults.json"});
    EXPECT_TRUE(log.errors.empty() && log.notices.empty());
}

TEST_F(LinuxUserDefaultsTest, a_removed_key_is_gone_and_removing_an_absent_one_writes_nothing) {
    LinuxUserDefaults store(folder.path());
    store.remove("absent");
    EXPECT_FALSE(fs::exists(file));
    store.setData("a", toData("1"));
    store.remove("a");
    EXPECT_EQ(textOf(store, "a"), "absent");
    EXPECT_EQ(storedText(folder.path(), "a"), "absent");
}

TEST_F(LinuxUserDefaultsTest, missing_folders_are_made_for_the_owner_alone) {
    LinuxUserDefaults store(folder / "a/b");
    store.setData("k", toData("v"));
    EXPECT_EQ(storedText(folder / "a/b", "k"), "v");
    EXPECT_EQ(modeOf(folder / "a"), 0700u);
    EXPECT_EQ(modeOf(folder / "a/b"), 0700u);
    EXPECT_EQ(modeOf(folder / "a/b/defaults.json"), 0600u);
}

TEST_F(LinuxUserDefaultsTest, keys_and_forms_that_nobody_knows_are_kept) {
    writeFile(file, R"({"future":{"x":[1,2.5,null]},"count":7,"other":"text"})");
    LinuxUserDefaults store(folder.path());
    EXPECT_EQ(textOf(store, "count"), "absent");
    store.setData("mine", toData("1"));
    EXPECT_EQ(contentsOf(file),
              "{\n  \"count\": 7,\n  \"future\": {\"x\":[1,2.5,null]},\n"
              "  \"mine\": \"1\",\n  \"other\": \"text\"\n}\n");
}

TEST_F(LinuxUserDefaultsTest, a_key_of_an_unknown_form_can_be_set_and_removed) {
    writeFile(file, R"({"a":1,"b":2})");
    LinuxUserDefaults store(folder.path());
    store.setData("a", toData("mine"));
    store.remove("b");
    EXPECT_EQ(contentsOf(file), "{\n  \"a\": \"mine\"\n}\n");
}

TEST_F(LinuxUserDefaultsTest, a_damaged_file_is_set_aside_as_it_was_and_a_new_one_begun) {
    for (const std::string& damage : {std::string("{\"a\":\"1"), std::string(), std::string("[]"),
                                      std::string("{\"a\":\"\xff\"}"), std::string(512, '\0')}) {
        const TemporaryTree own;
        const RecordedLog ownLog;
        writeFile(own / "defaults.json", damage);
        LinuxUserDefaults store(own.path());
        EXPECT_EQ(namesIn(own.path()), Names{"defaults.json.damaged-1"});
        EXPECT_EQ(ownLog.errors.size(), 1u);
        store.setData("a", toData("2"));
        EXPECT_EQ(contentsOf(own / "defaults.json.damaged-1"), damage);
        EXPECT_EQ(storedText(own.path(), "a"), "2");
    }
}

TEST_F(LinuxUserDefaultsTest, setting_aside_never_takes_an_earlier_ones_name) {
    writeFile(folder / "defaults.json.damaged-1", "first");
    fs::create_symlink("nowhere", folder / "defaults.json.damaged-2");
    writeFile(file, "third");
    const LinuxUserDefaults store(folder.path());
    EXPECT_EQ(contentsOf(folder / "defaults.json.damaged-1"), "first");
    EXPECT_TRUE(fs::is_symlink(folder / "defaults.json.damaged-2"));
    EXPECT_EQ(contentsOf(folder / "defaults.json.damaged-3"), "third");
}

TEST_F(LinuxUserDefaultsTest, a_file_larger_than_any_settings_is_set_aside) {
    writeFile(file, "{}");
    fs::resize_file(file, LinuxUserDefaults::maxFileBytes + 1);
    const LinuxUserDefaults store(folder.path());
    EXPECT_EQ(namesIn(folder.path()), Names{"defaults.json.damaged-1"});
    EXPECT_EQ(log.errors.size(), 1u);
}

TEST_F(LinuxUserDefaultsTest, settings_too_large_to_be_read_again_are_not_written) {
    LinuxUserDefaults store(folder.path());
    store.setData("a", toData("1"));
    store.setData("b", Data(LinuxUserDefaults::maxFileBytes, std::byte{'x'}));
    EXPECT_EQ(contentsOf(file), "{\n  \"a\": \"1\"\n}\n");
    EXPECT_EQ(log.errors.size(), 1u);
    store.remove("b");
    EXPECT_EQ(log.notices.size(), 1u);
}

TEST_F(LinuxUserDefaultsTest, a_full_disk_leaves_the_old_file_whole_and_the_value_in_force) {
    LinuxUserDefaults store(folder.path());
    store.setData("a", toData("old"));
    const std::string before = contentsOf(file);
    for (const rlim_t room : {0u, 1u, 17u}) {
        const FullDisk full(room);
        store.setData("a", toData("new and a good deal longer"));
    }
    EXPECT_EQ(contentsOf(file), before);
    EXPECT_EQ(namesIn(folder.path()), Names{"defaults.json"});
    EXPECT_EQ(textOf(store, "a"), "new and a good deal longer");
    EXPECT_EQ(storedText(folder.path(), "a"), "old");
}

TEST_F(LinuxUserDefaultsTest, a_failure_is_logged_once_an_episode_and_so_is_its_end) {
    LinuxUserDefaults store(folder.path());
    for (std::size_t episode = 1; episode <= 2; ++episode) {
        {
            const FullDisk full(0);
            store.setData("a", toData("1"));
            store.setData("b", toData("2"));
            store.remove("c");
        }
        EXPECT_EQ(log.errors.size(), episode);
        EXPECT_EQ(log.notices.size(), episode - 1);
        store.setData("c", toData("3"));
        store.setData("c", toData("4"));
        EXPECT_EQ(log.errors.size(), episode);
        EXPECT_EQ(log.notices.size(), episode);
    }
    EXPECT_EQ(storedText(folder.path(), "a") + storedText(folder.path(), "b"), "12");
}

TEST_F(LinuxUserDefaultsTest, a_folder_that_is_a_file_stores_nothing_until_it_is_one) {
    writeFile(folder / "vantrix", "a file of the user's");
    LinuxUserDefaults store(folder / "vantrix");
    store.setData("a", toData("1"));
    store.setData("b", toData("2"));
    EXPECT_EQ(textOf(store, "a"), "1");
    EXPECT_EQ(contentsOf(folder / "vantrix"), "a file of the user's");
    EXPECT_EQ(log.errors.size(), 1u);
    fs::remove(folder / "vantrix");
    store.setData("c", toData("3"));
    EXPECT_EQ(storedText(folder / "vantrix", "a"), "1");
    EXPECT_EQ(log.notices.size(), 1u);
}

TEST_F(LinuxUserDefaultsTest, a_folder_removed_while_running_is_made_again) {
    LinuxUserDefaults store(folder / "vantrix");
    store.setData("a", toData("1"));
    fs::remove_all(folder / "vantrix");
    store.setData("b", toData("2"));
    EXPECT_EQ(storedText(folder / "vantrix", "a"), "1");
}

TEST_F(LinuxUserDefaultsTest, a_file_that_cannot_be_read_is_never_written_over) {
    fs::create_directory(file);
    writeFile(file / "inside", "kept");
    LinuxUserDefaults store(folder.path());
    EXPECT_EQ(log.errors.size(), 1u);
    store.setData("a", toData("1"));
    EXPECT_EQ(textOf(store, "a"), "1");
    EXPECT_EQ(contentsOf(file / "inside"), "kept");
    EXPECT_EQ(namesIn(folder.path()), Names{"defaults.json"});
    EXPECT_EQ(log.errors.size(), 1u);
}

TEST_F(LinuxUserDefaultsTest, a_pipe_in_the_files_place_neither_blocks_nor_is_replaced) {
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    LinuxUserDefaults store(folder.path());
    store.setData("a", toData("1"));
    EXPECT_TRUE(fs::is_fifo(file));
    EXPECT_EQ(log.errors.size(), 1u);
}

TEST_F(LinuxUserDefaultsTest, a_file_without_permission_to_read_is_left_as_it_is) {
    writeFile(file, R"({"a":"theirs"})");
    fs::permissions(file, fs::perms::none);
    const test::OrdinaryUser user(folder.path(), file);
    ASSERT_TRUE(user.isBoundByPermissions());
    LinuxUserDefaults store(folder.path());
    store.setData("b", toData("1"));
    fs::permissions(file, fs::perms::owner_all);
    EXPECT_EQ(contentsOf(file), R"({"a":"theirs"})");
    EXPECT_EQ(log.errors.size(), 1u);
}

TEST_F(LinuxUserDefaultsTest, a_file_readable_late_joins_beneath_what_changed_meanwhile) {
    fs::create_symlink(file, file);  // leads round in a circle
    LinuxUserDefaults store(folder.path());
    store.setData("changed", toData("mine"));
    store.remove("removed");
    ASSERT_TRUE(fs::is_symlink(file));
    fs::remove(file);
    writeFile(file, R"({"changed":"theirs","removed":"theirs","kept":"theirs","form":1})");
    store.setData("new", toData("mine"));
    EXPECT_EQ(contentsOf(file),
              "{\n  \"changed\": \"mine\",\n  \"form\": 1,\n  \"kept\": \"theirs\",\n"
              "  \"new\": \"mine\"\n}\n");
    EXPECT_EQ(textOf(store, "kept"), "theirs");
    EXPECT_EQ(log.errors.size(), 1u);
    EXPECT_EQ(log.notices.size(), 1u);
}

TEST_F(LinuxUserDefaultsTest, a_damaged_file_that_cannot_be_set_aside_is_not_written_over) {
    // The longest name there can be: nothing can be added to it.
    const std::string longName(255, 'x');
    writeFile(folder / longName, "damaged");
    fs::create_symlink(longName, file);
    LinuxUserDefaults store(folder.path());
    store.setData("a", toData("1"));
    store.setData("a", toData("2"));
    EXPECT_EQ(contentsOf(folder / longName), "damaged");
    EXPECT_EQ(namesIn(folder.path()), (Names{"defaults.json", longName}));
    EXPECT_EQ(textOf(store, "a"), "2");
    EXPECT_EQ(log.errors.size(), 1u);
}

TEST_F(LinuxUserDefaultsTest, a_symbolic_link_stays_one_and_what_it_leads_to_is_replaced) {
    fs::create_directories(folder / "dotfiles");
    writeFile(folder / "dotfiles/vantrix.json", R"({"a":"1"})");
    fs::create_symlink("dotfiles/vantrix.json", folder / "middle");
    fs::create_symlink(folder / "middle", file);
    LinuxUserDefaults store(folder.path());
    EXPECT_EQ(textOf(store, "a"), "1");
    store.setData("a", toData("2"));
    EXPECT_TRUE(fs::is_symlink(file) && fs::is_symlink(folder / "middle"));
    EXPECT_FALSE(fs::is_symlink(folder / "dotfiles/vantrix.json"));
    EXPECT_EQ(contentsOf(folder / "dotfiles/vantrix.json"), "{\n  \"a\": \"2\"\n}\n");
    EXPECT_EQ(namesIn(folder / "dotfiles"), Names{"vantrix.json"});
}

TEST_F(LinuxUserDefaultsTest, a_link_that_leads_nowhere_yet_gets_its_file) {
    fs::create_symlink("target.json", file);
    LinuxUserDefaults store(folder.path());
    store.setData("a", toData("1"));
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_EQ(contentsOf(folder / "target.json"), "{\n  \"a\": \"1\"\n}\n");
}

TEST_F(LinuxUserDefaultsTest, a_damaged_file_behind_a_link_is_set_aside_where_it_lies) {
    fs::create_directories(folder / "dotfiles");
    writeFile(folder / "dotfiles/vantrix.json", "damaged");
    fs::create_symlink("dotfiles/vantrix.json", file);
    LinuxUserDefaults store(folder.path());
    store.setData("a", toData("1"));
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_EQ(contentsOf(folder / "dotfiles/vantrix.json.damaged-1"), "damaged");
    EXPECT_EQ(storedText(folder.path(), "a"), "1");
}

TEST_F(LinuxUserDefaultsTest, of_two_stores_the_last_to_write_wins_with_a_whole_file) {
    LinuxUserDefaults first(folder.path());
    LinuxUserDefaults second(folder.path());
    first.setData("a", toData("first"));
    second.setData("b", toData("second"));
    EXPECT_EQ(contentsOf(file), "{\n  \"b\": \"second\"\n}\n");
    first.setData("c", toData("first"));
    EXPECT_EQ(contentsOf(file), "{\n  \"a\": \"first\",\n  \"c\": \"first\"\n}\n");
}

TEST_F(LinuxUserDefaultsTest, a_reader_never_finds_a_torn_file_while_two_write) {
    const auto writeOften = [&](char letter) {
        LinuxUserDefaults store(folder.path());
        for (std::size_t i = 0; i < 40; ++i)
            store.setData("k", toData(std::string(i * 997, letter)));
    };
    {
        LinuxUserDefaults(folder.path()).setData("k", toData(""));
    }
    std::thread first(writeOften, 'a');
    std::thread second(writeOften, 'b');
    for (int i = 0; i < 200; ++i) EXPECT_TRUE(parseDefaults(contentsOf(file)).has_value());
    first.join();
    second.join();
    EXPECT_EQ(namesIn(folder.path()), Names{"defaults.json"});
    EXPECT_TRUE(log.errors.empty());
}

TEST_F(LinuxUserDefaultsTest, a_store_without_a_folder_keeps_values_in_memory_and_says_so_once) {
    LinuxUserDefaults store(fs::path{});
    store.setData("a", toData("1"));
    store.setData("b", toData("2"));
    EXPECT_EQ(textOf(store, "a"), "1");
    EXPECT_EQ(log.errors.size(), 1u);
}

}  // namespace vtx
