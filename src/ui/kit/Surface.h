// SPDX-License-Identifier: MIT
#pragma once

#include "ui/kit/KitWidget.h"

namespace vtx {

/// The opaque ground of a popover or window: the `window` colour, wall to wall.
class Surface : public KitWidget {
public:
    explicit Surface(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace vtx
