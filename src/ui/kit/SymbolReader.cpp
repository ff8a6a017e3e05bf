// SPDX-License-Identifier: MIT
#include "ui/kit/SymbolReader.h"

#include <QXmlStreamReader>
#include <optional>

#include "ui/kit/SymbolPathData.h"

namespace vtx {

namespace {

/// What a group hands down to the shapes in it.
struct Style {
    bool filled = false;
    bool stroked = false;
    double strokeWidth = 1;
    Qt::FillRule rule = Qt::WindingFill;
    QTransform transform;
};

using Attributes = QXmlStreamAttributes;

double number(const Attributes& attributes, const char* name) {
    return attributes.value(QLatin1String(name)).toDouble();
}

/// The numbers between the brackets of "name(...)".
QList<double> arguments(QStringView call) {
    QList<double> numbers;
    const qsizetype open = call.indexOf(u'(');
    const QString list = call.sliced(open + 1).toString().replace(u',', u' ');
    for (const QStringView part : QStringView(list).split(u' ', Qt::SkipEmptyParts)) {
        numbers.append(part.toDouble());
    }
    return numbers;
}

QTransform transformOf(QStringView text) {
    QTransform result;
    for (const QStringView raw : text.split(u')', Qt::SkipEmptyParts)) {
        const QStringView call = raw.trimmed();
        if (!call.contains(u'(')) continue;
        const QList<double> n = arguments(call);
        if (call.startsWith(u"rotate") && n.size() == 3) {
            result.translate(n[1], n[2]).rotate(n[0]).translate(-n[1], -n[2]);
        } else if (call.startsWith(u"rotate") && n.size() == 1) {
            result.rotate(n[0]);
        } else if (call.startsWith(u"translate") && !n.isEmpty()) {
            result.translate(n[0], n.value(1));
        } else if (call.startsWith(u"scale") && !n.isEmpty()) {
            result.scale(n[0], n.value(1, n[0]));
        }
    }
    return result;
}

Style styleOf(const Attributes& attributes, Style style) {
    const auto value = [&](const char* name) { return attributes.value(QLatin1String(name)); };
    if (const auto fill = value("fill"); !fill.isEmpty()) style.filled = fill != u"none";
    if (const auto stroke = value("stroke"); !stroke.isEmpty()) style.stroked = stroke != u"none";
    if (const auto width = value("stroke-width"); !width.isEmpty()) {
        style.strokeWidth = width.toDouble();
    }
    if (value("fill-rule") == u"evenodd") style.rule = Qt::OddEvenFill;
    if (const auto list = value("transform"); !list.isEmpty()) {
        style.transform = transformOf(list) * style.transform;
    }
    return style;
}

QPainterPath rectPath(const Attributes& a) {
    QPainterPath path;
    const double rx = number(a, "rx");
    const QRectF rect(number(a, "x"), number(a, "y"), number(a, "width"), number(a, "height"));
    path.addRoundedRect(rect, rx, a.hasAttribute(QLatin1String("ry")) ? number(a, "ry") : rx);
    return path;
}

QPainterPath ellipsePath(const Attributes& a, const char* rx, const char* ry) {
    QPainterPath path;
    path.addEllipse(QPointF(number(a, "cx"), number(a, "cy")), number(a, rx), number(a, ry));
    return path;
}

/// None for an element that is no shape, an empty path for a damaged one.
std::optional<QPainterPath> shapePath(QStringView element, const Attributes& a) {
    if (element == u"path")
        return parsePathData(a.value(QLatin1String("d"))).value_or(QPainterPath());
    if (element == u"rect") return rectPath(a);
    if (element == u"circle") return ellipsePath(a, "r", "r");
    if (element == u"ellipse") return ellipsePath(a, "rx", "ry");
    if (element == u"line") {
        QPainterPath path(QPointF(number(a, "x1"), number(a, "y1")));
        path.lineTo(number(a, "x2"), number(a, "y2"));
        return path;
    }
    if (element == u"polyline") {
        const QString data = QLatin1Char('M') + a.value(QLatin1String("points")).toString();
        return parsePathData(data).value_or(QPainterPath());
    }
    return std::nullopt;
}

}  // namespace

std::vector<SymbolShape> readSymbol(QByteArrayView svg) {
    std::vector<SymbolShape> shapes;
    QXmlStreamReader xml(QByteArray::fromRawData(svg.data(), svg.size()));
    QList<Style> open{Style{}};
    while (!xml.atEnd()) {
        const QXmlStreamReader::TokenType token = xml.readNext();
        if (token == QXmlStreamReader::EndElement) open.removeLast();
        if (token != QXmlStreamReader::StartElement) continue;
        const Style style = styleOf(xml.attributes(), open.last());
        open.append(style);
        std::optional<QPainterPath> path = shapePath(xml.name(), xml.attributes());
        if (!path) continue;
        if (path->isEmpty()) return {};
        path->setFillRule(style.rule);
        shapes.push_back({std::move(*path), style.filled, style.stroked ? style.strokeWidth : 0.0,
                          style.transform});
    }
    if (xml.hasError()) return {};
    return shapes;
}

}  // namespace vtx
