// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <vector>

#include "ui/kit/Color.h"

namespace vtx {

struct TrayModel;

/// The tray's icon: symbol over figure on a ground of its own, so that it is read on any panel.
/// `scale` times 22 device pixels wide and high.
[[nodiscard]] QImage trayPicture(const TrayModel& model, Appearance appearance, qreal scale);

/// In the sizes that trays ask for.
[[nodiscard]] std::vector<QImage> trayPictures(const TrayModel& model, Appearance appearance);

}  // namespace vtx
