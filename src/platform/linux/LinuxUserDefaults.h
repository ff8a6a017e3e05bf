// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <set>
#include <string>

#include "base/Clock.h"
#include "platform/UserDefaults.h"
#include "platform/linux/AtomicFile.h"
#include "platform/linux/DefaultsDocument.h"
#include "platform/linux/Environment.h"

namespace vtx {

/// The settings in one file, "defaults.json" in the folder given, whose form DefaultsDocument.h
/// describes. It is read once, at construction, and replaced whole with each change; of two
/// processes the one that writes last wins. Main executor; owned by the composition root.
///
/// Replacing it waits for the disk, which is too much for a change with every step of the mouse.
/// Within a second of the last replacement a change goes to "defaults.json.latest" instead, without
/// that wait, and into the file itself when the second is over or the store goes. What a process
/// that crashed left under that name is newer than the file, and the next start takes it over. A
/// power cut alone can cost the last second of changes; the file is whole then, too.
///
/// Nothing of the user's is ever destroyed. A file that cannot be understood is set aside as
/// "defaults.json.damaged-<n>" and a new one begun. One that cannot be read or cannot be set aside
/// stays where it is, and the store writes nothing while that lasts. A store that cannot write
/// keeps its values in force, says so once, tries again with each change, and says when it is well
/// again. Where the name is a symbolic link it stays one: the file it leads to is the one replaced.
class LinuxUserDefaults final : public UserDefaults {
public:
    /// A larger file is taken for a damaged one, and a larger one is never written.
    static constexpr std::size_t maxFileBytes = 64u << 20;

    /// From one replacement of the file to the next.
    static constexpr Duration leastInterval = std::chrono::seconds(1);

    /// The folder need not exist. An empty path stands for none: values are kept in memory. Without
    /// a clock each change waits for the disk.
    explicit LinuxUserDefaults(const std::filesystem::path& folder, Clock* clock = nullptr);
    ~LinuxUserDefaults() override;

    /// "$XDG_CONFIG_HOME/vantrix", or "~/.config/vantrix" where that is not set to an absolute
    /// path; the home folder is $HOME, or else the one of the user database. Empty without any.
    [[nodiscard]] static std::filesystem::path standardFolder(
        const Environment& environment = processEnvironment());

    [[nodiscard]] std::optional<Data> data(std::string_view key) const override;
    void setData(std::string_view key, Data value) override;
    void remove(std::string_view key) override;

private:
    void load();
    void moveDamagedAway(const std::filesystem::path& damaged, std::string_view why);
    void takeOver(DefaultsDocument stored);
    void takeOverLatest();
    void store();
    /// Into the file itself.
    void settle();
    [[nodiscard]] bool isTooSoon() const;
    /// Into the file beside it, for the time being.
    void storeForNow();
    [[nodiscard]] std::filesystem::path latest() const;
    [[nodiscard]] std::error_code write(const std::filesystem::path& file,
                                        Durability durability) const;
    void fail(std::string_view what, const std::string& why);
    void recover();

    std::filesystem::path file_;  // empty without a folder
    DefaultsDocument document_;   // in force
    /// Keys removed before the file could be read, so that reading it late does not bring them
    /// back.
    std::set<std::string, std::less<>> removedUnread_;
    bool blocked_ = false;  // the file there may not be written over
    Clock* clock_;
    std::optional<Instant> settledAt_;  // the last attempt to replace the file
    Subscription settling_;             // while the file beside it is newer
    bool failing_ = false;              // an episode of failure was logged and its end was not
};

}  // namespace vtx
