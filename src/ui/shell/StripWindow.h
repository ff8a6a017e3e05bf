// SPDX-License-Identifier: MIT
#pragma once

#include <QCloseEvent>
#include <QWidget>

namespace vtx {

/// The window around the strip. Only the application's end closes it: without it the user could
/// not reach the application any more.
class StripWindow final : public QWidget {
protected:
    void closeEvent(QCloseEvent* event) override { event->setAccepted(!event->spontaneous()); }
};

}  // namespace vtx
