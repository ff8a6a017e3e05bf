// SPDX-License-Identifier: MIT
#include "ui/shell/WindowSystem.h"

#include <QCursor>

namespace vtx {

QPoint WindowSystem::pointer() const { return QCursor::pos(); }

}  // namespace vtx
