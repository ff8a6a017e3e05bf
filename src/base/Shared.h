// SPDX-License-Identifier: MIT
#pragma once

#include <fmt/format.h>

#include <functional>
#include <memory>
#include <source_location>
#include <utility>

#include "base/Fault.h"

namespace vtx {

/// The one object of its type in the process, made on first use by the factory that the composition
/// root registered, or a test for its own. It lasts for the run, unless it is reset before. Main
/// executor only. Whoever registers resets before what the factory relies on goes.
template <class T>
class Shared {
public:
    using Factory = std::function<std::unique_ptr<T>()>;

    Shared() = delete;

    /// Registers how the object is made, and drops one that was made already.
    static void setFactory(Factory factory) {
        object_.reset();
        factory_ = std::move(factory);
    }

    /// The object, made now if it is not there yet. Asking before a factory is registered is a
    /// programming fault.
    [[nodiscard]] static T& get() {
        if (!object_) object_ = make(std::source_location::current().function_name());
        return *object_;
    }

    /// Drops the object and the factory.
    static void reset() { setFactory(nullptr); }

private:
    static std::unique_ptr<T> make(const char* asked) {
        auto object = factory_ ? factory_() : nullptr;
        if (!object) programmingFault(fmt::format("no factory made what was asked of {}", asked));
        return object;
    }

    static inline Factory factory_;
    static inline std::unique_ptr<T> object_;
};

}  // namespace vtx
