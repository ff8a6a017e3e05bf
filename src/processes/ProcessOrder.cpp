// SPDX-License-Identifier: MIT
#include "processes/ProcessOrder.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/Locale.h"

namespace vtx {

std::vector<ProcessSnapshot> ProcessOrder::sorted(std::vector<ProcessSnapshot> processes) {
    struct Row {
        double cpu;
        const std::string* key;
        std::size_t place;
    };
    std::vector<Row> rows;
    rows.reserve(processes.size());
    for (const auto& process : processes)
        rows.push_back({process.cpuPercent, &keyOf(process.name), rows.size()});
    std::ranges::sort(rows, [](const Row& a, const Row& b) {
        if (a.cpu != b.cpu) return a.cpu > b.cpu;
        const int byName = a.key->compare(*b.key);
        return byName != 0 ? byName < 0 : a.place < b.place;
    });
    std::vector<ProcessSnapshot> inOrder;
    inOrder.reserve(rows.size());
    for (const Row& row : rows) inOrder.push_back(std::move(processes[row.place]));
    forgetUnused();
    return inOrder;
}

const std::string& ProcessOrder::keyOf(const std::string& name) {
    const auto found = keys_.find(name);
    if (found == keys_.end())
        return keys_.emplace(name, Key{locale_.collationKey(name)}).first->second.text;
    found->second.isUsed = true;
    return found->second.text;
}

void ProcessOrder::forgetUnused() {
    for (auto name = keys_.begin(); name != keys_.end();)
        name = std::exchange(name->second.isUsed, false) ? std::next(name) : keys_.erase(name);
}

}  // namespace vtx
