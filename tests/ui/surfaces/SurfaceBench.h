// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>

#include "support/CoordinatorBench.h"
#include "ui/support/Shown.h"

namespace vtx::test {

/// A coordinator whose readings a test sets itself, for surfaces to follow.
class SurfaceBench : public CoordinatorBench {
public:
    void readCPU(double total) {
        CPUStats stats;
        stats.totalUsage = total;
        stats.layout.pCoreCount = 4;
        stats.pCoreUsage = total;
        coordinator.cpu.latest = stats;
    }
    [[nodiscard]] bool isCPUFollowed() const { return coordinator.cpu.latest.hasSubscribers(); }
};

/// What a screen reader says of the element itself.
inline QString spokenName(QAccessibleInterface& element) { return element.text(QAccessible::Name); }

/// The first element below `from` with that name, or null.
inline QAccessibleInterface* spokenAs(QAccessibleInterface* from, const QString& name) {
    if (!from || spokenName(*from) == name) return from;
    for (int i = 0; i < from->childCount(); ++i)
        if (auto* found = spokenAs(from->child(i), name)) return found;
    return nullptr;
}

inline QAccessibleInterface* spokenAs(QWidget& from, const char* name) {
    return spokenAs(QAccessible::queryAccessibleInterface(&from), QString::fromUtf8(name));
}

}  // namespace vtx::test
