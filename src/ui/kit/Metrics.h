// SPDX-License-Identifier: MIT
#pragma once

/// Sizes of the interface in logical pixels, times in milliseconds.
namespace vtx::metrics {

inline constexpr int popoverWidth = 360;
inline constexpr int popoverHeight = 540;

inline constexpr int contentInset = 12;
inline constexpr int cardGap = 8;
inline constexpr int cardPadding = 14;
inline constexpr int symbolToTitle = 7;
inline constexpr int titleToRows = 6;
inline constexpr int titleToTile = 10;
/// Rows of keys and values have more air of their own.
inline constexpr int titleToKeyValues = 4;
/// Between the edge of a card and rows.
inline constexpr int cardRowsInset = 8;
inline constexpr int figureToBar = 8;
inline constexpr int barToTitle = 12;
inline constexpr int collectingPadding = 32;

inline constexpr int radiusWindow = 12;
inline constexpr int radiusGroup = 10;
inline constexpr int radiusMenu = 9;
inline constexpr int radiusTile = 8;
inline constexpr int radiusButton = 7;
inline constexpr int radiusSmall = 6;
inline constexpr int radiusSegment = 5;

/// Drawn one device pixel wide where half a logical pixel would be less.
inline constexpr double strokeOutline = 0.5;
inline constexpr double strokeEmphasis = 1.0;
inline constexpr double strokeLine = 1.5;
inline constexpr double strokeFocus = 2.0;
/// Between a shape and the inner edge of its focus ring.
inline constexpr double focusGap = 2.0;

/// The focus ring's reach beyond its shape.
inline constexpr int focusReach = 4;

inline constexpr int sectionButton = 24;
inline constexpr int sectionSymbol = 13;
inline constexpr int sectionGap = 4;
inline constexpr int sectionInset = 8;
inline constexpr int sectionDivider = 16;
/// With the line below it.
inline constexpr int sectionBarHeight = 41;

inline constexpr int metricRowHeight = 27;
inline constexpr int metricSymbolWidth = 20;
inline constexpr int metricSymbol = 14;
inline constexpr int metricRowsInset = 4;

/// What a card of the popover leaves for its contents.
inline constexpr int cardContentWidth = popoverWidth - 2 * (contentInset + cardPadding);
inline constexpr int labelToFigure = 2;
inline constexpr int keyValueRowHeight = 26;
inline constexpr int oneLineRowHeight = 32;
inline constexpr int twoLineRowHeight = 42;
inline constexpr int barRowHeight = 33;
/// Between a label and the value at the other end, at least.
inline constexpr int labelToValue = 8;
inline constexpr int swatch = 8;
inline constexpr int swatchRadius = 2;
inline constexpr int statusDot = 6;

inline constexpr int barThin = 4;
inline constexpr int barRegular = 6;
inline constexpr int barThick = 8;
/// The shortest fill above 0.
inline constexpr int barLeast = 2;
inline constexpr float barFillOpacity = 0.85F;
inline constexpr float barTrackOpacity = 0.18F;

inline constexpr int coreRowHeight = 21;
inline constexpr int coreHeadHeight = 22;
inline constexpr int coreLabelWidth = 26;
inline constexpr int coreValueWidth = 38;
inline constexpr int coreColumnGap = 12;
inline constexpr int coreBarLeast = 30;
/// As many rows a column takes before another is begun.
inline constexpr int coreColumnRows = 12;

inline constexpr int compositionHeight = 12;
inline constexpr int compositionRadius = 4;
inline constexpr double compositionGap = 1.5;

inline constexpr int gaugeMarkHeight = 12;
inline constexpr double gaugeMarkWidth = 1.5;

inline constexpr int tileHeight = 40;
inline constexpr int tilePadding = 10;
inline constexpr int figureSymbol = 14;

inline constexpr int pillHeight = 20;
inline constexpr int pillPadding = 8;
inline constexpr int pillDotGap = 4;
inline constexpr float pillFill = 0.14F;
inline constexpr float pillBorder = 0.28F;

inline constexpr int bannerPadding = 10;
inline constexpr int bannerGap = 4;
inline constexpr int bannerEntryHeight = 19;
inline constexpr int bannerButtonGap = 8;
inline constexpr float bannerFill = 0.10F;
inline constexpr float bannerBorder = 0.35F;

inline constexpr int titleSymbol = 15;
inline constexpr int placeholderSymbol = 28;
inline constexpr int placeholderTextWidth = 260;
inline constexpr int placeholderPadding = 24;
inline constexpr int placeholderGap = 10;
inline constexpr int placeholderTextGap = 4;

inline constexpr int spinner = 12;
inline constexpr int spinnerGap = 8;
inline constexpr int spinnerTurnMs = 1000;
inline constexpr int spinnerSteps = 24;

inline constexpr int buttonHeight = 26;
inline constexpr int buttonPadding = 12;
inline constexpr int buttonSymbol = 14;
inline constexpr int buttonSymbolGap = 6;

inline constexpr int fieldHeight = 28;
inline constexpr int fieldPadding = 8;
inline constexpr int fieldSymbol = 14;
inline constexpr double caretWidth = 1.5;

inline constexpr int dialogWidth = 305;
inline constexpr int dialogMargin = 16;
inline constexpr int dialogPadding = 20;
inline constexpr int dialogButtonHeight = 28;
inline constexpr int dialogButtonGap = 8;
inline constexpr int dialogTitleToMessage = 8;
inline constexpr int dialogMessageToButtons = 16;
inline constexpr float dialogDim = 0.55F;

inline constexpr int processRowHeight = 26;
inline constexpr int processCPUWidth = 52;
inline constexpr int processMemoryWidth = 60;
inline constexpr int processPIDWidth = 56;
inline constexpr int processActionWidth = 22;
inline constexpr int processActionSymbol = 14;
/// What lights up behind the symbol, and, wider, what can be clicked.
inline constexpr int processActionGround = 20;
inline constexpr int processActionHit = 24;
/// From the page's edge to a lit row.
inline constexpr int processRowInset = 6;
inline constexpr int processNameGap = 6;
inline constexpr int processMarkHeight = 15;
inline constexpr int processMarkPadding = 5;
inline constexpr int processFooterHeight = 30;

inline constexpr int hogPadding = 12;
inline constexpr int hogTitleSymbol = 12;
inline constexpr int hogRowHeight = 36;
inline constexpr int hogRowGap = 4;
inline constexpr int hogSymbol = 14;
inline constexpr int hogSymbolToName = 10;

inline constexpr int sectionHeadHeight = 26;
inline constexpr int sectionHeadInset = 2;

inline constexpr int stripHeight = 24;
inline constexpr int stripRadius = 8;
inline constexpr int stripInset = 6;
inline constexpr int stripTileGap = 6;
inline constexpr int stripSymbol = 13;
inline constexpr int stripSymbolGap = 3;

inline constexpr int widgetWidth = 220;
inline constexpr int widgetHeight = 170;
inline constexpr int widgetPadding = 10;
inline constexpr int widgetHeaderTop = 9;
inline constexpr int widgetHeaderHeight = 16;
inline constexpr int widgetDotGap = 6;
inline constexpr int widgetRowsTop = 31;
inline constexpr int widgetRowHeight = 24;
/// From the start of a row.
inline constexpr int widgetBarStart = 70;
inline constexpr int widgetBarWidth = 76;
inline constexpr int widgetChipHeight = 24;
inline constexpr int widgetChipGap = 6;
inline constexpr int widgetChipPadding = 8;

inline constexpr int pickerWidth = 520;
inline constexpr int pickerPadding = 24;
inline constexpr int pickerSymbol = 36;
inline constexpr int pickerSymbolGap = 12;
inline constexpr int pickerTitleGap = 4;
inline constexpr int pickerCardsGap = 18;
inline constexpr int pickerFooterGap = 20;
inline constexpr int pickerButtonLabel = 80;
inline constexpr int languageCardGap = 10;
inline constexpr int languageCardPadding = 12;
inline constexpr int languageCardMark = 18;
inline constexpr int languageCardDot = 6;
inline constexpr int languageCardTextGap = 10;

inline constexpr int popoverArrowWidth = 24;
inline constexpr int popoverArrowHeight = 10;
inline constexpr int popoverScreenMargin = 8;

inline constexpr int scrollBarWidth = 5;
inline constexpr int scrollBarInset = 3;
inline constexpr int scrollBarLeast = 32;
inline constexpr int scrollBarShownMs = 900;

inline constexpr int tooltipDelayMs = 500;
inline constexpr int tooltipHeight = 22;
inline constexpr int tooltipPadding = 8;
inline constexpr int tooltipGap = 4;

/// Of a chart's plot with the room that it keeps clear above and below its scale.
inline constexpr int chartHeight = 72;
inline constexpr int chartClear = 4;
inline constexpr int chartAxisWidth = 42;
inline constexpr int chartGap = 16;
inline constexpr int chartSymbol = 14;
inline constexpr int titleToChart = 10;
inline constexpr int chartToPills = 8;
inline constexpr int chartPillHeight = 18;
inline constexpr int chartPillPadding = 7;
inline constexpr int chartPillGap = 6;
inline constexpr int chartPillLabelGap = 5;
inline constexpr int chartLegendWidth = 14;
inline constexpr int chartLegendHeight = 8;
inline constexpr int chartLegendGap = 14;
inline constexpr double chartDot = 6.4;
inline constexpr double chartBarGap = 1.2;
inline constexpr double chartBarRadius = 1.0;
inline constexpr float chartBarOpacity = 0.85F;
inline constexpr float chartAreaTop = 0.34F;
inline constexpr float chartAreaBottom = 0.02F;

inline constexpr int segmentedHeight = 24;
inline constexpr int segmentInset = 2;
inline constexpr int segmentPadding = 9;
inline constexpr int segmentMs = 140;
inline constexpr double segmentDisabled = 0.45;

inline constexpr double controlDisabled = 0.4;

inline constexpr int switchWidth = 32;
inline constexpr int switchHeight = 18;
inline constexpr int switchInset = 2;
inline constexpr int switchKnob = 14;
inline constexpr int switchKnobPressed = 16;
inline constexpr int switchMs = 140;

inline constexpr int sliderHeight = 24;
inline constexpr int sliderTrack = 4;
inline constexpr int sliderKnob = 16;
inline constexpr int sliderKnobPressed = 18;
inline constexpr int sliderWidth = 200;
inline constexpr int sliderLeast = 60;

inline constexpr int menuButtonHeight = 24;
inline constexpr int menuButtonPadding = 8;
inline constexpr int menuButtonSymbol = 14;
inline constexpr int menuButtonChevron = 11;
inline constexpr int menuButtonLeast = 64;

inline constexpr int colorWellWidth = 36;
inline constexpr int colorWellHeight = 20;

/// Of the groups that a form is made of.
inline constexpr int formRowHeight = 36;
inline constexpr int formInset = 12;
inline constexpr int formTitleGap = 6;
inline constexpr int formFooterGap = 5;
inline constexpr int formGroupGap = 16;
/// Above and below a row's text that is running text.
inline constexpr int formNotePadding = 8;
/// From the row's top to the text or the slider below its label.
inline constexpr int formSecondLine = 32;
inline constexpr int formSliderTop = 29;
inline constexpr int formSliderBottom = 3;
inline constexpr int formSliderGap = 12;
/// A label that has less room than this goes above its control.
inline constexpr int formLabelLeast = 84;
/// Around a control as wide as the row, beyond the room of its focus ring.
inline constexpr int formWideRoom = 6;

inline constexpr int tileRowHeight = 34;
inline constexpr int tileHandle = 14;
inline constexpr int tileLabelLeft = 32;
inline constexpr int tileButtonWidth = 22;
inline constexpr int tileButtonsEnd = 8;
inline constexpr int tileButtonsGap = 10;
inline constexpr int tileReorderMs = 180;
inline constexpr int tileLift = 8;

}  // namespace vtx::metrics
