// SPDX-License-Identifier: MIT
#include "ui/models/ProcessMenuModel.h"

namespace vtx {

std::vector<ProcessMenuEntry> describeProcessMenu(const ProcessSnapshot& process,
                                                  ProcessMenuContext context) {
    std::vector<ProcessMenuEntry> menu;
    if (process.executablePath) {
        menu.push_back({"Im Finder zeigen", ProcessAction::reveal});
        menu.push_back({"Pfad kopieren", ProcessAction::copyPath});
    }
    menu.push_back(
        {"Activity Monitor öffnen", ProcessAction::openSystemMonitor, 0, context.hasSystemMonitor});
    menu.push_back({});
    if (!context.isModifiable) {
        menu.push_back({"Protected", ProcessAction::none, 0, false});
        return menu;
    }
    menu.push_back({"Default priority", ProcessAction::renice, 0});
    menu.push_back({"Lower priority", ProcessAction::renice, 5});
    menu.push_back({"Lowest (prefer E-cores)", ProcessAction::renice, 10});
    return menu;
}

}  // namespace vtx
