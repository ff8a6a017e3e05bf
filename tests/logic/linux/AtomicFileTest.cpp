// SPDX-License-Identifier: MIT
#include "platform/linux/AtomicFile.h"

#include <gtest/gtest.h>

#include "linux/TemporaryTree.h"

namespace vtx::test {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t enough = 1 << 20;

struct AtomicFileTest : testing::Test {
    TemporaryTree tree;
    fs::path file = tree / "file";

    void SetUp() override { writeFile(file, "what was there"); }
};

TEST_F(AtomicFileTest, folders_are_made_down_to_the_wanted_one_and_may_be_there) {
    EXPECT_EQ(createFolders(tree / "a/b/c"), std::error_code());
    EXPECT_TRUE(fs::is_directory(tree / "a/b/c"));
    EXPECT_EQ(createFolders(tree / "a/b/c"), std::error_code());
    EXPECT_EQ(fs::status(tree / "a").permissions(), fs::perms::owner_all);
}

TEST_F(AtomicFileTest, a_file_in_the_place_of_a_folder_stays_and_is_told) {
    EXPECT_EQ(createFolders(file), std::errc::not_a_directory);
    EXPECT_EQ(createFolders(file / "below"), std::errc::not_a_directory);
    EXPECT_EQ(createFolders(file / "below/that"), std::errc::not_a_directory);
    EXPECT_EQ(contentsOf(file), "what was there");
}

TEST_F(AtomicFileTest, a_link_that_leads_nowhere_is_no_folder_and_has_none) {
    fs::create_symlink("nowhere", tree / "link");
    EXPECT_EQ(createFolders(tree / "link"), std::errc::no_such_file_or_directory);
    EXPECT_EQ(createFolders(tree / "link/below"), std::errc::no_such_file_or_directory);
    EXPECT_FALSE(fs::exists(tree / "nowhere"));
}

TEST_F(AtomicFileTest, a_folder_of_no_name_cannot_be_made) {
    EXPECT_EQ(createFolders(""), std::errc::no_such_file_or_directory);
}

TEST_F(AtomicFileTest, what_is_no_file_or_too_long_or_cannot_be_read_is_told) {
    EXPECT_EQ(readFile(file, enough).bytes, "what was there");
    EXPECT_EQ(readFile(file, 3).error, std::errc::file_too_large);
    EXPECT_EQ(readFile(tree.path(), enough).error, std::errc::is_a_directory);
    EXPECT_EQ(readFile("/dev/null", enough).error, std::errc::not_supported);
    EXPECT_EQ(readFile(tree / "none", enough).error, std::errc::no_such_file_or_directory);
    // A file of the kernel's that opens and has nothing at its beginning.
    EXPECT_EQ(readFile("/proc/self/mem", enough).error, std::errc::io_error);
}

TEST_F(AtomicFileTest, a_file_is_replaced_and_nothing_else_stays_in_its_folder) {
    for (const auto durability : {Durability::onDisk, Durability::withSystem}) {
        EXPECT_EQ(replaceFile(file, "new", durability), std::error_code());
        EXPECT_EQ(contentsOf(file), "new");
    }
    fs::create_directory(tree / "folder");
    EXPECT_EQ(replaceFile(tree / "folder", "new"), std::errc::is_a_directory);
    EXPECT_EQ(replaceFile(tree / "none/file", "new"), std::errc::no_such_file_or_directory);
    EXPECT_EQ(namesIn(tree.path()), (std::set<std::string>{"file", "folder"}));
}

TEST_F(AtomicFileTest, a_damaged_file_takes_the_first_name_that_is_free) {
    writeFile(tree / "file.damaged-1", "older");
    EXPECT_EQ(setAside(file).name, tree / "file.damaged-2");
    EXPECT_EQ(contentsOf(tree / "file.damaged-1"), "older");
    const auto again = setAside(file);
    EXPECT_EQ(again.error, std::errc::no_such_file_or_directory);
    EXPECT_TRUE(again.name.empty());
}

TEST_F(AtomicFileTest, links_are_followed_and_those_that_go_round_are_not) {
    fs::create_symlink("file", tree / "one");
    fs::create_symlink(tree / "one", tree / "two");
    EXPECT_EQ(linkTarget(tree / "two"), file);
    EXPECT_EQ(linkTarget(file), file);
    fs::create_symlink("there", tree / "here");
    fs::create_symlink("here", tree / "there");
    EXPECT_EQ(linkTarget(tree / "here"), tree / "here");
}

}  // namespace
}  // namespace vtx::test
