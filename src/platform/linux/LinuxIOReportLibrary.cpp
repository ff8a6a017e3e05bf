// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxIOReportLibrary.h"

namespace vtx {

std::unique_ptr<IOReport> LinuxIOReportLibrary::open(const char*, int) { return nullptr; }

}  // namespace vtx
