// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

class QAction;

namespace vtx {

/// A line of text that the user types, in the colours of the theme. Escape empties it, and goes on
/// to whoever closes something where it is empty already; so does the cross at its end. The caret
/// stands still, so that a field that waits costs nothing. What it is for is its placeholder and
/// its accessible name.
class TextField final : public QLineEdit {
    Q_OBJECT

public:
    enum class Frame : quint8 {
        box,   ///< a field on a card, with a ring while it has the keyboard
        plain  ///< a line of a bar, which frames it
    };

    explicit TextField(Frame frame = Frame::box, QWidget* parent = nullptr);

    void setPlaceholder(const QString& text);

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    /// The user wants to go on below the field.
    void movedDown();

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void applyTheme();

    const Frame frame_;
    QAction* clear_;
};

}  // namespace vtx
