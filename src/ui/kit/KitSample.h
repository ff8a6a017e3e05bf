// SPDX-License-Identifier: MIT
#pragma once

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <memory>

#include "ui/kit/Card.h"
#include "ui/kit/CardTitle.h"
#include "ui/kit/Metrics.h"

/// What the sheets of the kit's page are put together with.
namespace vtx::sample {

inline QString text(const char* value) { return QString::fromUtf8(value); }

/// A card with a title to which samples are added below one another.
class Sheet {
public:
    explicit Sheet(const char* title) : card_(std::make_unique<Card>()) {
        auto head = std::make_unique<CardTitle>();
        head->setContent({.title = text(title)});
        add(std::move(head));
        card_->content()->setSpacing(metrics::cardGap);
    }

    void add(std::unique_ptr<QWidget> widget) { card_->content()->addWidget(widget.release()); }

    /// Side by side, at their own sizes where they have one. Buttons bring the room between them.
    template <class... Widgets>
    void addRow(int spacing, std::unique_ptr<Widgets>... widgets) {
        auto row = std::make_unique<QHBoxLayout>();
        row->setSpacing(spacing);
        (row->addWidget(widgets.release()), ...);
        row->addStretch();
        card_->content()->addLayout(row.release());
    }

    [[nodiscard]] std::unique_ptr<QWidget> take() {
        card_->content()->addStretch();
        return std::move(card_);
    }

private:
    std::unique_ptr<Card> card_;
};

}  // namespace vtx::sample
