// SPDX-License-Identifier: MIT
#pragma once

#include "base/Log.h"

namespace vtx {

/// The platform's log: the sink that the composition root installs.
class UnifiedLog : public LogSink {};

}  // namespace vtx
