// SPDX-License-Identifier: MIT
// The least that a window of this toolkit costs which shows five small texts and renews them once a
// second: what the strip is measured against.
#include <QApplication>
#include <QPainter>
#include <QTimer>
#include <QWidget>

namespace {

constexpr int tileCount = 5;
constexpr int tileWidth = 30;
constexpr int stripHeight = 24;

class BareWindow final : public QWidget {
public:
    BareWindow() {
        setWindowTitle("bench-bare-window");
        setFixedSize(tileCount * tileWidth, stripHeight);
        timer_.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer_, &QTimer::timeout, this, [this] {
            ++second_;
            update();
        });
        timer_.start(1000);
    }

private:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        QFont small = font();
        small.setPixelSize(11);
        painter.setFont(small);
        for (int tile = 0; tile < tileCount; ++tile) {
            const QRect frame(tile * tileWidth, 0, tileWidth, stripHeight);
            const int value = (second_ * 7 + tile * 13) % 100;
            painter.drawText(frame, Qt::AlignCenter, QString::number(value) + '%');
        }
    }

    QTimer timer_;
    int second_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    BareWindow window;
    window.show();
    return QApplication::exec();
}
