#include "landscape.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

namespace brevane::pictures {

namespace {

// Uniform in [0, 1) from the 64-bit Mersenne twister, whose output the standard fixes:
// the same seed paints the same picture on every machine.
class Draw {
  public:
    explicit Draw(std::uint64_t seed) : engine_(seed) {}
    double next() { return static_cast<double>(engine_() >> 11) * 0x1.0p-53; }
    double between(double low, double high) { return low + (high - low) * next(); }

  private:
    std::mt19937_64 engine_;
};

QColor mix(const QColor& a, const QColor& b, double t) {
    const auto lerp = [t](int x, int y) {
        return static_cast<int>(std::lround(x + (y - x) * std::clamp(t, 0.0, 1.0)));
    };
    return QColor(lerp(a.red(), b.red()), lerp(a.green(), b.green()), lerp(a.blue(), b.blue()),
                  lerp(a.alpha(), b.alpha()));
}

QColor withAlpha(QColor c, double alpha) {
    c.setAlphaF(static_cast<float>(std::clamp(alpha, 0.0, 1.0)));
    return c;
}

// A ridge's skyline: smooth value noise summed over octaves, each finer one weaker by
// `roughness`; heights in pixels around `base`, one per `step` pixels.
std::vector<double> skyline(Draw& draw, int width, double base, double amplitude, double roughness,
                            int step) {
    const int points = width / step + 2;
    std::vector<double> y(static_cast<std::size_t>(points), base);
    double amp = amplitude;
    double spacing = width / 2.5;
    for (int octave = 0; octave < 6; ++octave) {
        const int knots = static_cast<int>(width / spacing) + 3;
        std::vector<double> k(static_cast<std::size_t>(knots));
        for (double& v : k) {
            v = draw.between(-1.0, 1.0);
        }
        for (int i = 0; i < points; ++i) {
            const double at = i * step / spacing;
            const auto j = static_cast<std::size_t>(at);
            const double f = at - std::floor(at);
            const double s = (1 - std::cos(f * std::numbers::pi)) / 2;
            y[static_cast<std::size_t>(i)] -= amp * (k[j] * (1 - s) + k[j + 1] * s);
        }
        amp *= roughness;
        spacing /= 2.2;
    }
    return y;
}

void paintSky(QPainter& p, const Landscape& l) {
    QLinearGradient sky(0, 0, 0, l.height * 0.75);
    sky.setColorAt(0, l.zenith);
    sky.setColorAt(0.55, l.midSky);
    sky.setColorAt(1, l.horizon);
    p.fillRect(0, 0, l.width, l.height, sky);
}

void paintStars(QPainter& p, const Landscape& l, Draw& draw) {
    p.setPen(Qt::NoPen);
    for (int i = 0; i < l.stars; ++i) {
        // Denser towards the top, where the sky is darkest.
        const double x = draw.next() * l.width;
        const double y = std::pow(draw.next(), 1.6) * l.height * l.farRidge;
        const double size = 0.5 + 1.3 * std::pow(draw.next(), 3);
        const double bright = 0.35 + 0.65 * draw.next() * (1 - y / (l.height * l.farRidge) * 0.7);
        if (size > 1.4) {
            QRadialGradient glow(x, y, size * 4);
            glow.setColorAt(0, withAlpha(QColor(220, 230, 255), 0.35 * bright));
            glow.setColorAt(1, withAlpha(QColor(220, 230, 255), 0));
            p.setBrush(glow);
            p.drawEllipse(QPointF(x, y), size * 4, size * 4);
        }
        p.setBrush(withAlpha(QColor(235, 240, 255), bright));
        p.drawEllipse(QPointF(x, y), size, size);
    }
}

void paintLight(QPainter& p, const Landscape& l) {
    if (l.lightRadius <= 0) {
        return;
    }
    const QPointF at(l.lightX * l.width, l.lightY * l.height);
    p.setPen(Qt::NoPen);
    QRadialGradient glow(at, l.lightRadius * 9);
    glow.setColorAt(0, withAlpha(l.glowColour, 0.6));
    glow.setColorAt(0.25, withAlpha(l.glowColour, 0.22));
    glow.setColorAt(1, withAlpha(l.glowColour, 0));
    p.setBrush(glow);
    p.drawEllipse(at, l.lightRadius * 9, l.lightRadius * 9);
    QRadialGradient disc(at, l.lightRadius);
    disc.setColorAt(0, l.lightColour);
    disc.setColorAt(0.85, l.lightColour);
    disc.setColorAt(1, withAlpha(l.lightColour, 0));
    p.setBrush(disc);
    p.drawEllipse(at, l.lightRadius, l.lightRadius);
}

void paintClouds(QPainter& p, const Landscape& l, Draw& draw) {
    const double scale = l.height / 1080.0;
    p.setPen(Qt::NoPen);
    for (int c = 0; c < l.clouds; ++c) {
        const double cx = draw.next() * l.width;
        const double cy = draw.between(0.08, 0.42) * l.height;
        const double spread = draw.between(0.12, 0.3) * l.width * (0.6 + l.cloudiness);
        const int puffs = 14 + static_cast<int>(40 * l.cloudiness);
        for (int i = 0; i < puffs; ++i) {
            const double u = draw.between(-1, 1);
            const double x = cx + u * spread;
            const double y = cy + draw.between(-1, 1) * 30 * scale * (1 - std::abs(u) * 0.5);
            const double rx = draw.between(60, 170) * scale * (1 - std::abs(u) * 0.5);
            const double ry = rx * draw.between(0.3, 0.5);
            const double alpha = draw.between(0.18, 0.42) * (0.5 + l.cloudiness * 0.6);
            // The underside in shade, the top in the light.
            QRadialGradient shade(QPointF(x, y + ry * 0.35), rx);
            shade.setColorAt(0, withAlpha(l.cloudShade, alpha));
            shade.setColorAt(1, withAlpha(l.cloudShade, 0));
            p.setBrush(shade);
            p.drawEllipse(QPointF(x, y + ry * 0.35), rx, ry);
            QRadialGradient lit(QPointF(x, y - ry * 0.25), rx * 0.8);
            lit.setColorAt(0, withAlpha(l.cloudLit, alpha * 0.9));
            lit.setColorAt(1, withAlpha(l.cloudLit, 0));
            p.setBrush(lit);
            p.drawEllipse(QPointF(x, y - ry * 0.25), rx * 0.8, ry * 0.75);
        }
    }
}

void paintTrees(QPainter& p, const Landscape& l, const std::vector<double>& line, int step,
                const QColor& colour, Draw& draw) {
    const double scale = l.height / 1080.0;
    p.setPen(Qt::NoPen);
    p.setBrush(colour);
    for (double x = draw.between(0, 20); x < l.width; x += draw.between(7, 26) * scale) {
        const auto i = static_cast<std::size_t>(x / step);
        const double foot = line[i] + 6 * scale;
        const double h = draw.between(18, 64) * scale;
        const double w = h * draw.between(0.28, 0.38);
        QPainterPath pine;
        pine.setFillRule(Qt::WindingFill);  // the tiers overlap: fill the overlaps too
        // Three tiers, each narrower above the last.
        for (int tier = 0; tier < 3; ++tier) {
            const double bottom = foot - h * tier * 0.28;
            const double top = bottom - h * 0.5;
            const double half = w * (1 - tier * 0.25) / 2;
            pine.moveTo(x - half, bottom);
            pine.lineTo(x, top);
            pine.lineTo(x + half, bottom);
            pine.closeSubpath();
        }
        pine.addRect(QRectF(x - w * 0.06, foot - h * 0.1, w * 0.12, h * 0.12));
        p.drawPath(pine);
    }
}

void paintRidges(QPainter& p, const Landscape& l, Draw& draw) {
    constexpr int kStep = 4;
    for (int r = 0; r < l.ridges; ++r) {
        const double depth = l.ridges == 1 ? 1.0 : static_cast<double>(r) / (l.ridges - 1);
        const double base = (l.farRidge + (l.nearRidge - l.farRidge) * depth) * l.height;
        const double amplitude = l.height * (0.05 + 0.09 * l.roughness) * (0.7 + 0.5 * depth);
        const std::vector<double> line =
            skyline(draw, l.width, base, amplitude, 0.35 + 0.25 * l.roughness, kStep);
        const QColor colour = mix(l.haze, l.nearColour, 0.2 + 0.8 * std::pow(depth, 1.3));
        QPainterPath ridge;
        ridge.moveTo(0, l.height);
        for (std::size_t i = 0; i < line.size(); ++i) {
            ridge.lineTo(static_cast<double>(i) * kStep, line[i]);
        }
        ridge.lineTo(l.width, l.height);
        ridge.closeSubpath();
        p.setPen(Qt::NoPen);
        p.setBrush(colour);
        p.drawPath(ridge);
        if (l.trees && r == l.ridges - 1) {
            paintTrees(p, l, line, kStep, colour.darker(118), draw);
        }
        // Mist gathers at the foot of each ridge, in the valley before the next.
        if (l.mist > 0 && r < l.ridges - 1) {
            QLinearGradient fog(0, base - amplitude * 0.3, 0, base + l.height * 0.1);
            fog.setColorAt(0, withAlpha(l.haze, 0));
            fog.setColorAt(1, withAlpha(l.haze, 0.75 * l.mist));
            p.fillRect(QRectF(0, base - amplitude * 0.3, l.width, l.height), fog);
        }
    }
}

void paintWater(QImage& image, const Landscape& l, Draw& draw) {
    const int top = static_cast<int>(l.waterLine * l.height);
    const int depth = l.height - top;
    if (l.waterLine <= 0 || depth <= 0 || top < depth) {
        return;
    }
    const QImage mirrored = image.copy(0, top - depth, l.width, depth).mirrored(false, true);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.fillRect(0, top, l.width, depth, l.water);
    p.setOpacity(0.55);
    p.drawImage(0, top, mirrored);
    p.setOpacity(1);
    const double scale = l.height / 1080.0;
    // Ripples: short bright and dark strokes, longer and further apart nearer the eye.
    for (int i = 0; i < 900; ++i) {
        const double t = std::pow(draw.next(), 1.4);
        const double y = top + 2 + t * (depth - 2);
        const double x = draw.next() * l.width;
        const double length = (12 + 160 * t) * scale * draw.between(0.4, 1.2);
        const bool bright = draw.next() < 0.5;
        p.setPen(QPen(withAlpha(bright ? l.horizon.lighter(130) : l.water.darker(140),
                                draw.between(0.05, 0.18)),
                      (0.6 + 1.6 * t) * scale));
        p.drawLine(QPointF(x, y), QPointF(x + length, y));
    }
    QLinearGradient deep(0, top, 0, l.height);
    deep.setColorAt(0, withAlpha(l.horizon, 0.25));
    deep.setColorAt(0.08, withAlpha(l.water, 0));
    deep.setColorAt(1, withAlpha(l.water.darker(160), 0.55));
    p.fillRect(0, top, l.width, depth, deep);
}

void paintRain(QPainter& p, const Landscape& l, Draw& draw) {
    const double scale = l.height / 1080.0;
    const int streaks = static_cast<int>(l.rain * 5000 * l.width / 1920.0);
    for (int i = 0; i < streaks; ++i) {
        const double x = draw.next() * (l.width + 200) - 100;
        const double y = draw.next() * l.height;
        const double length = draw.between(18, 60) * scale;
        p.setPen(QPen(withAlpha(QColor(200, 210, 225), draw.between(0.05, 0.16)), scale));
        p.drawLine(QPointF(x, y), QPointF(x - length * 0.18, y + length));
    }
}

void paintLightning(QPainter& p, const Landscape& l, Draw& draw) {
    QPainterPath bolt;
    double x = draw.between(0.2, 0.8) * l.width;
    double y = l.height * 0.18;
    bolt.moveTo(x, y);
    while (y < l.farRidge * l.height) {
        x += draw.between(-22, 22) * l.height / 1080.0;
        y += draw.between(10, 34) * l.height / 1080.0;
        bolt.lineTo(x, y);
    }
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(withAlpha(QColor(170, 180, 255), 0.18), 16 * l.height / 1080.0));
    p.drawPath(bolt);
    p.setPen(QPen(withAlpha(QColor(240, 240, 255), 0.95), 2.2 * l.height / 1080.0));
    p.drawPath(bolt);
}

// A touch of noise, a quarter of a step either way on average, so that the long soft
// gradients do not fall into bands when the picture is kept as JPEG.
void dither(QImage& image, Draw& draw) {
    for (int y = 0; y < image.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int n = static_cast<int>(draw.next() * 3) - 1;
            const auto add = [n](int c) { return std::clamp(c + n, 0, 255); };
            row[x] = qRgb(add(qRed(row[x])), add(qGreen(row[x])), add(qBlue(row[x])));
        }
    }
}

}  // namespace

QImage paint(const Landscape& l) {
    QImage image(l.width, l.height, QImage::Format_RGB32);
    Draw draw(l.seed);
    {
        QPainter p(&image);
        p.setRenderHint(QPainter::Antialiasing);
        paintSky(p, l);
        paintStars(p, l, draw);
        paintLight(p, l);
        paintClouds(p, l, draw);
        if (l.lightning) {
            paintLightning(p, l, draw);
        }
        paintRidges(p, l, draw);
    }
    paintWater(image, l, draw);
    if (l.rain > 0) {
        QPainter p(&image);
        p.setRenderHint(QPainter::Antialiasing);
        paintRain(p, l, draw);
    }
    dither(image, draw);
    return image;
}

}  // namespace brevane::pictures
