// SPDX-License-Identifier: MIT
#include "ui/models/ChartRange.h"

#include "language/Localization.h"

namespace vtx {

using HistoryRange = DisplayPreferences::HistoryRange;

std::string historyTitle(HistoryRange range) {
    switch (range) {
        case HistoryRange::fiveMinutes:
            return "Last 5 m";
        case HistoryRange::fifteenMinutes:
            return "Last 15 m";
        case HistoryRange::oneHour:
            return "Last 1 h";
        case HistoryRange::oneMinute:
            break;
    }
    return std::string(Localization::shared().string(L10n::Key::last60s));
}

std::string_view historyLabel(HistoryRange range) {
    switch (range) {
        case HistoryRange::fiveMinutes:
            return "5m";
        case HistoryRange::fifteenMinutes:
            return "15m";
        case HistoryRange::oneHour:
            return "1h";
        case HistoryRange::oneMinute:
            break;
    }
    return "60s";
}

std::string collectingText() {
    return std::string(Localization::shared().string(L10n::Key::memory_collecting));
}

}  // namespace vtx
