// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

#include "base/Data.h"

namespace vtx {

/// The user's persistent settings: blobs of bytes under text keys. Main executor.
class UserDefaults {
public:
    UserDefaults() = default;
    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;
    virtual ~UserDefaults() = default;

    [[nodiscard]] virtual std::optional<Data> data(std::string_view key) const = 0;

    /// In force at once for `data`, and before the call returns stored such that it outlives the
    /// process, where the store allows; many changes a second may reach the disk as one. A store
    /// that fails keeps what it held, whole, and is tried again with the next change.
    virtual void setData(std::string_view key, Data value) = 0;

    /// As `setData`; a key that is not there stays so.
    virtual void remove(std::string_view key) = 0;
};

}  // namespace vtx
