// SPDX-License-Identifier: MIT
#pragma once

#include "ui/kit/Card.h"

namespace vtx {

class CardTitle;
struct FanCardModel;
class Gauge;

/// One fan: its speed, and where that lies between its limits.
class FanCard final : public Card {
public:
    explicit FanCard(QWidget* parent = nullptr);

    void display(const FanCardModel& model);

private:
    CardTitle* title_;
    Gauge* gauge_;
};

}  // namespace vtx
