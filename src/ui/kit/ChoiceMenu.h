// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>
#include <QString>
#include <functional>
#include <vector>

namespace vtx {

struct MenuChoice {
    QString text;
    /// In front of the text; empty for none.
    QString symbol = {};

    bool operator==(const MenuChoice&) const = default;
};

/// A menu of which one row holds, with a check mark. It opens without waiting for its end and
/// deletes itself when it has closed.
class ChoiceMenu final : public QMenu {
public:
    ChoiceMenu(const std::vector<MenuChoice>& choices, int current, QWidget* parent = nullptr);

    /// The user chose a row.
    std::function<void(int index)> onChoice;

    /// Below `anchor`, which is on the desktop, with the ends of both in line, or above it where
    /// the screen ends.
    void popUp(const QRect& anchor);

protected:
    void resizeEvent(QResizeEvent* event) override;
};

}  // namespace vtx
