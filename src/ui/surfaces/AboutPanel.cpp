// SPDX-License-Identifier: MIT
#include "ui/surfaces/AboutPanel.h"

#include <QKeyEvent>
#include <QPainter>

#include "base/Version.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/Symbol.h"
#include "ui/kit/Type.h"
#include "ui/surfaces/QtText.h"

namespace vtx {
namespace {

constexpr int symbolSize = 36;

QString versionLine() {
    const QString version = "Version " + qt(programVersion());
    return programBuild().empty() ? version : version + " (" + qt(programBuild()) + ")";
}

}  // namespace

AboutPanel::AboutPanel(const QString& title) : version_(versionLine()) {
    setWindowTitle(title);
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    setAttribute(Qt::WA_DeleteOnClose);
    setFixedSize(sizeHint());
    setAccessibleName("About Vantrix");
    setAccessibleDescription(version_);
}

void AboutPanel::paintEvent(QPaintEvent* event) {
    Surface::paintEvent(event);
    QPainter painter(this);
    const auto line = [&](int top, int height, const QString& text, TextRole role, ColorToken hue) {
        painter.setPen(color(hue));
        drawText(painter,
                 QRectF(metrics::contentInset, top, width() - 2 * metrics::contentInset, height),
                 text, role, Qt::AlignCenter);
    };
    symbols::draw(painter, QRectF(0, 30, width(), symbolSize), "waveform.path.ecg", symbolSize,
                  color(ColorToken::accent));
    line(80, 22, "Vantrix", TextRole::clock, ColorToken::text1);
    line(104, 18, version_, TextRole::body, ColorToken::text2);
    line(138, 15, "What your machine is doing, at a glance.", TextRole::caption, ColorToken::text2);
    line(170, 15, "© The Vantrix developers · MIT License", TextRole::caption, ColorToken::text3);
}

void AboutPanel::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        Surface::keyPressEvent(event);
}

}  // namespace vtx
