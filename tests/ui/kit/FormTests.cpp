// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QColorDialog>

#include "ui/kit/Button.h"
#include "ui/kit/ColorWell.h"
#include "ui/kit/FlowLayout.h"
#include "ui/kit/FormGroup.h"
#include "ui/kit/FormNote.h"
#include "ui/kit/FormRow.h"
#include "ui/kit/SegmentedControl.h"
#include "ui/kit/Slider.h"
#include "ui/kit/Switch.h"
#include "ui/kit/TileList.h"
#include "ui/support/FixedTheme.h"
#include "ui/support/Shown.h"

namespace vtx {
namespace {

QString text(const char* value) { return QString::fromUtf8(value); }

QWidget* sized(int width) {
    auto* widget = new QWidget;
    widget->setFixedSize(width, 20);
    return widget;
}

TEST(FlowLayout, begins_a_new_row_where_a_child_would_pass_the_width) {
    QWidget host;
    auto* flow = new FlowLayout(10, 4, &host);
    for (const int width : {60, 60, 60}) flow->addWidget(sized(width));
    using Row = FlowLayout::Row;
    EXPECT_EQ(flow->rowsFor(200), (std::vector<Row>{{{0, 1, 2}, 200, 20}}));
    EXPECT_EQ(flow->rowsFor(199), (std::vector<Row>{{{0, 1}, 130, 20}, {{2}, 60, 20}}));
    EXPECT_EQ(flow->heightForWidth(199), 44);
}

TEST(FlowLayout, a_child_wider_than_a_row_has_one_of_its_own) {
    QWidget host;
    auto* flow = new FlowLayout(10, 4, &host);
    for (const int width : {20, 300, 20}) flow->addWidget(sized(width));
    EXPECT_EQ(flow->rowsFor(100).size(), 3U);
    EXPECT_EQ(flow->rowsFor(0).size(), 3U);
    EXPECT_EQ(FlowLayout(1, 1).heightForWidth(100), 0);
}

TEST(FormRow, is_36_high_and_its_control_is_called_by_the_label) {
    FormRow row;
    auto* control = new Switch;
    row.addControl(control);
    row.setLabel(text("Disk"));
    EXPECT_EQ(row.heightForWidth(336), 36);
    EXPECT_EQ(control->accessibleName(), text("Disk"));
    row.resize(336, 36);
    test::show(row);
    EXPECT_EQ(control->geometry().right() + 1 - 4, 336 - 12);
}

TEST(FormRow, a_long_label_wraps_beside_its_control) {
    FormRow row;
    row.addControl(new Switch);
    row.setLabel(text("Температура процессора как живая надпись в строке меню рабочего стола"));
    EXPECT_GT(row.heightForWidth(336), 36);
    EXPECT_EQ(row.heightForWidth(900), 36);
}

TEST(FormRow, a_label_without_room_goes_above_its_control) {
    FormRow row;
    auto* control = new SegmentedControl;
    control->setSegments({text("Ein ziemlich langes Wort"), text("Ein ziemlich langes Wort")});
    row.addControl(control);
    row.setLabel(text("Aktualisierungsintervall"));
    EXPECT_EQ(row.heightForWidth(336), 36 - 9 + 36);
    EXPECT_EQ(row.heightForWidth(800), 36);
}

TEST(FormRow, a_note_stands_below_a_wide_control) {
    FormRow row;
    auto* control = new Button;
    control->setText(text("Look"));
    row.setWideControl(control);
    const int bare = row.heightForWidth(336);
    row.setNote(text("Looking."));
    row.resize(336, row.heightForWidth(336));
    test::show(row);
    const FormNote* note = nullptr;
    for (auto* child : row.findChildren<QWidget*>())
        if (const auto* one = dynamic_cast<FormNote*>(child)) note = one;
    ASSERT_NE(note, nullptr);
    EXPECT_GT(row.height(), bare);
    EXPECT_GE(note->geometry().top(), control->geometry().bottom());
    EXPECT_LT(note->geometry().bottom(), row.height());
}

TEST(FormRow, a_slider_takes_room_only_while_it_is_shown) {
    FormRow row;
    row.addControl(new Switch);
    row.setLabel(text("CPU"));
    row.setSlider(new Slider, 60);
    EXPECT_EQ(row.heightForWidth(336), 56);
    row.setSliderShown(false);
    EXPECT_EQ(row.heightForWidth(336), 36);
}

TEST(FormRow, why_a_control_is_disabled_is_heard_with_it) {
    FormRow row;
    auto* control = new Switch;
    row.addControl(control);
    row.setTip(text("Not here."));
    EXPECT_EQ(control->accessibleDescription(), text("Not here."));
    row.setTip({});
    EXPECT_EQ(control->accessibleDescription(), QString());
}

TEST(FormNote, emphasis_is_seen_and_not_spoken) {
    FormNote note;
    note.setText(text("pages in **its own** process"));
    EXPECT_EQ(note.accessibleName(), text("pages in its own process"));
    note.setText({});
    EXPECT_EQ(note.heightForWidth(100), 0);
    note.setText(text("unended **emphasis"));
    EXPECT_EQ(note.accessibleName(), text("unended emphasis"));
}

TEST(FormGroup, a_row_whose_height_is_always_the_same_has_it) {
    FormGroup group;
    auto* list = new TileList;
    list->setTiles({{text("cpu"), text("CPU"), {}, true, {}, {}},
                    {text("gpu"), text("GPU"), {}, true, {}, {}}});
    group.addRow(list);
    EXPECT_EQ(group.heightForWidth(336), 18 + 6 + 2 * 34);
}

TEST(FormGroup, a_footer_takes_room_only_where_there_is_one) {
    FormGroup group;
    auto* row = new FormRow;
    row->setLabel(text("Version"));
    row->setValue(text("1.0"));
    group.addRow(row);
    group.setTitle(text("About"));
    group.resize(336, 10);
    const int bare = group.heightForWidth(336);
    EXPECT_EQ(bare, 18 + 6 + 36);
    group.setFooter(text("One line."));
    EXPECT_EQ(group.heightForWidth(336), bare + 5 + 15);
    EXPECT_EQ(group.accessibleName(), text("About"));
}

class ColorWellTest : public testing::Test {
protected:
    ColorWellTest() {
        well.setColor(QColor(0x1D, 0x63, 0xC9));
        well.setAccessibleName(text("CPU"));
        well.resize(well.sizeHint());
        test::show(well);
        QObject::connect(&well, &ColorWell::chosen, [this](QColor c) { told.push_back(c); });
        QObject::connect(&well, &ColorWell::givenUp, [this] { ++givenUp; });
    }
    ~ColorWellTest() override {
        delete well.dialog();
        test::settle();
    }

    ColorWell well;
    std::vector<QColor> told;
    int givenUp = 0;
};

TEST_F(ColorWellTest, is_36_by_20_and_says_its_colour) {
    EXPECT_EQ(well.shape().size(), QSize(36, 20));
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&well);
    EXPECT_EQ(spoken->role(), QAccessible::ColorChooser);
    EXPECT_EQ(spoken->text(QAccessible::Description), text("#1D63C9"));
}

TEST_F(ColorWellTest, opens_one_dialog_that_tells_each_choice_and_has_no_opacity) {
    test::press(well, Qt::Key_Space);
    test::press(well, Qt::Key_Space);
    ASSERT_NE(well.dialog(), nullptr);
    EXPECT_FALSE(well.dialog()->testOption(QColorDialog::ShowAlphaChannel));
    well.dialog()->setCurrentColor(Qt::red);
    EXPECT_EQ(told, std::vector{QColor(Qt::red)});
    well.dialog()->accept();
    EXPECT_EQ(givenUp, 0);
}

TEST_F(ColorWellTest, tells_when_the_dialog_is_given_up) {
    well.pressWhole();
    well.dialog()->reject();
    EXPECT_EQ(givenUp, 1);
    EXPECT_TRUE(told.empty());
}

TEST(Button, with_its_ring_inside_the_shape_fills_the_widget) {
    Button button(ButtonKind::quiet);
    button.setRingInside();
    button.resize(22, 28);
    EXPECT_EQ(button.shape(), button.rect());
}

}  // namespace
}  // namespace vtx
