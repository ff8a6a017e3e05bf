// SPDX-License-Identifier: MIT
#include "ui/surfaces/LanguagePickerWindowController.h"

#include <QScreen>

#include "base/Log.h"
#include "ui/surfaces/LanguagePickerView.h"

namespace vtx {
namespace {

constexpr Logger logger{"LanguagePicker"};

}  // namespace

LanguagePickerWindowController::LanguagePickerWindowController(QString title)
    : title_(std::move(title)) {}

LanguagePickerWindowController::~LanguagePickerWindowController() = default;

QWidget* LanguagePickerWindowController::window() const { return window_.get(); }

void LanguagePickerWindowController::present(Language initial,
                                             std::function<void(Language)> onConfirm) {
    if (window_) {
        bringToFront();
        return;
    }
    window_ = std::make_unique<LanguagePickerView>(initial);
    window_->setWindowTitle(title_);
    window_->setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                            Qt::WindowStaysOnTopHint);
    window_->setAttribute(Qt::WA_QuitOnClose, false);
    window_->onConfirm = [this, confirmed = std::move(onConfirm)](Language chosen) {
        // Later, since its own key or click is what ends it.
        window_->hide();
        window_.release()->deleteLater();
        if (didClose) didClose();
        confirmed(chosen);
    };
    window_->move(window_->screen()->availableGeometry().center() - window_->rect().center());
    bringToFront();
    logger.info("First-run language picker shown");
}

void LanguagePickerWindowController::bringToFront() {
    window_->show();
    window_->raise();
    window_->activateWindow();
    window_->setFocus(Qt::OtherFocusReason);
}

}  // namespace vtx
