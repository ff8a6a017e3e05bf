// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <vector>

#include "ui/kit/KitWidget.h"

namespace vtx {

class Button;

struct BannerEntry {
    QString name;
    QString value;

    bool operator==(const BannerEntry&) const = default;
};

/// Empty fields are left out.
struct BannerContent {
    ColorToken color = ColorToken::orange;
    QString symbol = {};
    QString title = {};
    /// At the end of the title's line, in the banner's colour.
    QString status = {};
    /// Running text; above entries, their heading.
    QString body = {};
    std::vector<BannerEntry> entries = {};
    /// The word on the button; none where empty.
    QString button = {};

    bool operator==(const BannerContent&) const = default;
};

/// A notice that stands out by its colour, its symbol and its word. As high as its texts. An alert
/// for assistive technology, of its texts and its button.
class Banner : public KitWidget {
    Q_OBJECT

public:
    explicit Banner(QWidget* parent = nullptr);

    void setContent(BannerContent content);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;

    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::AlertMessage;
    }
    /// The title with its status, the body, the entries.
    [[nodiscard]] int partCount() const override;
    [[nodiscard]] AccessiblePart part(int index) const override;
    [[nodiscard]] QRect partRect(int index) const override;

Q_SIGNALS:
    /// The button was pressed.
    void pressed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Layout {
        QRect title;
        QRect body;
        QRect entries;
        /// The button's shape begins here.
        QPoint button;
        int height;
    };
    [[nodiscard]] Layout layOut(int width) const;
    [[nodiscard]] bool hasBody() const { return !content_.body.isEmpty(); }
    void placeButton();
    void paintTitle(QPainter& painter, const QRect& line) const;
    void paintEntry(QPainter& painter, const QRect& line, const BannerEntry& entry) const;

    BannerContent content_;
    Button* button_;
};

}  // namespace vtx
