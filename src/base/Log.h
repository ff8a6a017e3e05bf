// SPDX-License-Identifier: MIT
#pragma once

#include <fmt/core.h>

#include <string_view>

namespace vtx {

/// The levels of the platform's unified log, least important first.
enum class LogLevel { debug, info, standard, error };

/// Where log lines go. One is installed for the process by its composition root or by a test.
class LogSink {
public:
    LogSink() = default;
    LogSink(const LogSink&) = delete;
    LogSink& operator=(const LogSink&) = delete;
    virtual ~LogSink() = default;

    /// Any thread, and never throws. The texts are valid during the call only.
    virtual void write(LogLevel level, std::string_view subsystem, std::string_view category,
                       std::string_view message) noexcept = 0;
    /// Whether lines of this level go anywhere; those that do not are not even formatted.
    [[nodiscard]] virtual bool isEnabled(LogLevel level) const noexcept = 0;
};

/// Writes lines of one category. Each type that logs keeps one as a private constant.
class Logger {
public:
    constexpr explicit Logger(std::string_view category) : category_(category) {}

    template <class... Args>
    void debug(fmt::format_string<Args...> text, Args&&... args) const {
        write(LogLevel::debug, text, fmt::make_format_args(args...));
    }
    template <class... Args>
    void info(fmt::format_string<Args...> text, Args&&... args) const {
        write(LogLevel::info, text, fmt::make_format_args(args...));
    }
    template <class... Args>
    void standard(fmt::format_string<Args...> text, Args&&... args) const {
        write(LogLevel::standard, text, fmt::make_format_args(args...));
    }
    template <class... Args>
    void error(fmt::format_string<Args...> text, Args&&... args) const {
        write(LogLevel::error, text, fmt::make_format_args(args...));
    }

private:
    void write(LogLevel level, fmt::string_view text, fmt::format_args args) const;

    std::string_view category_;
};

/// What all loggers share.
struct AppLog {
    static constexpr std::string_view subsystem = "com.vantrix.app";
    static constexpr Logger app{"app"};

    /// Installs the process's sink, null for none, and returns the one before. Without a sink
    /// nothing is written. The sink must outlive its installation, and every line under way.
    static LogSink* install(LogSink* sink);
};

}  // namespace vtx
