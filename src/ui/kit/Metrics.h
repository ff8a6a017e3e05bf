// SPDX-License-Identifier: MIT
#pragma once

/// Sizes of the interface in logical pixels, times in milliseconds.
namespace vtx::metrics {

inline constexpr int contentInset = 12;
inline constexpr int cardGap = 8;
inline constexpr int cardPadding = 14;
inline constexpr int symbolToTitle = 7;
inline constexpr int titleToRows = 6;

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

inline constexpr int sectionHeadHeight = 26;
inline constexpr int sectionHeadInset = 2;

inline constexpr int stripHeight = 24;
inline constexpr int stripRadius = 8;
inline constexpr int stripInset = 6;
inline constexpr int stripTileGap = 6;
inline constexpr int stripSymbol = 13;
inline constexpr int stripSymbolGap = 3;

inline constexpr int popoverWidth = 360;
inline constexpr int popoverHeight = 540;
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

}  // namespace vtx::metrics
