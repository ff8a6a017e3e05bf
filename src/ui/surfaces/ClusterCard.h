// SPDX-License-Identifier: MIT
#pragma once

#include "ui/kit/Card.h"

namespace vtx {

class CardTitle;
class ClockTile;
struct ClusterModel;
class PerCoreBars;

/// The cores of one kind: their load, their clock, and each of them.
class ClusterCard final : public Card {
public:
    explicit ClusterCard(QWidget* parent = nullptr);

    void display(const ClusterModel& model);

private:
    CardTitle* title_;
    ClockTile* clock_;
    PerCoreBars* cores_;
};

}  // namespace vtx
