// SPDX-License-Identifier: MIT
#include "language/Catalogue.h"

#include <mutex>

#include "language/tables/Tables.h"

namespace vtx::catalogue {
namespace {

std::optional<TextLists> listsOf(Language language) {
    switch (language) {
        case Language::en:
            return tables::en();
        default:
            return std::nullopt;
    }
}

struct Slot {
    std::once_flag once;
    std::optional<TextTable> table;
};

// Not yet used slots are zeroes that no page of memory stands behind.
constinit std::array<Slot, allLanguages.size()> slots;

}  // namespace

const TextTable* table(Language language) {
    Slot& slot = slots[indexOf(language)];
    std::call_once(slot.once, [&] {
        if (const auto lists = listsOf(language)) slot.table.emplace(*lists);
    });
    return slot.table ? &*slot.table : nullptr;
}

const TextTable& english() { return *table(Language::en); }

}  // namespace vtx::catalogue
