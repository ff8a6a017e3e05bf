// SPDX-License-Identifier: MIT
#include "base/Log.h"

#include <fmt/format.h>

#include <atomic>

namespace vtx {
namespace {

std::atomic<LogSink*> installed{nullptr};

}  // namespace

LogSink* AppLog::install(LogSink* sink) { return installed.exchange(sink); }

void Logger::write(LogLevel level, fmt::string_view text, fmt::format_args args) const {
    LogSink* sink = installed.load(std::memory_order_acquire);
    if (!sink || !sink->isEnabled(level)) return;
    fmt::memory_buffer line;
    fmt::vformat_to(fmt::appender(line), text, args);
    sink->write(level, AppLog::subsystem, category_, {line.data(), line.size()});
}

}  // namespace vtx
