// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxRoot.h"

#include <gtest/gtest.h>

#include "linux/TemporaryTree.h"

namespace vtx::test {
namespace {

namespace fs = std::filesystem;

struct LinuxRootTest : testing::Test {
    TemporaryTree tree;
    LinuxRoot root{tree.path()};

    void link(std::string_view from, const std::string& to) const {
        fs::create_directories((tree / from).parent_path());
        fs::create_symlink(to, tree / from);
    }
};

TEST_F(LinuxRootTest, a_path_is_one_below_its_folder) {
    EXPECT_EQ(root.path("/proc/stat"), tree.path() + "/proc/stat");
    EXPECT_EQ(root.path("proc/stat"), tree.path() + "/proc/stat");
    EXPECT_EQ(LinuxRoot(tree.path() + "//").path("/proc"), tree.path() + "/proc");
    EXPECT_EQ(LinuxRoot().path("/proc"), "/proc");
}

TEST_F(LinuxRootTest, a_file_of_blanks_has_no_text) {
    tree.write("/blank", " \n\t\n");
    tree.write("/some", "  some text \n");
    EXPECT_EQ(root.readText("/blank"), std::nullopt);
    EXPECT_EQ(root.readText("/none"), std::nullopt);
    EXPECT_EQ(root.readText("/some"), "some text");
}

TEST_F(LinuxRootTest, a_file_beyond_the_limit_is_not_read_and_its_head_is) {
    tree.write("/file", std::string(10'000, 'x'));
    EXPECT_EQ(root.read("/file", 9'999), std::nullopt);
    EXPECT_EQ(root.read("/file", 10'000)->size(), 10'000U);
    EXPECT_EQ(root.readHead("/file", 5'000)->size(), 5'000U);
    EXPECT_EQ(root.readHead("/", 5'000), std::nullopt) << "a folder";
}

TEST_F(LinuxRootTest, a_link_is_called_by_the_last_part_of_where_it_leads) {
    link("driver", "../../bus/drivers/amdgpu");
    link("slashed", "folder/");
    tree.write("/file", "no link");
    EXPECT_EQ(root.linkName("/driver"), "amdgpu");
    EXPECT_EQ(root.linkName("/slashed"), std::nullopt);
    EXPECT_EQ(root.linkName("/file"), std::nullopt);
}

TEST_F(LinuxRootTest, a_folder_is_listed_whole_and_in_order_however_many_names_it_has) {
    std::vector<std::string> names;
    for (int i = 100; i < 700; ++i) names.push_back("a-name-of-some-length-" + std::to_string(i));
    for (const auto& name : names) tree.write("/folder/" + name, "");
    link("folder/link", "nowhere");
    names.emplace_back("link");
    EXPECT_EQ(root.list("/folder"), names);
    EXPECT_TRUE(root.list("/folder/link").empty());
    EXPECT_TRUE(root.list("/folder/" + names.front()).empty()) << "a file";
    fs::create_directory(tree / "empty");
    EXPECT_TRUE(root.list("/empty").empty());
}

TEST_F(LinuxRootTest, what_leads_out_of_the_folder_resolves_to_nothing) {
    tree.write("/devices/one/name", "x");
    link("class/one", "../devices/one");
    link("class/all", "..");
    link("class/out", "/");
    link("class/beside", tree.path() + "-beside");
    fs::create_directory(tree.path() + "-beside");
    EXPECT_EQ(root.resolve("/class/one"), "/devices/one");
    EXPECT_EQ(root.resolve("/class/all"), "/");
    EXPECT_EQ(root.resolve("/class/out"), std::nullopt);
    EXPECT_EQ(root.resolve("/class/beside"), std::nullopt);
    EXPECT_EQ(root.resolve("/class/none"), std::nullopt);
    EXPECT_EQ(root.resolve("/class/one/name"), "/devices/one/name");
    EXPECT_EQ(root.resolve("/"), "/");
    fs::remove(tree.path() + "-beside");
    EXPECT_EQ(LinuxRoot(tree.path() + "/none").resolve("/class/one"), std::nullopt);
    EXPECT_EQ(LinuxRoot().resolve("/"), "/");
    EXPECT_EQ(LinuxRoot().resolve("/none-such"), std::nullopt);
    EXPECT_EQ(LinuxRoot().resolve("/proc/../proc"), "/proc");
}

}  // namespace
}  // namespace vtx::test
