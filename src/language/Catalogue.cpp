// SPDX-License-Identifier: MIT
#include "language/Catalogue.h"

#include <mutex>

#include "language/tables/Tables.h"

namespace vtx::catalogue {
namespace {

std::optional<TextLists> listsOf(Language language) {
    switch (language) {
        case Language::automatic:
            break;
        case Language::de:
            return tables::de();
        case Language::en:
            return tables::en();
        case Language::fr:
            return tables::fr();
        case Language::es:
            return tables::es();
        case Language::it:
            return tables::it();
        case Language::pt:
            return tables::pt();
        case Language::nl:
            return tables::nl();
        case Language::pl:
            return tables::pl();
        case Language::ja:
            return tables::ja();
        case Language::zh:
            return tables::zh();
        case Language::tr:
            return tables::tr();
        case Language::ru:
            return tables::ru();
        case Language::ko:
            return tables::ko();
    }
    return std::nullopt;
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
