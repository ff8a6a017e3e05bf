// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>

#include <string>

namespace vtx::test {

/// Acts as a user whom permissions bind, for as long as it lives: where the tests run as the
/// superuser it hands the folder and the file over to another user and takes that one's place.
class OrdinaryUser {
public:
    OrdinaryUser(const std::string& folder, const std::string& file) : before_(::geteuid()) {
        if (before_ != 0) return;
        constexpr uid_t nobody = 65534;
        const bool given = ::chown(folder.c_str(), nobody, static_cast<gid_t>(-1)) == 0 &&
                           ::chown(file.c_str(), nobody, static_cast<gid_t>(-1)) == 0;
        if (given) static_cast<void>(::seteuid(nobody));
    }
    ~OrdinaryUser() { static_cast<void>(::seteuid(before_)); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

    /// False where the machine does not let the superuser do that.
    [[nodiscard]] bool isBoundByPermissions() const { return ::geteuid() != 0; }

private:
    uid_t before_;
};

}  // namespace vtx::test
