// SPDX-License-Identifier: MIT
#pragma once

#include "ui/kit/KitWidget.h"

namespace vtx {

/// The title above a group of cards. A heading for assistive technology.
class SectionHead : public KitWidget {
public:
    explicit SectionHead(const QString& title = {}, QWidget* parent = nullptr);

    void setTitle(const QString& title);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::Heading; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString title_;
};

}  // namespace vtx
