// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxUnifiedLog.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <vector>

#include "linux/TemporaryTree.h"
#include "platform/linux/FileDescriptor.h"

namespace vtx::test {
namespace {

std::vector<std::string> journalled;  // cleared by each `Log`
bool journalRefuses = false;

int keepFields(const struct iovec* fields, int count) {
    if (journalRefuses) return -1;
    for (int i = 0; i < count; ++i) {
        journalled.emplace_back(static_cast<const char*>(fields[i].iov_base), fields[i].iov_len);
    }
    return 0;
}

/// A log whose outputs a test reads.
struct Log {
    enum class Journal { absent, present };

    explicit Log(Journal journal, const std::optional<std::string>& level = std::nullopt) {
        journalled.clear();
        journalRefuses = false;
        std::array<int, 2> ends{};
        EXPECT_EQ(::pipe(ends.data()), 0);
        reader = FileDescriptor(ends[0]);
        writer = FileDescriptor(ends[1]);
        if (journal == Journal::present) tree.write("/run/systemd/journal/socket", "");
        sink = std::make_unique<LinuxUnifiedLog>(
            LinuxRoot(tree.path()),
            [level](std::string_view name) { return name == "VANTRIX_LOG" ? level : std::nullopt; },
            LinuxUnifiedLog::Outputs{&keepFields, writer.get()});
    }
    void write(LogLevel level, std::string_view message) const {
        sink->write(level, "com.vantrix.app", "CPUMonitor", message);
    }
    /// What came to standard error; ends the writing.
    std::string standardError() {
        writer.reset();
        std::string text(4096, '\0');
        const auto got = ::read(reader.get(), text.data(), text.size());
        text.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
        return text;
    }

    TemporaryTree tree;
    FileDescriptor reader, writer;
    std::unique_ptr<LinuxUnifiedLog> sink;
};

TEST(LinuxUnifiedLog, without_a_journal_lines_go_to_standard_error_by_category) {
    Log log(Log::Journal::absent);
    log.write(LogLevel::error, "host failed: kr=5");
    log.write(LogLevel::info, "not shown");
    EXPECT_EQ(log.standardError(), "CPUMonitor: host failed: kr=5\n");
    EXPECT_TRUE(journalled.empty());
}

TEST(LinuxUnifiedLog, the_journal_gets_the_fields_of_its_own) {
    Log log(Log::Journal::present);
    log.write(LogLevel::info, "two\nlines");
    EXPECT_EQ(journalled, (std::vector<std::string>{
                              "MESSAGE=two\nlines", "PRIORITY=6", "SUBSYSTEM=com.vantrix.app",
                              "CATEGORY=CPUMonitor", "SYSLOG_IDENTIFIER=vantrix"}));
    EXPECT_EQ(log.standardError(), "");
}

TEST(LinuxUnifiedLog, levels_have_the_journals_priorities) {
    Log log(Log::Journal::present, "debug");
    for (const auto level :
         {LogLevel::debug, LogLevel::info, LogLevel::standard, LogLevel::error}) {
        log.write(level, "");
    }
    EXPECT_EQ(journalled.at(1), "PRIORITY=7");
    EXPECT_EQ(journalled.at(6), "PRIORITY=6");
    EXPECT_EQ(journalled.at(11), "PRIORITY=5");
    EXPECT_EQ(journalled.at(16), "PRIORITY=3");
}

TEST(LinuxUnifiedLog, a_line_that_the_journal_refuses_goes_to_standard_error) {
    Log log(Log::Journal::present);
    journalRefuses = true;
    log.write(LogLevel::error, "lost?");
    EXPECT_EQ(log.standardError(), "CPUMonitor: lost?\n");
}

TEST(LinuxUnifiedLog, the_environment_says_the_least_level) {
    const auto leastOf = [](Log::Journal journal, const std::optional<std::string>& asked) {
        const Log log(journal, asked);
        for (const auto level : {LogLevel::debug, LogLevel::info, LogLevel::standard}) {
            if (log.sink->isEnabled(level)) return level;
        }
        return LogLevel::error;
    };
    EXPECT_EQ(leastOf(Log::Journal::absent, std::nullopt), LogLevel::standard);
    EXPECT_EQ(leastOf(Log::Journal::present, std::nullopt), LogLevel::info);
    EXPECT_EQ(leastOf(Log::Journal::absent, "debug"), LogLevel::debug);
    EXPECT_EQ(leastOf(Log::Journal::absent, "info"), LogLevel::info);
    EXPECT_EQ(leastOf(Log::Journal::present, "default"), LogLevel::standard);
    EXPECT_EQ(leastOf(Log::Journal::present, "error"), LogLevel::error);
    EXPECT_EQ(leastOf(Log::Journal::present, "loud"), LogLevel::info);
}

}  // namespace
}  // namespace vtx::test
