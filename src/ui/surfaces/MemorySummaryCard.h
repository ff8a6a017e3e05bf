// SPDX-License-Identifier: MIT
#pragma once

#include "ui/kit/Card.h"

namespace vtx {

class CardTitle;
class CompositionBar;
class HeroNumber;
class KeyValueRows;
struct MemorySummaryModel;

/// How much of the memory is used, and for what.
class MemorySummaryCard final : public Card {
public:
    explicit MemorySummaryCard(QWidget* parent = nullptr);

    void display(const MemorySummaryModel& model);

private:
    HeroNumber* hero_;
    CompositionBar* composition_;
    CardTitle* available_;
    KeyValueRows* parts_;
};

}  // namespace vtx
