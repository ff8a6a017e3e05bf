// SPDX-License-Identifier: MIT
#include "ui/surfaces/MiniWidgetView.h"

#include <gtest/gtest.h>

#include "SurfaceBench.h"
#include "platform/Locale.h"
#include "ui/support/FixedTheme.h"

namespace vtx {
namespace {

/// A user whose times are counted as they are written, until the end of the scope.
class CountedTimes final : public Locale {
public:
    CountedTimes() {
        Shared<Localization>::setFactory([this] { return std::make_unique<Localization>(*this); });
    }
    ~CountedTimes() override { Shared<Localization>::reset(); }
    CountedTimes(const CountedTimes&) = delete;
    CountedTimes& operator=(const CountedTimes&) = delete;

    [[nodiscard]] std::vector<std::string> preferredLanguages() const override { return {}; }
    [[nodiscard]] std::string collationKey(std::string_view text) const override {
        return std::string(text);
    }
    [[nodiscard]] std::string lowercased(std::string_view text) const override {
        return std::string(text);
    }
    [[nodiscard]] std::string timeOfDay(Date) const override {
        ++written;
        return "14:32:07";
    }

    mutable int written = 0;
};

class MiniWidgetViewTest : public testing::Test {
protected:
    test::SurfaceBench bench;
    MiniWidgetView view{bench.coordinator};

    [[nodiscard]] static MiniWidgetModel usual() {
        MiniWidgetModel model;
        model.time = "14:32:07";
        model.rows = {{{"CPU", "23%", MiniWidgetTint::cpu, 0.23},
                       {"GPU", "42%", MiniWidgetTint::gpu, 0.42},
                       {"RAM", "67%", MiniWidgetTint::memory, 0.67},
                       {"CPU Temp", "63°C", MiniWidgetTint::temperature, 0.63}}};
        model.chips = {{{"P", "31", MiniWidgetTint::pCore}, {"E", "9", MiniWidgetTint::eCore}}};
        return model;
    }
    /// What is painted when the model becomes another one.
    [[nodiscard]] QRegion paintedFor(const std::function<void(MiniWidgetModel&)>& edit) {
        MiniWidgetModel model = usual();
        view.display(model);
        test::settle();
        test::PaintRecorder recorder(view);
        edit(model);
        view.display(model);
        test::settle();
        QRegion painted;
        for (const QRegion& region : recorder.painted) painted |= region;
        return painted;
    }
};

TEST_F(MiniWidgetViewTest, is_220_by_170) { EXPECT_EQ(view.size(), QSize(220, 170)); }

TEST_F(MiniWidgetViewTest, every_part_lies_within_the_padding_and_none_over_another) {
    const QRect room = view.rect().adjusted(10, 0, -10, -10);
    QRegion all;
    for (int i = 0; i < view.partCount(); ++i) {
        EXPECT_TRUE(room.contains(view.partRect(i))) << i;
        EXPECT_FALSE(all.intersects(view.partRect(i))) << i;
        all |= view.partRect(i);
    }
}

TEST_F(MiniWidgetViewTest, only_what_changed_is_painted) {
    test::show(view);
    EXPECT_EQ(paintedFor([](auto& m) { m.rows[1].value = "43%"; }), QRegion(view.partRect(2)));
    EXPECT_EQ(paintedFor([](auto& m) { m.time = "14:32:08"; }), QRegion(view.partRect(0)));
    EXPECT_EQ(paintedFor([](auto& m) { m.chips[1].value = "10"; }), QRegion(view.partRect(6)));
    EXPECT_TRUE(paintedFor([](auto&) {}).isEmpty());
}

TEST_F(MiniWidgetViewTest, is_spoken_by_name_and_value) {
    view.display(usual());
    const std::pair<const char*, const char*> said[] = {
        {"CPU", "23%"}, {"CPU Temp", "63°C"}, {"P", "31"}, {"E", "9"}};
    for (const auto& [name, value] : said) {
        auto* part = test::spokenAs(view, name);
        ASSERT_TRUE(part) << name;
        EXPECT_EQ(part->text(QAccessible::Value), QString::fromUtf8(value));
    }
}

TEST_F(MiniWidgetViewTest, follows_the_readings_while_it_is_shown) {
    bench.readCPU(0.5);
    test::show(view);
    EXPECT_EQ(view.model().rows[0].value, "50%");
    bench.readCPU(0.6);
    test::settle();
    EXPECT_EQ(view.model().rows[0].value, "60%");
    EXPECT_EQ(view.model().chips[0].value, "60");
    bench.readCPU(0.7);
    view.hide();
    test::settle();
    EXPECT_EQ(view.model().rows[0].value, "60%");
}

TEST_F(MiniWidgetViewTest, the_readings_of_one_turn_are_shown_together) {
    test::show(view);
    const CountedTimes times;
    bench.readEverything();
    bench.coordinator.thermal.refresh();
    bench.coordinator.temperature.latest = TemperatureReading{71.0, {}, {}};
    test::settle();
    EXPECT_EQ(view.model().rows[3].value, "71°C");
    EXPECT_EQ(times.written, 1);
}

TEST_F(MiniWidgetViewTest, an_unread_figure_has_no_bar) {
    const test::FixedTheme dark(Appearance::dark);
    MiniWidgetModel model = usual();
    for (auto& row : model.rows) {
        row.value = "—";
        row.share.reset();
    }
    view.display(model);
    const QImage picture = test::picture(view, 1);
    const QRect row = view.partRect(1);
    for (int x = 85; x < 150; ++x) EXPECT_EQ(qAlpha(picture.pixel(x, row.center().y())), 0) << x;
}

}  // namespace
}  // namespace vtx
