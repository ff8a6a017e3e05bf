// SPDX-License-Identifier: MIT
#pragma once

#include "ui/kit/Surface.h"

namespace vtx {

/// What this program is, and which version. A small window, made anew each time and deleted when
/// it closes.
class AboutPanel final : public Surface {
public:
    explicit AboutPanel(const QString& title);

    [[nodiscard]] QSize sizeHint() const override { return {280, 208}; }
    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::Dialog; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    const QString version_;
};

}  // namespace vtx
