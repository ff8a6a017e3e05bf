// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>

#include "ui/kit/KitWidget.h"
#include "ui/kit/Type.h"

namespace vtx {

enum class TextPlace : quint8 { start, middle };

struct TextBlockContent {
    QString text;
    ColorToken color = ColorToken::text2;
    TextRole role = TextRole::caption;
    TextPlace place = TextPlace::start;
    /// In front of the first line.
    QString symbol = {};
    /// The text's colour where it is absent.
    std::optional<ColorToken> symbolColor = {};

    bool operator==(const TextBlockContent&) const = default;
};

/// Running text that wraps, as high as its lines: explanations, and notes with a symbol. Without
/// text it takes no room. Static text for assistive technology.
class TextBlock : public KitWidget {
public:
    explicit TextBlock(QWidget* parent = nullptr);

    void setContent(TextBlockContent content);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::StaticText;
    }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] int lead() const;

    TextBlockContent content_;
};

}  // namespace vtx
