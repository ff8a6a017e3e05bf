// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace vtx {

/// Whether motion is wanted. With reduced motion everything is at its place at once.
enum class Motion : quint8 { full, reduced };

}  // namespace vtx
