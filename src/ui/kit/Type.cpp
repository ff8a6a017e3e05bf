// SPDX-License-Identifier: MIT
#include "ui/kit/Type.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QGuiApplication>
#include <QPainter>
#include <QRawFont>
#include <QStringList>
#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

namespace vtx {

namespace {

struct RoleStyle {
    TextRole role;
    int pixels;
    QFont::Weight weight;
    int line;
};

// In the order of TextRole.
constexpr std::array styles{
    RoleStyle{TextRole::hero, 38, QFont::DemiBold, 44},
    RoleStyle{TextRole::figure, 28, QFont::DemiBold, 36},
    RoleStyle{TextRole::figureSmall, 22, QFont::DemiBold, 28},
    RoleStyle{TextRole::clusterLoad, 20, QFont::DemiBold, 24},
    RoleStyle{TextRole::clock, 17, QFont::DemiBold, 22},
    RoleStyle{TextRole::heading, 15, QFont::DemiBold, 20},
    RoleStyle{TextRole::sectionHead, 13, QFont::DemiBold, 18},
    RoleStyle{TextRole::chartTitle, 12, QFont::DemiBold, 16},
    RoleStyle{TextRole::body, 13, QFont::Normal, 18},
    RoleStyle{TextRole::rowTitle, 12, QFont::Normal, 16},
    RoleStyle{TextRole::rowValue, 13, QFont::DemiBold, 18},
    RoleStyle{TextRole::keyValue, 12, QFont::Medium, 16},
    RoleStyle{TextRole::label, 11, QFont::Medium, 14},
    RoleStyle{TextRole::labelValue, 11, QFont::DemiBold, 14},
    RoleStyle{TextRole::caption, 11, QFont::Normal, 15},
    RoleStyle{TextRole::small, 10, QFont::Normal, 13},
    RoleStyle{TextRole::axis, 9, QFont::Normal, 11},
    RoleStyle{TextRole::strip, 11, QFont::Medium, 14},
    RoleStyle{TextRole::tray, 9, QFont::DemiBold, 11},
};

constexpr bool isInOrder() {
    for (std::size_t i = 0; i < styles.size(); ++i) {
        if (static_cast<std::size_t>(styles[i].role) != i) return false;
    }
    return styles.size() == static_cast<std::size_t>(TextRole::tray) + 1;
}
static_assert(isInOrder());

constexpr qreal heroTrackingEm = -0.022;

// The faces that suit small dense figures, best first; otherwise the desktop's own.
QString preferredFamily() {
    for (const char* name : {"Inter", "Inter Variable"}) {
        const QString family = QString::fromLatin1(name);
        if (QFontDatabase::hasFamily(family)) return family;
    }
    return QGuiApplication::font().family();
}

const RoleStyle& styleOf(TextRole role) { return styles.at(static_cast<std::size_t>(role)); }

/// A role's font with what drawing figures needs of it.
struct Face {
    QFont font;
    QRawFont raw;
    std::array<quint32, 10> digits{};
    std::array<qreal, 10> digitAdvances{};
    /// The widest digit, tracking included.
    qreal cell = 0;
    qreal tracking = 0;
};

Face makeFace(const RoleStyle& style, const QString& family) {
    Face face;
    face.font = QFont(family);
    face.font.setPixelSize(style.pixels);
    face.font.setWeight(style.weight);
    face.font.setHintingPreference(QFont::PreferVerticalHinting);
    if (style.role == TextRole::hero) {
        face.tracking = heroTrackingEm * style.pixels;
        face.font.setLetterSpacing(QFont::AbsoluteSpacing, face.tracking);
    }
    face.raw = QRawFont::fromFont(face.font);
    const QList<quint32> glyphs = face.raw.glyphIndexesForString(QStringLiteral("0123456789"));
    const QList<QPointF> advances = face.raw.advancesForGlyphIndexes(glyphs);
    for (qsizetype i = 0; i < std::min<qsizetype>(glyphs.size(), 10); ++i) {
        const auto at = static_cast<std::size_t>(i);
        face.digits[at] = glyphs[i];
        face.digitAdvances[at] = advances[i].x();
        face.cell = std::max(face.cell, advances[i].x() + face.tracking);
    }
    return face;
}

std::array<std::unique_ptr<Face>, styles.size()>& faces() {
    static std::array<std::unique_ptr<Face>, styles.size()> made;
    return made;
}

const Face& faceFor(TextRole role) {
    std::unique_ptr<Face>& face = faces().at(static_cast<std::size_t>(role));
    if (!face) {
        // Fonts must not outlive the application object.
        static const bool registered = [] {
            qAddPostRoutine([] { faces() = {}; });
            return true;
        }();
        static_cast<void>(registered);
        static const QString family = preferredFamily();
        face = std::make_unique<Face>(makeFace(styleOf(role), family));
    }
    return *face;
}

/// One line of a figure: its glyphs with their places from the left end of the base line. Without
/// glyphs where the face lacks one of the characters.
struct Figure {
    QList<quint32> glyphs;
    QList<QPointF> places;
    qreal width = 0;
};

// The glyph of a digit, or -1.
int digitOf(const Face& face, quint32 glyph) {
    const auto found = std::find(face.digits.begin(), face.digits.end(), glyph);
    return found == face.digits.end() ? -1 : static_cast<int>(found - face.digits.begin());
}

Figure layOut(const Face& face, const QString& text) {
    Figure figure;
    QList<quint32> glyphs = face.raw.glyphIndexesForString(text);
    if (text.isRightToLeft() || glyphs.contains(0U)) {
        figure.width = QFontMetricsF(face.font).horizontalAdvance(text);
        return figure;
    }
    const QList<QPointF> advances = face.raw.advancesForGlyphIndexes(glyphs);
    for (qsizetype i = 0; i < glyphs.size(); ++i) {
        const int digit = digitOf(face, glyphs[i]);
        const qreal advance = advances[i].x();
        const qreal room = digit < 0 ? advance + face.tracking : face.cell;
        const qreal lead = digit < 0 ? 0.0 : (face.cell - face.tracking - advance) / 2;
        figure.places.append(QPointF(figure.width + lead, 0));
        figure.width += room;
    }
    figure.glyphs = std::move(glyphs);
    return figure;
}

qreal startX(const QRectF& rect, qreal width, Qt::Alignment alignment) {
    if (alignment & Qt::AlignRight) return rect.right() - width;
    if (alignment & Qt::AlignHCenter) return rect.center().x() - width / 2;
    return rect.left();
}

// Centred by the height of the capitals, which is what the eye takes for the middle of a line.
qreal baseLine(const QRectF& rect, const QRawFont& raw, Qt::Alignment alignment) {
    if (alignment & Qt::AlignTop) return rect.top() + raw.ascent();
    if (alignment & Qt::AlignBottom) return rect.bottom() - raw.descent();
    return rect.center().y() + raw.capHeight() / 2;
}

// Glyphs stand on whole device pixels vertically, so that a line is equally sharp everywhere.
QPointF onPixelRow(const QPainter& painter, QPointF point) {
    const QTransform& device = painter.deviceTransform();
    if (device.type() > QTransform::TxScale || device.m22() <= 0) return point;
    const qreal y = device.map(point).y();
    return {point.x(), point.y() + (std::round(y) - y) / device.m22()};
}

void drawLine(QPainter& painter, const QRectF& rect, const QString& text, TextRole role,
              Qt::Alignment alignment, Qt::TextElideMode mode) {
    const Face& face = faceFor(role);
    const QFontMetricsF measure(face.font);
    QString shown = text;
    qreal width = measure.horizontalAdvance(shown);
    if (width > rect.width()) {
        shown = measure.elidedText(text, mode, rect.width());
        width = measure.horizontalAdvance(shown);
    }
    painter.setFont(face.font);
    painter.drawText(
        onPixelRow(painter, {startX(rect, width, alignment), baseLine(rect, face.raw, alignment)}),
        shown);
}

}  // namespace

const QFont& fontFor(TextRole role) { return faceFor(role).font; }

void releaseFonts() {
    faces() = {};
    // The toolkit keeps every font of up to four megabytes for good. Fonts that are still referred
    // to find theirs again: they ask the next store, as they do where they come to another thread.
    QFont::cleanup();
}

int lineHeight(TextRole role) { return styleOf(role).line; }

qreal textWidth(const QString& text, TextRole role) {
    return QFontMetricsF(fontFor(role)).horizontalAdvance(text);
}

void drawText(QPainter& painter, const QRectF& rect, const QString& text, TextRole role,
              Qt::Alignment alignment) {
    drawLine(painter, rect, text, role, alignment, Qt::ElideRight);
}

void drawName(QPainter& painter, const QRectF& rect, const QString& text, TextRole role,
              Qt::Alignment alignment) {
    drawLine(painter, rect, text, role, alignment, Qt::ElideMiddle);
}

qreal tabularWidth(const QString& text, TextRole role) { return layOut(faceFor(role), text).width; }

void drawTabular(QPainter& painter, const QRectF& rect, const QString& text, TextRole role,
                 Qt::Alignment alignment) {
    const Face& face = faceFor(role);
    const Figure figure = layOut(face, text);
    const QPointF origin = onPixelRow(
        painter, {startX(rect, figure.width, alignment), baseLine(rect, face.raw, alignment)});
    if (figure.glyphs.isEmpty()) {
        painter.setFont(face.font);
        painter.drawText(origin, text);
        return;
    }
    QGlyphRun run;
    run.setRawFont(face.raw);
    run.setGlyphIndexes(figure.glyphs);
    run.setPositions(figure.places);
    painter.drawGlyphRun(origin, run);
}

void drawValue(QPainter& painter, const QRectF& rect, const QString& text, TextRole role,
               Qt::Alignment alignment) {
    if (tabularWidth(text, role) <= rect.width()) {
        drawTabular(painter, rect, text, role, alignment);
    } else {
        drawText(painter, rect, text, role, alignment);
    }
}

}  // namespace vtx
