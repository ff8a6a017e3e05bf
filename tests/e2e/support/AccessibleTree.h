// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "support/XDisplay.h"

struct sd_bus;
struct sd_bus_message;

namespace vtx::e2e {

class AccessibleTree;

/// One element as assistive software sees it. An element that has gone answers with nothing.
class Accessible {
public:
    Accessible(AccessibleTree& tree, std::string bus, std::string path)
        : tree_(&tree), bus_(std::move(bus)), path_(std::move(path)) {}

    [[nodiscard]] std::string name() const { return property("Name"); }
    [[nodiscard]] std::string description() const { return property("Description"); }
    /// In English, as "push button" or "page tab".
    [[nodiscard]] std::string role() const;
    [[nodiscard]] bool isChecked() const { return hasState(4); }
    [[nodiscard]] bool isEnabled() const { return hasState(8); }
    [[nodiscard]] bool isFocusable() const { return hasState(11); }
    [[nodiscard]] bool isFocused() const { return hasState(12); }
    [[nodiscard]] bool isSelected() const { return hasState(23); }
    [[nodiscard]] bool isShowing() const { return hasState(25); }
    [[nodiscard]] Place place() const;
    [[nodiscard]] std::vector<Accessible> children() const;
    [[nodiscard]] std::optional<Accessible> parent() const;

    /// The first one for which that holds, searched from here through all levels.
    [[nodiscard]] std::optional<Accessible> find(
        const std::function<bool(const Accessible&)>& wanted) const;
    [[nodiscard]] std::optional<Accessible> findNamed(const std::string& name) const;
    [[nodiscard]] std::optional<Accessible> findRole(const std::string& role) const;

    /// Everything from here on, a line each with roles and names, for messages of failed tests.
    [[nodiscard]] std::string drawing(int indent = 0) const;

    /// Whether it is the same element, whatever it says.
    friend bool operator==(const Accessible& one, const Accessible& other) {
        return one.bus_ == other.bus_ && one.path_ == other.path_;
    }

private:
    [[nodiscard]] std::string property(const char* name) const;
    /// By the state's number in the protocol.
    [[nodiscard]] bool hasState(unsigned number) const;

    AccessibleTree* tree_;
    std::string bus_;
    std::string path_;
};

/// What changed, as it was told to assistive software.
struct AccessibleEvent {
    /// Member and detail, as "PropertyChange:accessible-name" or "StateChanged:focused".
    std::string kind;
    Accessible source;
    /// Of a state: 1 where it holds now, 0 where it ended.
    int value = 0;
};

/// The accessibility bus of a session, as assistive software uses it. Asking for it starts it.
class AccessibleTree {
public:
    /// By the address of the session's bus; throws where there is no accessibility bus.
    explicit AccessibleTree(const std::string& sessionBus);
    ~AccessibleTree();
    AccessibleTree(const AccessibleTree&) = delete;
    AccessibleTree& operator=(const AccessibleTree&) = delete;

    /// The applications that are on it.
    [[nodiscard]] std::vector<Accessible> applications();
    /// Those of a kind that came since the last call of it.
    [[nodiscard]] std::vector<AccessibleEvent> newEvents(const std::string& kind);

private:
    friend class Accessible;
    struct Unref {
        void operator()(sd_bus_message* message) const;
    };
    using Message = std::unique_ptr<sd_bus_message, Unref>;

    /// The answer to a call with one number as its argument, or with none; null if there is none.
    Message call(const std::string& bus, const std::string& path, const char* interface,
                 const char* method, std::optional<unsigned> argument = {});
    std::string property(const std::string& bus, const std::string& path, const char* name);
    std::vector<Accessible> referencesIn(sd_bus_message* message);
    void listenTo(const char* event);
    void collect(sd_bus_message* signal);
    static int onSignal(sd_bus_message* message, void* self, void* error);

    sd_bus* bus_ = nullptr;
    std::vector<AccessibleEvent> events_;
};

}  // namespace vtx::e2e
