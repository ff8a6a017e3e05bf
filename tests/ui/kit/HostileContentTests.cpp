// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "ui/kit/Banner.h"
#include "ui/kit/Button.h"
#include "ui/kit/CardTitle.h"
#include "ui/kit/ClockTile.h"
#include "ui/kit/CompositionBar.h"
#include "ui/kit/Figures.h"
#include "ui/kit/Gauge.h"
#include "ui/kit/HeroNumber.h"
#include "ui/kit/KeyValueRows.h"
#include "ui/kit/ListRows.h"
#include "ui/kit/PerCoreBars.h"
#include "ui/kit/Pill.h"
#include "ui/kit/PlaceholderCard.h"
#include "ui/kit/Spinner.h"
#include "ui/kit/TextBlock.h"
#include "ui/kit/UsageBar.h"
#include "ui/support/FixedTheme.h"
#include "ui/support/Shown.h"

namespace vtx {
namespace {

template <class Part, class... Arguments>
std::unique_ptr<QWidget> made(const std::function<void(Part&)>& fill, Arguments... arguments) {
    auto part = std::make_unique<Part>(arguments...);
    fill(*part);
    return part;
}

// Every part of the kit with `text` for every text and `value` for every number.
std::vector<std::unique_ptr<QWidget>> everyPart(const QString& t, double v) {
    std::vector<std::unique_ptr<QWidget>> all;
    constexpr ColorToken red = ColorToken::red;
    all.push_back(
        made<Banner>([&](Banner& b) { b.setContent({red, t, t, t, t, {{t, t}, {t, t}}, t}); }));
    all.push_back(made<Button>([&](Button& b) { b.setText(t), b.setSymbol(t); }));
    all.push_back(made<CardTitle>(
        [&](CardTitle& c) { c.setContent({t, t, red, t, red, TitleEnd::load, t, {t, red}}); }));
    all.push_back(made<ClockTile>([&](ClockTile& c) { c.setTexts(t, t); }));
    all.push_back(
        made<CompositionBar>([&](CompositionBar& c) { c.setParts({{v, red}, {v, red}}); }));
    all.push_back(made<Figures>(
        [&](Figures& f) { f.setFigures({{t, t, red, t, t, t}, {t, t, red, t, t, t}}); }));
    all.push_back(made<Gauge>([&](Gauge& g) { g.setContent({v, v, -v, v, t, t, t, t, t}); }));
    all.push_back(
        made<HeroNumber>([&](HeroNumber& h) { h.setContent({t, t, red, t, t, {t, red}}); }));
    all.push_back(made<KeyValueRows>([&](KeyValueRows& k) { k.setRows({{t, t, red, t}}); }));
    for (const ListKind kind : {ListKind::oneLine, ListKind::twoLine, ListKind::withBar}) {
        all.push_back(made<ListRows>(
            [&](ListRows& l) {
                l.setRows({{t, t, red, t, StateMark::filled, {{t, t}, {t, t}}, v, red}});
            },
            kind));
    }
    all.push_back(made<PerCoreBars>(
        [&](PerCoreBars& p) { p.setContent({t, t, t, {{t, v, t}, {t, v, t}}, red}); }));
    all.push_back(made<Pill>([&](Pill& p) { p.setContent({t, red}); }));
    all.push_back(made<PlaceholderCard>([&](PlaceholderCard& p) { p.setContent({t, t, t}); }));
    all.push_back(made<Spinner>([&](Spinner& s) { s.setText(t); }));
    all.push_back(made<TextBlock>([&](TextBlock& b) { b.setContent({.text = t, .symbol = t}); }));
    all.push_back(made<UsageBar>([&](UsageBar& u) { u.setContent({v, red, t, t}); }));
    return all;
}

// Painting it whole; what cannot be painted would end the process or the test's time.
bool paints(QWidget& widget, QSize size) {
    widget.resize(size);
    return !test::picture(widget, 1.5).isNull();
}

class HostileContent : public testing::TestWithParam<double> {};

TEST_P(HostileContent, no_text_and_no_number_breaks_a_part_at_any_width) {
    test::FixedTheme theme(Appearance::dark);
    const QStringList texts{{},
                            QStringLiteral("—"),
                            QString(300, QLatin1Char('W')),
                            QString(300, QChar(0x0416)),
                            QStringLiteral("\n\t\u202e\u0000\ufffd"),
                            QString(QChar(0xD800))};
    for (const QString& text : texts) {
        for (const std::unique_ptr<QWidget>& part : everyPart(text, GetParam())) {
            const int height = part->sizeHint().height();
            EXPECT_TRUE(height >= 0 && height < 5000) << height;
            EXPECT_GE(part->sizeHint().width(), 0);
            for (const int width : {1, 24, 308, 900}) {
                const int needed = std::max(height, part->heightForWidth(width));
                EXPECT_LT(needed, 20000) << text.size() << ' ' << width;
                EXPECT_TRUE(paints(*part, {width, std::max(1, needed)})) << width;
            }
        }
    }
}

constexpr double infinite = std::numeric_limits<double>::infinity();
INSTANTIATE_TEST_SUITE_P(Numbers, HostileContent,
                         testing::Values(0.0, 0.5, -1.0, 1e308, -1e308, infinite, -infinite,
                                         std::numeric_limits<double>::quiet_NaN()));

}  // namespace
}  // namespace vtx
