// SPDX-License-Identifier: MIT
#include <QCoreApplication>
#include <QEnterEvent>
#include <QMouseEvent>

#include "ui/kit/Button.h"
#include "ui/kit/KitSample.h"
#include "ui/kit/KitSheets.h"
#include "ui/kit/Pill.h"
#include "ui/kit/Spinner.h"
#include "ui/kit/TextBlock.h"

namespace vtx::sheets {

namespace {

using sample::Sheet;
using sample::text;

enum class State : quint8 { rest, hovered, pressed, disabled };

void send(QWidget& widget, State state) {
    const QPointF middle(20, 15);
    if (state == State::hovered) {
        QEnterEvent event(middle, middle, middle);
        QCoreApplication::sendEvent(&widget, &event);
    } else if (state == State::pressed) {
        QMouseEvent event(QEvent::MouseButtonPress, middle, middle, Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
    }
}

std::unique_ptr<Button> button(ButtonKind kind, const char* word, State state,
                               const char* symbol = "") {
    auto made = std::make_unique<Button>(kind);
    made->setText(text(word));
    made->setSymbol(text(symbol));
    made->setEnabled(state != State::disabled);
    made->resize(made->sizeHint());
    send(*made, state);
    return made;
}

std::unique_ptr<Pill> pill(const char* word, ColorToken color, PillDot dot = PillDot::shown) {
    auto made = std::make_unique<Pill>();
    made->setContent({text(word), color, dot});
    return made;
}

std::unique_ptr<TextBlock> block(const char* words, ColorToken color, TextRole role,
                                 const char* symbol = "") {
    auto made = std::make_unique<TextBlock>();
    made->setContent({.text = text(words), .color = color, .role = role, .symbol = text(symbol)});
    return made;
}

}  // namespace

std::unique_ptr<QWidget> buttons() {
    Sheet sheet("Buttons");
    for (const ButtonKind kind :
         {ButtonKind::primary, ButtonKind::standard, ButtonKind::destructive, ButtonKind::quiet}) {
        sheet.addRow(0, button(kind, "Rest", State::rest), button(kind, "Hover", State::hovered),
                     button(kind, "Pressed", State::pressed),
                     button(kind, "Disabled", State::disabled));
    }
    constexpr const char* mark = "arrow.clockwise";
    constexpr ButtonKind quiet = ButtonKind::quiet;
    sheet.addRow(0, button(quiet, "", State::rest, mark), button(quiet, "", State::hovered, mark),
                 button(quiet, "", State::pressed, mark), button(quiet, "", State::disabled, mark));
    sheet.addRow(0, button(ButtonKind::standard, "Free RAM", State::rest, "arrow.up.bin.fill"));
    return sheet.take();
}

std::unique_ptr<QWidget> pills() {
    Sheet sheet("Pills, notes, progress");
    sheet.addRow(metrics::cardGap, pill("Normal", ColorToken::green),
                 pill("Warning", ColorToken::orange), pill("Critical", ColorToken::red),
                 pill("Excellent", ColorToken::green, PillDot::none));
    sheet.add(block("Low Power Mode", ColorToken::green, TextRole::label, "leaf"));
    sheet.add(block("No response detected — this machine doesn't appear to support control.",
                    ColorToken::orange, TextRole::label, "exclamationmark.triangle.fill"));
    sheet.add(
        block("Prüft nacheinander, ob die Lüftersteuerungsschnittstelle antwortet, und kehrt "
              "danach zur Regelung der Firmware zurück.",
              ColorToken::text2, TextRole::caption));
    auto spinner = std::make_unique<Spinner>();
    spinner->setText(text("Collecting…"));
    sheet.add(std::move(spinner));
    return sheet.take();
}

}  // namespace vtx::sheets
