// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxUserDefaults.h"

#include <pwd.h>
#include <unistd.h>

#include <array>
#include <system_error>
#include <utility>

#include "base/Log.h"

namespace vtx {
namespace {

namespace fs = std::filesystem;

constexpr Logger logger{"UserDefaults"};

/// The home folder that the user database knows; empty where it knows none.
fs::path homeOfDatabase() {
    std::array<char, 4096> buffer;
    passwd entry{};
    passwd* found = nullptr;
    if (::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found) != 0) return {};
    if (!found || !found->pw_dir) return {};
    return found->pw_dir;
}

fs::path absoluteOrNone(const std::optional<std::string>& path) {
    if (!path || !fs::path(*path).is_absolute()) return {};
    return *path;
}

}  // namespace

LinuxUserDefaults::LinuxUserDefaults(const fs::path& folder, Clock* clock) : clock_(clock) {
    if (!folder.empty()) file_ = folder / "defaults.json";
    load();
    takeOverLatest();
}

LinuxUserDefaults::~LinuxUserDefaults() {
    if (settling_) settle();
}

fs::path LinuxUserDefaults::latest() const {
    fs::path name = file_;
    name += ".latest";
    return name;
}

/// What a process that did not end in order left: a whole document, or after a power cut anything.
void LinuxUserDefaults::takeOverLatest() {
    if (file_.empty() || blocked_) return;
    const FileContents contents = readFile(latest(), maxFileBytes);
    if (contents.error) return;
    if (auto newest = parseDefaults(contents.bytes)) {
        document_ = *std::move(newest);
        settle();
    } else {
        std::error_code ignored;
        fs::remove(latest(), ignored);
    }
}

fs::path LinuxUserDefaults::standardFolder(const Environment& environment) {
    const fs::path configuration = absoluteOrNone(environment("XDG_CONFIG_HOME"));
    if (!configuration.empty()) return configuration / "vantrix";
    fs::path home = absoluteOrNone(environment("HOME"));
    if (home.empty()) home = homeOfDatabase();
    if (!home.is_absolute()) return {};
    return home / ".config" / "vantrix";
}

std::optional<Data> LinuxUserDefaults::data(std::string_view key) const {
    const auto found = document_.values.find(key);
    if (found == document_.values.end()) return std::nullopt;
    return found->second;
}

void LinuxUserDefaults::setData(std::string_view key, Data value) {
    if (const auto found = document_.foreign.find(key); found != document_.foreign.end()) {
        document_.foreign.erase(found);
    }
    document_.values.insert_or_assign(std::string(key), std::move(value));
    store();
}

void LinuxUserDefaults::remove(std::string_view key) {
    const std::string name(key);
    const auto removed = document_.values.erase(name) + document_.foreign.erase(name);
    if (blocked_) removedUnread_.insert(name);
    if (removed > 0 || blocked_) store();
}

/// Brings the stored values into force beneath those that were set meanwhile; blocks where the file
/// there is neither ours to read nor to replace.
void LinuxUserDefaults::load() {
    blocked_ = false;
    if (file_.empty()) return;
    const FileContents contents = readFile(file_, maxFileBytes);
    if (contents.error == std::errc::no_such_file_or_directory) return;
    if (contents.error == std::errc::file_too_large) {
        moveDamagedAway(linkTarget(file_), "larger than any settings");
    } else if (contents.error) {
        blocked_ = true;
        fail("read", contents.error.message());
    } else if (auto stored = parseDefaults(contents.bytes)) {
        takeOver(*std::move(stored));
    } else {
        moveDamagedAway(linkTarget(file_), "not a JSON object");
    }
}

void LinuxUserDefaults::moveDamagedAway(const fs::path& damaged, std::string_view why) {
    const SetAside result = setAside(damaged);
    if (result.error) {
        blocked_ = true;
        fail("set aside the damaged", result.error.message());
    } else {
        logger.error("The settings in {} are damaged ({}); set aside as {}", damaged.native(), why,
                     result.name.native());
    }
}

void LinuxUserDefaults::takeOver(DefaultsDocument stored) {
    for (const auto& key : removedUnread_) {
        stored.values.erase(key);
        stored.foreign.erase(key);
    }
    removedUnread_.clear();
    for (auto& [key, value] : document_.values) {
        stored.foreign.erase(key);
        stored.values.insert_or_assign(key, std::move(value));
    }
    document_ = std::move(stored);
}

void LinuxUserDefaults::store() {
    if (blocked_) load();
    if (blocked_) return;
    if (isTooSoon())
        storeForNow();
    else
        settle();
}

bool LinuxUserDefaults::isTooSoon() const {
    return clock_ && settledAt_ && clock_->continuous() < *settledAt_ + leastInterval;
}

void LinuxUserDefaults::settle() {
    settling_.cancel();
    if (clock_) settledAt_ = clock_->continuous();
    if (const std::error_code error = write(linkTarget(file_), Durability::onDisk)) {
        fail("write", error.message());
        return;
    }
    recover();
    std::error_code ignored;
    fs::remove(latest(), ignored);
}

void LinuxUserDefaults::storeForNow() {
    // A failure here is one of the disk, and told when the file itself is replaced.
    (void)write(latest(), Durability::withSystem);
    if (!settling_)
        settling_ =
            clock_->schedule(*settledAt_ + leastInterval, leastInterval, [this] { settle(); });
}

std::error_code LinuxUserDefaults::write(const fs::path& file, Durability durability) const {
    if (file_.empty()) return std::make_error_code(std::errc::no_such_file_or_directory);
    const std::string text = formatDefaults(document_);
    if (text.size() > maxFileBytes) return std::make_error_code(std::errc::file_too_large);
    if (const auto error = createFolders(file_.parent_path())) return error;
    return replaceFile(file, text, durability);
}

void LinuxUserDefaults::fail(std::string_view what, const std::string& why) {
    if (std::exchange(failing_, true)) return;
    logger.error("Cannot {} the settings file {}: {}; changes last until the program ends", what,
                 file_.native(), why);
}

void LinuxUserDefaults::recover() {
    if (!std::exchange(failing_, false)) return;
    logger.standard("Settings are stored in {} again", file_.native());
}

}  // namespace vtx
