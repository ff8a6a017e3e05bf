// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

#include "base/Subscription.h"
#include "ui/kit/Surface.h"
#include "ui/models/PopoverSection.h"

namespace vtx {

class MetricsCoordinator;
class ScrollArea;
class SectionBar;

/// The bar of sections over the page of the selected one: what the popover and the dashboard show.
/// A section that is not offered, or no longer, gives way to the overview.
class PopoverView final : public Surface {
    Q_OBJECT

public:
    enum class SurfaceKind { popover, dashboard };

    /// `onDetachRequested` is called with the selected section; the popover alone offers that.
    PopoverView(MetricsCoordinator& coordinator, SurfaceKind surfaceKind, PopoverSection section,
                std::function<void(PopoverSection)> onDetachRequested = {});

    [[nodiscard]] PopoverSection selectedSection() const { return selectedSection_; }
    void select(PopoverSection section);

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    /// Digits that nothing on the page takes select sections.
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// Offers the sections that there are now, in the language in force.
    void offerSections();
    [[nodiscard]] std::vector<PopoverSection> offered() const;
    [[nodiscard]] bool isOffered(PopoverSection section) const;
    void selectById(const QString& id);
    /// Takes the keyboard focus from a page that is about to go.
    void moveFocusToBar();
    void namePage();
    [[nodiscard]] QWidget* makePage(PopoverSection section);

    MetricsCoordinator& coordinator_;
    const SurfaceKind surfaceKind_;
    const std::function<void(PopoverSection)> onDetachRequested_;
    PopoverSection selectedSection_;
    SectionBar* bar_;
    ScrollArea* page_;
    Subscriptions subscriptions_;
    bool isFollowing_ = false;
};

}  // namespace vtx
