// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "support/AccessibleTree.h"
#include "support/ChildProcess.h"
#include "support/Folder.h"
#include "support/UserInput.h"
#include "support/XDisplay.h"

namespace vtx::e2e {

/// A desktop of a test's own: an X server that only the test may connect to, a window manager, a
/// session bus and the accessibility bus. Ended in the opposite order of its start. Nothing of the
/// session that the test runs in, nor of its user's settings, reaches the programs on it. The
/// user's profile on it is not new: nothing is asked at the first start.
class Desktop {
public:
    Desktop();

    /// Makes the profile that of a user who has never started the program.
    void forgetProfile() const;
    /// Starts a program on it.
    [[nodiscard]] std::unique_ptr<ChildProcess> start(std::vector<std::string> command) const;
    /// The application of that process on the accessibility bus; absent until it is there.
    [[nodiscard]] std::optional<Accessible> application(const std::string& name);
    /// What each part of the desktop complained of.
    [[nodiscard]] std::string complaints() const;

    [[nodiscard]] XDisplay& display() { return *display_; }
    [[nodiscard]] UserInput& user() { return *user_; }
    [[nodiscard]] AccessibleTree& accessibility() { return *accessibility_; }
    [[nodiscard]] const Folder& folder() const { return folder_; }
    /// Where the session bus listens.
    [[nodiscard]] const std::string& sessionBusAddress() const {
        return environment_.at("DBUS_SESSION_BUS_ADDRESS");
    }

private:
    void writeAuthority() const;
    void writeProfile() const;
    [[nodiscard]] std::unique_ptr<ChildProcess> launch(std::vector<std::string> command) const;

    Folder folder_;
    Environment environment_;
    // The parts go in the opposite order of these.
    std::unique_ptr<ChildProcess> server_;
    std::unique_ptr<XDisplay> display_;
    std::unique_ptr<UserInput> user_;
    std::unique_ptr<ChildProcess> windowManager_;
    std::unique_ptr<ChildProcess> sessionBus_;
    std::unique_ptr<AccessibleTree> accessibility_;
};

}  // namespace vtx::e2e
