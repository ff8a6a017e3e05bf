// SPDX-License-Identifier: MIT
#include "ui/kit/Button.h"
#include "ui/kit/ColorWell.h"
#include "ui/kit/FlowLayout.h"
#include "ui/kit/FormGroup.h"
#include "ui/kit/FormRow.h"
#include "ui/kit/KitSample.h"
#include "ui/kit/KitSheets.h"
#include "ui/kit/MenuButton.h"
#include "ui/kit/Slider.h"
#include "ui/kit/Switch.h"
#include "ui/kit/TileList.h"

namespace vtx::sheets {

namespace {

using sample::text;

enum class Able : quint8 { yes, no };

Switch* makeSwitch(bool on, Able able = Able::yes) {
    auto made = std::make_unique<Switch>();
    made->setOn(on);
    made->setEnabled(able == Able::yes);
    return made.release();
}

FormRow* makeRow(const char* label) {
    auto made = std::make_unique<FormRow>();
    made->setLabel(text(label));
    return made.release();
}

FormRow* makeSliderRow(const char* label, double value, const char* words, Able able) {
    FormRow* row = makeRow(label);
    auto slider = std::make_unique<Slider>();
    slider->setRange({0, 100, 1});
    slider->setValue(value);
    slider->setEnabled(able == Able::yes);
    row->addControl(makeSwitch(true));
    row->setSlider(slider.release(), 60);
    row->setSliderValue(text(words));
    return row;
}

FormRow* makeMenuRow() {
    FormRow* row = makeRow("Menu");
    auto menu = std::make_unique<MenuButton>();
    menu->setChoices({{text("Thermometer"), text("thermometer.medium")}});
    menu->setCurrent(0);
    row->addControl(menu.release());
    return row;
}

FormRow* makeColorRow() {
    FormRow* row = makeRow("Colour");
    auto reset = std::make_unique<Button>(ButtonKind::quiet);
    reset->setSymbol(text("arrow.counterclockwise"));
    auto well = std::make_unique<ColorWell>();
    well->setColor(Theme::current().color(ColorToken::gpu));
    row->addControl(reset.release(), ControlName::own);
    row->addControl(well.release());
    return row;
}

FormRow* makeFlowRow() {
    auto row = std::make_unique<FormRow>();
    auto buttons = std::make_unique<QWidget>();
    auto flow = std::make_unique<FlowLayout>(0, 0, buttons.get());
    for (const char* word : {"Minimal", "Balanced", "Power User"}) {
        auto button = std::make_unique<Button>();
        button->setText(text(word));
        flow->addWidget(button.release());
    }
    flow.release();
    row->setWideControl(buttons.release());
    return row.release();
}

}  // namespace

std::unique_ptr<QWidget> form() {
    auto group = std::make_unique<FormGroup>();
    group->setTitle(text("Form"));
    FormRow* noted = makeRow("With a note");
    noted->addControl(makeSwitch(false));
    noted->setNote(text("Asks the library to release pages in **its own** process."));
    group->addRow(noted);
    FormRow* disabled = makeRow("Disabled");
    disabled->addControl(makeSwitch(true, Able::no));
    disabled->addControl(makeSwitch(false, Able::no));
    group->addRow(disabled);
    group->addRow(makeSliderRow("Slider", 62, "62%", Able::yes));
    group->addRow(makeSliderRow("Disabled slider", 30, "30%", Able::no));
    group->addRow(makeMenuRow());
    group->addRow(makeColorRow());
    group->addRow(makeFlowRow());
    group->setFooter(
        text("What is to be said about the rows above, over as many lines as it takes "
             "to say it."));
    return group;
}

std::unique_ptr<QWidget> tiles() {
    auto group = std::make_unique<FormGroup>();
    group->setTitle(text("Tiles"));
    auto list = std::make_unique<TileList>();
    list->setTiles({{text("cpu"), text("CPU"), {}, true, {}, {}},
                    {text("gpu"), text("GPU"), {}, false, {}, {}},
                    {text("ane"), {}, {}, std::nullopt, {}, {}}});
    group->addRow(list.release());
    return group;
}

}  // namespace vtx::sheets
