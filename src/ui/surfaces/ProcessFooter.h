// SPDX-License-Identifier: MIT
#pragma once

#include "ui/kit/KitWidget.h"
#include "ui/models/ProcessTabModel.h"

namespace vtx {

/// The line below the process list: how many are shown, and how old the list is.
class ProcessFooter final : public KitWidget {
public:
    explicit ProcessFooter(QWidget* parent = nullptr);

    void setModel(ProcessFooterModel model);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::StatusBar;
    }
    [[nodiscard]] int partCount() const override { return model_.updated.empty() ? 1 : 2; }
    [[nodiscard]] AccessiblePart part(int index) const override;
    [[nodiscard]] QRect partRect(int index) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ProcessFooterModel model_;
};

}  // namespace vtx
