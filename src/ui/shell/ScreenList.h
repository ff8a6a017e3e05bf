// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QMargins>

#include "ui/shell/StripPlacement.h"

class QScreen;

namespace vtx {

/// The screens of the desktop as the toolkit tells of them. Main executor.
namespace screenList {

/// The primary screen comes first.
[[nodiscard]] QList<QScreen*> ordered();

/// What the desktop keeps of a screen at each side, by the toolkit's account.
[[nodiscard]] QMargins marginsOf(const QScreen& screen);

/// The same with geometry and panels of each; empty where there is no screen.
[[nodiscard]] StripPlacement::Screens shellScreens();

}  // namespace screenList

}  // namespace vtx
