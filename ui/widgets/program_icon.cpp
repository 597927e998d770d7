#include "ui/widgets/program_icon.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <cmath>
#include <numbers>

namespace brevane {

void paintProgramIcon(QPainter& p, int size) {
    p.setRenderHint(QPainter::Antialiasing, true);

    const QRectF tile(0.5, 0.5, size - 1.0, size - 1.0);
    QLinearGradient fill(tile.topLeft(), tile.bottomRight());
    fill.setColorAt(0.0, QColor(0x4F, 0x95, 0xA6));
    fill.setColorAt(1.0, QColor(0x2C, 0x5E, 0x6C));
    p.setPen(Qt::NoPen);
    p.setBrush(fill);
    const qreal radius = size * 0.22;
    p.drawRoundedRect(tile, radius, radius);

    // Three waves, the lower ones quieter, as sounds fading into the background.
    const qreal left = size * 0.18;
    const qreal right = size * 0.82;
    for (int w = 0; w < 3; ++w) {
        const qreal centre = size * (0.34 + 0.17 * w);
        const qreal amplitude = size * (0.07 - 0.015 * w);
        QPainterPath wave;
        const int steps = 48;
        for (int i = 0; i <= steps; ++i) {
            const qreal t = static_cast<qreal>(i) / steps;
            const qreal x = left + t * (right - left);
            const qreal y = centre + amplitude * std::sin(t * 2.0 * std::numbers::pi + w * 0.9);
            if (i == 0) {
                wave.moveTo(x, y);
            } else {
                wave.lineTo(x, y);
            }
        }
        QColor ink(0xF4, 0xFA, 0xFB);
        ink.setAlphaF(1.0 - 0.28 * w);
        p.setPen(QPen(ink, std::max(1.2, size * 0.055), Qt::SolidLine, Qt::RoundCap));
        p.setBrush(Qt::NoBrush);
        p.drawPath(wave);
    }
}

namespace {

QPixmap drawIcon(int size) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    paintProgramIcon(p, size);
    return pixmap;
}

}  // namespace

QIcon programIcon() {
    QIcon icon;
    for (int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
        icon.addPixmap(drawIcon(size));
    }
    return icon;
}

}  // namespace brevane
