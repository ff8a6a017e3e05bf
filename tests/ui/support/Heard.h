// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QString>
#include <vector>

namespace vtx::test {

/// What a screen reader is told, from here to the end of the scope: as if one listened.
class Heard {
public:
    struct Event {
        QAccessible::Event what;
        QString name;
        bool isChecked = false;
    };

    Heard() : wasActive_(QAccessible::isActive()) {
        events().clear();
        QAccessible::setActive(true);
        before_ = QAccessible::installUpdateHandler(&Heard::hear);
    }
    ~Heard() {
        QAccessible::installUpdateHandler(before_);
        QAccessible::setActive(wasActive_);
    }
    Heard(const Heard&) = delete;
    Heard& operator=(const Heard&) = delete;

    /// All of a kind that came since the last call.
    [[nodiscard]] static std::vector<Event> of(QAccessible::Event what) {
        std::vector<Event> found;
        for (const Event& event : events())
            if (event.what == what) found.push_back(event);
        events().clear();
        return found;
    }

private:
    static std::vector<Event>& events() {
        static std::vector<Event> all;
        return all;
    }
    static void hear(QAccessibleEvent* event) {
        QAccessibleInterface* source = event->accessibleInterface();
        if (!source) return;
        events().push_back(
            {event->type(), source->text(QAccessible::Name), source->state().checked != 0});
    }

    bool wasActive_;
    QAccessible::UpdateHandler before_;
};

}  // namespace vtx::test
