// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxUnifiedLog.h"

// The place in the source is that of the facade, which tells nobody anything.
#define SD_JOURNAL_SUPPRESS_LOCATION
#include <systemd/sd-journal.h>
#include <unistd.h>

#include <exception>

namespace vtx {
namespace {

LogLevel leastLevel(const std::optional<std::string>& asked, LogLevel usual) {
    if (asked == "debug") return LogLevel::debug;
    if (asked == "info") return LogLevel::info;
    if (asked == "default") return LogLevel::standard;
    if (asked == "error") return LogLevel::error;
    return usual;
}

/// The journal's priorities, which are syslog's: debug, informational, notice, error.
std::string_view priorityOf(LogLevel level) {
    switch (level) {
        case LogLevel::debug:
            return "7";
        case LogLevel::info:
            return "6";
        case LogLevel::standard:
            return "5";
        case LogLevel::error:
            return "3";
    }
    return "5";
}

std::string field(std::string_view name, std::string_view value) {
    std::string text;
    text.reserve(name.size() + 1 + value.size());
    return text.append(name).append("=").append(value);
}

struct iovec vectorOf(std::string_view text) {
    // The calls that read it take a pointer that could be written through, and do not.
    return {const_cast<char*>(text.data()), text.size()};
}

}  // namespace

LinuxUnifiedLog::Outputs LinuxUnifiedLog::systemOutputs() {
    return {&::sd_journal_sendv, STDERR_FILENO};
}

LinuxUnifiedLog::LinuxUnifiedLog(const LinuxRoot& root, const Environment& environment,
                                 Outputs outputs)
    : outputs_(outputs),
      hasJournal_(root.exists("/run/systemd/journal/socket")),
      leastLevel_(leastLevel(environment("VANTRIX_LOG"),
                             hasJournal_ ? LogLevel::info : LogLevel::standard)) {}

void LinuxUnifiedLog::write(LogLevel level, std::string_view subsystem, std::string_view category,
                            std::string_view message) noexcept {
    if (!isEnabled(level)) return;
    try {
        if (hasJournal_ && writeToJournal(level, subsystem, category, message)) return;
    } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch): no memory for the fields
    }
    writeToStandardError(category, message);
}

bool LinuxUnifiedLog::writeToJournal(LogLevel level, std::string_view subsystem,
                                     std::string_view category, std::string_view message) const {
    const std::array<std::string, 5> fields{
        field("MESSAGE", message), field("PRIORITY", priorityOf(level)),
        field("SUBSYSTEM", subsystem), field("CATEGORY", category),
        field("SYSLOG_IDENTIFIER", "vantrix")};
    std::array<struct iovec, 5> vectors{};
    for (std::size_t i = 0; i < fields.size(); ++i) vectors[i] = vectorOf(fields[i]);
    return outputs_.journal(vectors.data(), static_cast<int>(vectors.size())) >= 0;
}

void LinuxUnifiedLog::writeToStandardError(std::string_view category,
                                           std::string_view message) const noexcept {
    // In one call, so that lines of two threads do not mix.
    const std::array<struct iovec, 4> parts{vectorOf(category), vectorOf(": "), vectorOf(message),
                                            vectorOf("\n")};
    // There is nobody left to tell of a failure.
    [[maybe_unused]] const auto written =
        ::writev(outputs_.standardError, parts.data(), static_cast<int>(parts.size()));
}

}  // namespace vtx
