// SPDX-License-Identifier: MIT
#pragma once

#include "ui/kit/Card.h"
#include "ui/kit/CardTitle.h"
#include "ui/models/SectionParts.h"

namespace vtx {

class KeyValueRows;

/// A card of rows, each a property and what it is, under a title or without one.
class KeyValueCard final : public Card {
public:
    explicit KeyValueCard(QWidget* parent = nullptr);

    void display(const KeyValueCardModel& model);
    void display(CardTitleContent title, const std::vector<KeyValueModel>& rows);

private:
    CardTitle* title_;
    KeyValueRows* rows_;
};

}  // namespace vtx
