// SPDX-License-Identifier: MIT
#include "ui/kit/Symbol.h"

#include <QCache>
#include <QDir>
#include <QFile>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <tuple>

#include "ui/kit/SymbolReader.h"

// The resource of a static library is not registered unless it is asked for.
static void registerResource() { Q_INIT_RESOURCE(symbols); }

namespace vtx::symbols {

namespace {

constexpr double gridUnits = 24;
// Thinner than this, a line is grey instead of the colour.
constexpr double leastStrokePixels = 1.0;
constexpr qsizetype cacheBytes = 192 * 1024;

struct Key {
    QString name;
    int pixels;
    QRgb color;
    bool operator==(const Key&) const = default;
};

size_t qHash(const Key& key, size_t seed = 0) {
    return qHashMulti(seed, key.name, key.pixels, key.color);
}

QCache<Key, QImage>& cache() {
    static QCache<Key, QImage> pictures(cacheBytes);
    return pictures;
}

QString fileOf(const QString& name) {
    [[maybe_unused]] static const bool registered = (registerResource(), true);
    return QStringLiteral(":/symbols/") + name + QStringLiteral(".svg");
}

QByteArray sourceOf(const QString& name) {
    QFile file(fileOf(name));
    if (name.isEmpty() || !file.open(QIODevice::ReadOnly)) return {};
    return file.readAll();
}

void paintShape(QPainter& painter, const SymbolShape& shape, QColor color, double scale) {
    const double shapeScale = scale * std::sqrt(std::abs(shape.transform.determinant()));
    const double width = std::max(shape.strokeWidth, leastStrokePixels / shapeScale);
    painter.setTransform(shape.transform * QTransform::fromScale(scale, scale));
    painter.setBrush(shape.filled ? QBrush(color) : QBrush(Qt::NoBrush));
    painter.setPen(shape.strokeWidth > 0
                       ? QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin)
                       : QPen(Qt::NoPen));
    painter.drawPath(shape.path);
}

QImage render(const Key& key) {
    const std::vector<SymbolShape> shapes = readSymbol(sourceOf(key.name));
    if (shapes.empty()) return {};
    QImage picture(key.pixels, key.pixels, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const SymbolShape& shape : shapes) {
        paintShape(painter, shape, QColor::fromRgb(key.color), key.pixels / gridUnits);
    }
    return picture;
}

QImage kept(const Key& key) {
    if (const QImage* picture = cache().object(key)) return *picture;
    const QImage picture = render(key);
    cache().insert(key, new QImage(picture), std::max<qsizetype>(picture.sizeInBytes(), 1));
    return picture;
}

QImage opaqueImage(const QString& name, int size, QColor color, qreal scale) {
    const int pixels = std::clamp(static_cast<int>(std::lround(size * scale)), 1, 1024);
    return kept({name, pixels, color.rgb()});
}

}  // namespace

void draw(QPainter& painter, const QRectF& rect, const QString& name, int size, QColor color) {
    const QTransform device = painter.deviceTransform();
    const QImage picture = opaqueImage(name, size, color, device.m11());
    if (picture.isNull()) return;
    const QPointF middle = device.map(rect.center());
    const double left = std::round(middle.x() - picture.width() / 2.0);
    const double top = std::round(middle.y() - picture.height() / 2.0);
    painter.save();
    // From here on, one unit is one device pixel.
    painter.setWorldTransform(QTransform::fromTranslate(left, top) * device.inverted() *
                              painter.worldTransform());
    painter.setOpacity(painter.opacity() * static_cast<qreal>(color.alphaF()));
    painter.drawImage(0, 0, picture);
    painter.restore();
}

QImage image(const QString& name, int size, QColor color, qreal scale) {
    QImage picture = opaqueImage(name, size, color, scale);
    picture.setDevicePixelRatio(scale);
    return picture;
}

bool exists(const QString& name) { return !name.isEmpty() && QFile::exists(fileOf(name)); }

QStringList names() {
    QStringList found;
    const QFileInfo folder(fileOf(QStringLiteral("circle")));
    for (const QFileInfo& file : folder.dir().entryInfoList(QDir::Files, QDir::Name)) {
        found.append(file.completeBaseName());
    }
    return found;
}

void releaseCache() { cache().clear(); }

}  // namespace vtx::symbols
