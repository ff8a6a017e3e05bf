// SPDX-License-Identifier: MIT
#include "Fuzz.h"
#include "base/Utf8.h"
#include "platform/linux/ProcStat.h"
#include "platform/linux/ProcessName.h"

using namespace vtx;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto text = fuzz::asInputText(data, size);
    const auto stat = parseProcStat(text);
    if (!stat) return 0;
    fuzz::expect(stat->comm.data() > text.data() &&
                 stat->comm.data() + stat->comm.size() < text.data() + text.size());
    fuzz::expect(stat->threads >= 0);
    // What follows the line may stand for the arguments, and the name for the path.
    const auto whole = wholeName(stat->comm, stat->comm, text);
    fuzz::expect(whole.starts_with(stat->comm));
    const auto shown = repairedUtf8(whole);
    fuzz::expect(repairedUtf8(shown) == shown);
    return 0;
}
