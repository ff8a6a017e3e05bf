// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include "ui/kit/Surface.h"

namespace vtx {

class Button;

/// Tells of something that failed, or came to an end, in front of the window where it was tried.
/// Escape and Return dismiss it; it deletes itself then.
class AlertPanel final : public Surface {
    Q_OBJECT

public:
    AlertPanel(const QString& title, const QString& message, QWidget* parent,
               const QString& symbol = QStringLiteral("exclamationmark.triangle.fill"));

    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::AlertMessage;
    }
    [[nodiscard]] Button& button() const { return *dismiss_; }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    Button* dismiss_;
};

}  // namespace vtx
