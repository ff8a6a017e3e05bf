// SPDX-License-Identifier: MIT
// The files by which a desktop knows programs: those of others, and our own among what it starts.
#include <algorithm>

#include "Fuzz.h"
#include "platform/linux/AutostartEntry.h"
#include "platform/linux/DesktopEntry.h"

using namespace vtx;

namespace {

void tryAsOthers(std::string_view text) {
    const auto entry = parseDesktopEntry(text);
    if (!entry) return;
    fuzz::expect(!entry->command.empty());
    fuzz::expect(std::ranges::none_of(entry->command, &std::string::empty));
}

void tryAsOurs(std::string_view text) {
    (void)autostart::isEnabled(text);
    const auto before = autostart::value(text, "Exec");
    if (before) (void)autostart::programOf(*before);
    // A key that was set is there, and what was there besides has stayed.
    const auto set = autostart::withValue(text, "Hidden", "true");
    if (!before) return;
    fuzz::expect(autostart::value(set, "Hidden") == "true");
    fuzz::expect(autostart::value(set, "Exec") == before);
    fuzz::expect(!autostart::isEnabled(set));
    fuzz::expect(autostart::withValue(set, "Hidden", "true") == set);
}

/// Whatever its path, a program that was written down is the one that is started.
void tryAsPath(std::string_view path) {
    if (path.empty() || path.find('\0') != path.npos) return;
    const auto command = autostart::value(autostart::textFor(path), "Exec");
    fuzz::expect(command && autostart::programOf(*command) == path);
    const auto entry = parseDesktopEntry(autostart::textFor(path));
    fuzz::expect(entry && entry->command.size() == 1 && entry->command.front() == path);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto text = fuzz::asInputText(data, size);
    tryAsOthers(text);
    tryAsOurs(text);
    tryAsPath(text);
    return 0;
}
