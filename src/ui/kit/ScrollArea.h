// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollArea>

namespace vtx {

class OverlayScrollBar;

/// Scrolls its widget up and down under a thin bar that lies over the contents and is seen only
/// while scrolling or under the pointer. Takes no room from the contents, and no keyboard focus
/// while there is nothing to scroll.
class ScrollArea : public QScrollArea {
public:
    explicit ScrollArea(QWidget* parent = nullptr);

    /// The contents become as wide as the area.
    void setContents(QWidget* contents);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] bool scrolls() const;
    void rangeChanged();
    void passFocusOn();

    OverlayScrollBar* bar_;
};

}  // namespace vtx
