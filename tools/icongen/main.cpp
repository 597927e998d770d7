// icongen: the program's icon for the desktop's icon theme, drawn by the same code as the
// windows' icon: hicolor/scalable/apps/<name>.svg and hicolor/<n>x<n>/apps/<name>.png.
//
//   icongen <icons folder> <name>

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgGenerator>
#include <cstdio>

#include "ui/widgets/program_icon.h"

namespace {

constexpr int kScalableSize = 256;
constexpr int kPixelSizes[] = {16, 24, 32, 48, 64, 128, 256};

bool writeSvg(const QString& file) {
    QSvgGenerator svg;
    svg.setFileName(file);
    svg.setSize(QSize(kScalableSize, kScalableSize));
    svg.setViewBox(QRect(0, 0, kScalableSize, kScalableSize));
    svg.setTitle(QStringLiteral("Brevane"));
    svg.setDescription(QStringLiteral("Three drifting waves on a teal tile"));
    QPainter p;
    if (!p.begin(&svg)) {
        return false;
    }
    brevane::paintProgramIcon(p, kScalableSize);
    return p.end();
}

bool writePng(const QString& file, int size) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter p(&image);
        brevane::paintProgramIcon(p, size);
    }
    return image.save(file, "PNG");
}

}  // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "usage: icongen <icons folder> <name>\n");
        return 2;
    }
    const QString root = QString::fromLocal8Bit(argv[1]);
    const QString name = QString::fromLocal8Bit(argv[2]);
    const QString scalable = root + QStringLiteral("/hicolor/scalable/apps");
    bool ok = QDir().mkpath(scalable) &&
              writeSvg(scalable + QLatin1Char('/') + name + QStringLiteral(".svg"));
    for (int size : kPixelSizes) {
        const QString folder = root + QStringLiteral("/hicolor/%1x%1/apps").arg(size);
        ok = ok && QDir().mkpath(folder) &&
             writePng(folder + QLatin1Char('/') + name + QStringLiteral(".png"), size);
    }
    if (!ok) {
        std::fprintf(stderr, "icongen: cannot write the icons into %s\n", argv[1]);
        return 1;
    }
    return 0;
}
