// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <memory>

#include "ui/controller/SurfaceFactory.h"

class QWidget;

namespace vtx {

class LanguagePickerView;

/// The window that asks for a language at the first start: in the middle of the screen, above all
/// others, with a title and nothing that closes it.
class LanguagePickerWindowController final : public LanguagePickerSurface {
public:
    explicit LanguagePickerWindowController(QString title);
    ~LanguagePickerWindowController() override;

    void present(Language initial, std::function<void(Language)> onConfirm) override;

    /// The window is about to go, and is not seen any more.
    std::function<void()> didClose;

    /// Null unless it is up.
    [[nodiscard]] QWidget* window() const;

private:
    void bringToFront();

    const QString title_;
    std::unique_ptr<LanguagePickerView> window_;
};

}  // namespace vtx
