// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "ui/kit/Card.h"

namespace vtx {

class Spinner;

/// What stands in the place of figures until the first reading.
class CollectingCard final : public Card {
public:
    explicit CollectingCard(QWidget* parent = nullptr);

    /// Without a text the card is not shown.
    void display(const std::string& text);

private:
    Spinner* spinner_;
};

}  // namespace vtx
