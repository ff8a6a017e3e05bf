// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "base/Subscription.h"
#include "language/Language.h"
#include "ui/kit/Surface.h"

namespace vtx {

class Button;
class LanguageCards;

/// The window that asks for a language at the first start, in the language in force. Only its
/// button, or Return, ends it; what is marked until then changes nothing. Main executor; owned by
/// its controller.
class LanguagePickerView final : public Surface {
    Q_OBJECT

public:
    explicit LanguagePickerView(Language initial, QWidget* parent = nullptr);

    /// Called with the marked language, or with the initial one where none was offered for it.
    std::function<void(Language)> onConfirm;

    [[nodiscard]] Language selection() const { return selection_; }

    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::Dialog; }
    /// The subtitle and the hint; the title is the window's own name.
    [[nodiscard]] int partCount() const override { return 2; }
    [[nodiscard]] AccessiblePart part(int index) const override;
    [[nodiscard]] QRect partRect(int index) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void rebuild();
    void layOut();
    void confirm();

    Language selection_;
    LanguageCards* cards_;
    Button* button_;
    QString title_;
    QString subtitle_;
    QString hint_;
    QRect symbolRect_;
    QRect titleRect_;
    QRect subtitleRect_;
    QRect hintRect_;
    Subscription language_;
};

}  // namespace vtx
