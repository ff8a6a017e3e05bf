// SPDX-License-Identifier: MIT
#pragma once

#include "ui/shell/StatusItem.h"
#include "ui/shell/StripWindow.h"

namespace vtx {

class StripSurface;

/// The status item where windows may not choose their place: a small normal window, which the
/// user moves as any other.
class NormalWindowStatusItem final : public StatusItem {
public:
    /// Says in the log that the strip is a window here.
    NormalWindowStatusItem();
    ~NormalWindowStatusItem() override;

    void setLength(double length) override;
    [[nodiscard]] double thickness() const override;
    void setContent(QWidget* content) override;
    void setHighlighted(bool highlighted) override;
    void setTitle(const QString& title) override;
    void setAccessibleText(const QString& name, const QString& description) override;
    void show() override;
    [[nodiscard]] QRect screenGeometry() const override { return window_.geometry(); }
    [[nodiscard]] DockEdge edge() const override { return DockEdge::none; }

private:
    StripWindow window_;
    StripSurface* surface_;
};

}  // namespace vtx
