// SPDX-License-Identifier: MIT
#pragma once

#include "ui/surfaces/LivePage.h"

class QVBoxLayout;

namespace vtx {

class Card;

/// Base of the pages of popover and dashboard: cards below one another. Main executor; owned by the
/// view that shows it.
class SectionPage : public LivePage {
protected:
    /// The coordinator must outlive the page.
    explicit SectionPage(MetricsCoordinator& coordinator, QWidget* parent = nullptr);

    /// A further card at the end of the page.
    Card* addCard();
    /// A further widget at the end of the page, such as a banner.
    void addBlock(QWidget* block);

private:
    QVBoxLayout* column_;
};

}  // namespace vtx
