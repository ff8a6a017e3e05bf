// SPDX-License-Identifier: MIT
#include "base/Log.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <vector>

#include "platform/simulated/SimulatedUnifiedLog.h"

namespace vtx {

/// Says when it is formatted.
struct Observed {
    int* formatted;
};

}  // namespace vtx

template <>
struct fmt::formatter<vtx::Observed> : fmt::formatter<int> {
    template <class Context>
    auto format(const vtx::Observed& value, Context& context) const {
        return fmt::formatter<int>::format(++*value.formatted, context);
    }
};

namespace vtx {
namespace {

constexpr Logger logger{"Test"};

/// A sink that is the process's for as long as it lives.
struct Installed {
    Installed() : previous(AppLog::install(&sink)) {}
    ~Installed() { AppLog::install(previous); }
    SimulatedUnifiedLog sink;
    LogSink* previous;
};

TEST(Log, a_line_arrives_with_level_subsystem_category_and_text) {
    const Installed log;
    logger.error("failed: kr={}", 5);
    const SimulatedUnifiedLog::Line expected{LogLevel::error, "com.vantrix.app", "Test",
                                             "failed: kr=5"};
    EXPECT_EQ(log.sink.lines(), std::vector{expected});
}

TEST(Log, each_method_has_its_level) {
    const Installed log;
    logger.debug("a");
    logger.info("b");
    logger.standard("c");
    logger.error("d");
    std::vector<LogLevel> levels;
    for (const auto& line : log.sink.lines()) levels.push_back(line.level);
    EXPECT_EQ(levels,
              (std::vector{LogLevel::debug, LogLevel::info, LogLevel::standard, LogLevel::error}));
}

TEST(Log, a_line_of_a_level_that_is_off_is_not_even_formatted) {
    Installed log;
    log.sink.setLowestLevel(LogLevel::error);
    int formatted = 0;
    logger.info("{}", Observed{&formatted});
    EXPECT_EQ(formatted, 0);
    logger.error("{}", Observed{&formatted});
    EXPECT_EQ(formatted, 1);
    EXPECT_EQ(log.sink.lines().size(), 1u);
}

TEST(Log, without_a_sink_nothing_is_formatted) {
    LogSink* const previous = AppLog::install(nullptr);
    int formatted = 0;
    logger.error("{}", Observed{&formatted});
    EXPECT_EQ(formatted, 0);
    EXPECT_EQ(AppLog::install(previous), nullptr);
}

TEST(Log, installing_gives_the_sink_before_back) {
    const Installed first;
    {
        const Installed second;
        EXPECT_EQ(second.previous, &first.sink);
        logger.info("to the second");
    }
    logger.info("to the first");
    EXPECT_TRUE(first.sink.contains(LogLevel::info, "Test", "to the first"));
    EXPECT_FALSE(first.sink.contains("second"));
}

}  // namespace
}  // namespace vtx
