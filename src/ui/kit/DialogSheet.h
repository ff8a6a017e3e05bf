// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include "ui/kit/KitWidget.h"

namespace vtx {

class Button;

/// What a dialog says. Empty fields are left out.
struct DialogContent {
    QString symbol;
    QString title;
    QString message;
    /// Return presses it.
    QString primary;
    /// Escape presses it; without it Escape presses the other one.
    QString cancel;
};

/// A dialog within a window, over contents that it dims and keeps from being used: for a window
/// that would close if another one opened. Takes the keyboard and gives it back; Tab stays within
/// it. A dialog for assistive technology. Deletes itself after it was answered.
class DialogSheet final : public KitWidget {
    Q_OBJECT

public:
    /// Lies over all of `over`, whose corners have that radius.
    DialogSheet(QWidget& over, const DialogContent& content, int cornerRadius);
    ~DialogSheet() override;

    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::Dialog; }
    /// The dialog's own shape.
    [[nodiscard]] QRect shape() const;
    [[nodiscard]] Button& primary() const { return *primary_; }
    /// Null where there is nothing to decide.
    [[nodiscard]] Button* cancel() const { return cancel_; }

Q_SIGNALS:
    /// One of them, once.
    void accepted();
    void dismissed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    enum class Answer : quint8 { accepted, dismissed };
    struct Layout {
        QRect dialog, title, message;
    };
    [[nodiscard]] Layout layOut() const;
    void answer(Answer given);

    const DialogContent content_;
    const int cornerRadius_;
    Button* primary_;
    Button* cancel_ = nullptr;
    bool isAnswered_ = false;
};

}  // namespace vtx
