// SPDX-License-Identifier: MIT
#include "ui/models/ANESectionModel.h"

#include "ui/models/SectionText.h"

namespace vtx {

PlaceholderModel describeANESection(const Localization& texts) {
    return {"brain.head.profile", text(texts, L10n::Key::ane_unavailableTitle),
            text(texts, L10n::Key::ane_unavailableBody)};
}

}  // namespace vtx
