// SPDX-License-Identifier: MIT
// The script that asks for the build number, as each build runs it.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "linux/TemporaryTree.h"

namespace vtx::test {
namespace {

namespace fs = std::filesystem;

class BuildNumberTest : public testing::Test {
protected:
    void SetUp() override {
        if (git().empty()) GTEST_SKIP() << "this machine has no git";
        tree.write("/template", "@VERSION@ (@BUILD@)");
        fs::create_directory(sources);
    }
    static std::string git() { return VANTRIX_GIT; }
    static bool run(const std::string& command) {
        return std::system((command + " > /dev/null 2>&1").c_str()) == 0;
    }
    /// Runs git in the sources, with nothing of the user's own.
    [[nodiscard]] bool inSources(const std::string& arguments) const {
        return run(
            fmt::format("cd '{}' && HOME=. GIT_CONFIG_NOSYSTEM=1 '{}' -c user.name=n "
                        "-c user.email=e {}",
                        sources.string(), git(), arguments));
    }
    void commit() const { ASSERT_TRUE(inSources("commit --allow-empty -m text")); }
    [[nodiscard]] std::string made(const fs::path& source, const std::string& withGit) const {
        EXPECT_TRUE(
            run(fmt::format("'{}' '-DGIT={}' '-DSOURCE={}' -DVERSION=1.2.3 "
                            "'-DTEMPLATE={}' '-DOUTPUT={}' -P '{}'",
                            VANTRIX_CMAKE, withGit, source.string(), (tree / "template").string(),
                            output.string(), VANTRIX_BUILD_NUMBER)));
        std::string text = contentsOf(output);
        if (text.ends_with('\n')) text.pop_back();
        return text;
    }

    TemporaryTree tree;
    fs::path sources = tree / "sources";
    fs::path output = tree / "made";
};

TEST_F(BuildNumberTest, is_the_number_of_commits) {
    ASSERT_TRUE(inSources("init"));
    commit();
    commit();
    EXPECT_EQ(made(sources, git()), "1.2.3 (2)");
    commit();
    EXPECT_EQ(made(sources, git()), "1.2.3 (3)");
}

TEST_F(BuildNumberTest, what_would_say_the_same_is_not_written_again) {
    ASSERT_TRUE(inSources("init"));
    commit();
    (void)made(sources, git());
    const fs::file_time_type old{};
    fs::last_write_time(output, old);
    (void)made(sources, git());
    EXPECT_EQ(fs::last_write_time(output), old);
}

TEST_F(BuildNumberTest, is_absent_where_nobody_can_tell_it) {
    EXPECT_EQ(made(sources, git()), "1.2.3 ()") << "no checkout";
    ASSERT_TRUE(inSources("init"));
    EXPECT_EQ(made(sources, git()), "1.2.3 ()") << "no commit";
    commit();
    commit();
    EXPECT_EQ(made(sources, ""), "1.2.3 ()") << "no git";
    fs::create_directory(sources / "within");
    EXPECT_EQ(made(sources / "within", git()), "1.2.3 ()") << "unpacked into another checkout";
    ASSERT_TRUE(inSources("clone --depth 1 \"file://$PWD\" ../shallow"));
    EXPECT_EQ(made(tree / "shallow", git()), "1.2.3 ()") << "a part of the history";
}

}  // namespace
}  // namespace vtx::test
