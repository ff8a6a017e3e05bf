// SPDX-License-Identifier: MIT
#include "ui/models/UpdateNotice.h"

#include <fmt/format.h>

#include "core/UpdaterService.h"

namespace vtx {
namespace {

constexpr auto dismiss = "OK";

DialogModel dialog(std::string_view symbol, std::string title, std::string message) {
    return {.symbol = symbol,
            .title = std::move(title),
            .message = std::move(message),
            .primary = dismiss,
            .cancel = {}};
}

}  // namespace

DialogModel describeUpdate(const UpdateAnswer& answer) {
    switch (answer.kind) {
        case UpdateAnswer::Kind::upToDate:
            return dialog("checkmark.seal.fill", "Vantrix is up to date",
                          "The package sources of your system have no newer version.");
        case UpdateAnswer::Kind::available:
            return dialog("arrow.down.circle.fill",
                          fmt::format("Vantrix {} is available", answer.version),
                          "Install it with your system's updates.");
        case UpdateAnswer::Kind::notPackaged:
            return dialog("info.circle", "This copy is of no package",
                          "Your system updates what it installed as a package. This copy of "
                          "Vantrix came another way, and is updated as it came.");
        case UpdateAnswer::Kind::failed:
            break;
    }
    return dialog("exclamationmark.triangle.fill", "Couldn't check for updates",
                  answer.error.empty() ? "The system did not say why." : answer.error);
}

}  // namespace vtx
