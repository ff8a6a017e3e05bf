// SPDX-License-Identifier: MIT
#pragma once

#include "ui/kit/KitWidget.h"

class QVBoxLayout;

namespace vtx {

/// A rounded container whose contents stand below one another. A group for assistive technology,
/// named by setAccessibleName().
class Card : public KitWidget {
public:
    enum class Emphasis : quint8 { none, accent };

    explicit Card(QWidget* parent = nullptr);

    /// The layout that contents are added to; its margins are the card's padding.
    [[nodiscard]] QVBoxLayout* content() const { return content_; }
    void setEmphasis(Emphasis emphasis);

    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::Grouping;
    }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout* content_;
    Emphasis emphasis_ = Emphasis::none;
};

}  // namespace vtx
