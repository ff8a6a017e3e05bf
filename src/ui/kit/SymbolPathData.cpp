// SPDX-License-Identifier: MIT
#include "ui/kit/SymbolPathData.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace vtx {

namespace {

/// Walks the text of a path. Every read says whether there was something to read.
class Scanner {
public:
    explicit Scanner(QStringView text) : text_(text) {}

    bool atEnd() {
        skipBlanks();
        return at_ >= text_.size();
    }

    std::optional<char> command() {
        skipBlanks();
        if (at_ >= text_.size() || !text_[at_].isLetter()) return std::nullopt;
        return text_[at_++].toLatin1();
    }

    /// A number ends where the next one can begin: "1.5.5-2" holds three.
    std::optional<double> number() {
        skipBlanks();
        const qsizetype from = at_;
        if (at_ < text_.size() && (text_[at_] == u'-' || text_[at_] == u'+')) ++at_;
        skipDigits();
        if (at_ < text_.size() && text_[at_] == u'.') {
            ++at_;
            skipDigits();
        }
        bool ok = false;
        const double value = text_.mid(from, at_ - from).toDouble(&ok);
        if (!ok || std::abs(value) > 1e4) return std::nullopt;
        return value;
    }

    /// The flags of an arc may stand without a blank between them.
    std::optional<bool> flag() {
        skipBlanks();
        if (at_ >= text_.size() || (text_[at_] != u'0' && text_[at_] != u'1')) return std::nullopt;
        return text_[at_++] == u'1';
    }

private:
    void skipBlanks() {
        while (at_ < text_.size() && (text_[at_].isSpace() || text_[at_] == u',')) ++at_;
    }
    void skipDigits() {
        while (at_ < text_.size() && text_[at_].isDigit()) ++at_;
    }

    QStringView text_;
    qsizetype at_ = 0;
};

/// An elliptical arc as it is written in a path.
struct Arc {
    double rx;
    double ry;
    double rotation;
    bool large;
    bool sweep;
    QPointF to;
};

/// The same arc by its centre, in the circle's own coordinates.
struct ArcCentre {
    QPointF centre;
    double start;
    double sweep;
};

ArcCentre centreOf(QPointF from, QPointF to, bool large, bool sweep) {
    const QPointF half = (to - from) / 2;
    const double distance2 = QPointF::dotProduct(half, half);
    const double rest = std::sqrt(std::max(0.0, (1 - distance2) / distance2));
    const double side = large == sweep ? -1 : 1;
    const QPointF centre = (from + to) / 2 + QPointF(-half.y(), half.x()) * (rest * side);
    const auto angle = [&](QPointF p) {
        return std::atan2(p.y() - centre.y(), p.x() - centre.x());
    };
    double turn = angle(to) - angle(from);
    constexpr double circle = 2 * std::numbers::pi;
    if (sweep && turn < 0) turn += circle;
    if (!sweep && turn > 0) turn -= circle;
    return {centre, angle(from), turn};
}

/// One quarter turn or less of the unit circle as a curve.
void addQuarter(QPainterPath& path, const QTransform& toPage, QPointF centre, double from,
                double to) {
    const double reach = 4.0 / 3.0 * std::tan((to - from) / 4);
    const QPointF a(std::cos(from), std::sin(from));
    const QPointF b(std::cos(to), std::sin(to));
    const QPointF first = a + QPointF(-a.y(), a.x()) * reach;
    const QPointF second = b - QPointF(-b.y(), b.x()) * reach;
    path.cubicTo(toPage.map(centre + first), toPage.map(centre + second), toPage.map(centre + b));
}

void addArc(QPainterPath& path, const Arc& arc) {
    const QPointF start = path.currentPosition();
    if (arc.rx == 0 || arc.ry == 0 || start == arc.to) {
        path.lineTo(arc.to);
        return;
    }
    QTransform toPage;
    toPage.rotate(arc.rotation).scale(std::abs(arc.rx), std::abs(arc.ry));
    // Radii too small to reach are grown until they do.
    const QPointF reach = toPage.inverted().map((arc.to - start) / 2);
    const double needed = std::sqrt(QPointF::dotProduct(reach, reach));
    if (needed > 1) toPage.scale(needed, needed);
    const QTransform toCircle = toPage.inverted();
    const ArcCentre round =
        centreOf(toCircle.map(start), toCircle.map(arc.to), arc.large, arc.sweep);
    const int parts = std::max(1, static_cast<int>(std::ceil(std::abs(round.sweep) / 1.5708)));
    for (int i = 0; i < parts; ++i) {
        const double from = round.start + round.sweep * i / parts;
        addQuarter(path, toPage, round.centre, from, from + round.sweep / parts);
    }
}

/// Turns commands into a path.
class PathBuilder {
public:
    explicit PathBuilder(QStringView data) : scan_(data) {}

    std::optional<QPainterPath> build() {
        char command = 0;
        while (!scan_.atEnd()) {
            if (const std::optional<char> next = scan_.command()) {
                command = *next;
            } else if (command == 'z' || command == 'Z') {
                return std::nullopt;
            }
            if (!step(command)) return std::nullopt;
            // Further pairs after a move are lines.
            if (command == 'M') command = 'L';
            if (command == 'm') command = 'l';
        }
        return path_;
    }

private:
    bool step(char command) {
        relative_ = command >= 'a';
        const char kind = relative_ ? command : static_cast<char>(command + ('a' - 'A'));
        if (!started_ && kind != 'm') return false;
        const std::optional<QPointF> control = std::exchange(lastControl_, std::nullopt);
        const QPointF here = path_.currentPosition();
        switch (kind) {
            case 'm':
                return move();
            case 'l':
                return line(point());
            case 'h':
                return line(along(here, Qt::Horizontal));
            case 'v':
                return line(along(here, Qt::Vertical));
            case 'c':
                return curve(point());
            case 's':
                return curve(control ? here * 2 - *control : here);
            case 'a':
                return arc();
            case 'z':
                path_.closeSubpath();
                return true;
            default:
                return false;
        }
    }

    std::optional<QPointF> point() {
        const std::optional<double> x = scan_.number();
        const std::optional<double> y = scan_.number();
        if (!x || !y) return std::nullopt;
        return QPointF(*x, *y) + (relative_ ? path_.currentPosition() : QPointF());
    }

    std::optional<QPointF> along(QPointF here, Qt::Orientation axis) {
        const std::optional<double> value = scan_.number();
        if (!value) return std::nullopt;
        double& moved = axis == Qt::Horizontal ? here.rx() : here.ry();
        moved = relative_ ? moved + *value : *value;
        return here;
    }

    bool move() {
        const std::optional<QPointF> to = point();
        if (to) path_.moveTo(*to);
        started_ = to.has_value();
        return started_;
    }

    bool line(std::optional<QPointF> to) {
        if (to) path_.lineTo(*to);
        return to.has_value();
    }

    bool curve(std::optional<QPointF> first) {
        const std::optional<QPointF> second = point();
        const std::optional<QPointF> to = point();
        if (!first || !second || !to) return false;
        path_.cubicTo(*first, *second, *to);
        lastControl_ = second;
        return true;
    }

    bool arc() {
        const std::optional<double> rx = scan_.number();
        const std::optional<double> ry = scan_.number();
        const std::optional<double> rotation = scan_.number();
        const std::optional<bool> large = scan_.flag();
        const std::optional<bool> sweep = scan_.flag();
        const std::optional<QPointF> to = point();
        if (!rx || !ry || !rotation || !large || !sweep || !to) return false;
        addArc(path_, {*rx, *ry, *rotation, *large, *sweep, *to});
        return true;
    }

    Scanner scan_;
    QPainterPath path_;
    /// The second control point of the curve just drawn, which a smooth curve reflects.
    std::optional<QPointF> lastControl_;
    bool started_ = false;
    bool relative_ = false;
};

}  // namespace

std::optional<QPainterPath> parsePathData(QStringView data) { return PathBuilder(data).build(); }

}  // namespace vtx
