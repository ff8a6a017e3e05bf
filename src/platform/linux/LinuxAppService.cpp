// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxAppService.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "platform/linux/AtomicFile.h"
#include "platform/linux/AutostartEntry.h"
#include "platform/linux/LinuxUserDefaults.h"

namespace vtx {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t maxBytes = 256 * 1024;
constexpr std::int64_t notRegistered = 0;
constexpr std::int64_t notFound = 3;
constexpr auto hidden = "Hidden";
constexpr auto desktopsOwn = "X-GNOME-Autostart-enabled";

/// One without a path is looked for elsewhere.
bool canBeRun(const std::string& program) {
    return program.front() != '/' || ::access(program.c_str(), X_OK) == 0;
}

}  // namespace

LinuxAppService::LinuxAppService(fs::path folder, std::string executable)
    : file_(folder.empty() ? fs::path() : folder / "vantrix.desktop"),
      executable_(std::move(executable)) {}

fs::path LinuxAppService::standardFolder(const Environment& environment) {
    const fs::path settings = LinuxUserDefaults::standardFolder(environment);
    return settings.empty() ? fs::path() : settings.parent_path() / "autostart";
}

std::string LinuxAppService::runningExecutable(const Environment& environment) {
    std::error_code error;
    std::string file = fs::read_symlink("/proc/self/exe", error).string();
    // Started from an image, the program's own file goes with the image's mount. Both variables are
    // inherited by what an image starts, which need not be of it.
    auto image = environment("APPIMAGE");
    const auto mount = environment("APPDIR");
    const bool isOfImage =
        image && !image->empty() && mount && !mount->empty() && file.starts_with(*mount + "/");
    return isOfImage ? *std::move(image) : file;
}

std::string LinuxAppService::wordsFor(const std::error_code& error) const {
    return fmt::format("{}: {}", file_.string(), error.message());
}

LinuxAppService::Entry LinuxAppService::read() const {
    if (file_.empty()) return {{}, "There is no home folder for the autostart file.", false};
    FileContents contents = readFile(file_, maxBytes);
    if (!contents.error) return {std::move(contents.bytes), std::nullopt, true};
    if (contents.error == std::errc::no_such_file_or_directory) return {};
    return {{}, wordsFor(contents.error), true};
}

/// A command that is not there is started by nobody, nor is one whose condition is not.
bool LinuxAppService::startsSomething(const std::string& text) const {
    const auto condition = autostart::value(text, "TryExec");
    if (condition && !condition->empty() && !canBeRun(*condition)) return false;
    const auto command = autostart::value(text, "Exec");
    const std::string program = autostart::programOf(command.value_or(std::string()));
    return !program.empty() && canBeRun(program);
}

/// The text with this program as its command; all else in it is the user's.
std::string LinuxAppService::repaired(const std::string& text) const {
    std::string result = autostart::withValue(text, "Exec", autostart::commandFor(executable_));
    return startsSomething(result) ? result : autostart::textFor(executable_);
}

std::int64_t LinuxAppService::status() const {
    const Entry entry = read();
    if (entry.error || !autostart::isEnabled(entry.text)) return notRegistered;
    return startsSomething(entry.text) ? enabledStatus : notFound;
}

std::optional<std::string> LinuxAppService::write(const std::string& text) {
    // A link, as those that keep their settings elsewhere have, stays one.
    const fs::path target = linkTarget(file_);
    if (const auto error = createFolders(target.parent_path())) return wordsFor(error);
    if (const auto error = replaceFile(target, text)) return wordsFor(error);
    return std::nullopt;
}

std::optional<std::string> LinuxAppService::registerService() {
    const Entry entry = read();
    if (entry.error) return entry.error;
    std::string text = startsSomething(entry.text) ? entry.text : repaired(entry.text);
    for (const auto* key : {hidden, desktopsOwn}) {
        if (autostart::value(text, key))
            text = autostart::withValue(text, key, key == hidden ? "false" : "true");
    }
    return text == entry.text ? std::nullopt : write(text);
}

std::optional<std::string> LinuxAppService::unregisterService() {
    const Entry entry = read();
    if (entry.error) return entry.error;
    if (!entry.exists) return std::nullopt;
    // What others wrote is only put out of use.
    if (entry.text != autostart::textFor(executable_))
        return write(autostart::withValue(entry.text, hidden, "true"));
    if (::unlink(file_.c_str()) == 0 || errno == ENOENT) return std::nullopt;
    return wordsFor({errno, std::generic_category()});
}

}  // namespace vtx
