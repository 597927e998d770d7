// picturegen <tree>            paints the stock slideshows into <tree>/visual/slideshow and
//                              the panoramics into <tree>/visual/panoramics, as JPEG
// picturegen --sheet <file>    draws the contact sheet of all of them into a PNG
//
// Only the stock files are written: pictures a user put beside them stay.

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImageWriter>
#include <QPainter>

#include <cstdio>

#include "landscape.h"

namespace {

using brevane::pictures::Picture;

constexpr int kQuality = 90;

// Written under a temporary name and renamed, so that a build stopped half-way never
// leaves half a picture in the tree.
bool save(const QImage& image, const QString& file) {
    const QString part = file + QStringLiteral(".part");
    QImageWriter writer(part, "jpg");
    writer.setQuality(kQuality);
    writer.setOptimizedWrite(true);
    if (!writer.write(image)) {
        std::fprintf(stderr, "picturegen: %s: %s\n", qPrintable(file),
                     qPrintable(writer.errorString()));
        return false;
    }
    QFile::remove(file);
    return QFile::rename(part, file);
}

bool writeTree(const QString& tree) {
    bool ok = true;
    for (const auto& set : brevane::pictures::stockSlideshows()) {
        const QString folder = tree + QStringLiteral("/visual/slideshow/") + set.folder;
        QDir().mkpath(folder);
        for (const Picture& p : set.pictures) {
            ok = save(brevane::pictures::paint(p.landscape),
                      folder + QLatin1Char('/') + p.title + QStringLiteral(".jpg")) &&
                 ok;
        }
    }
    const QString panoramics = tree + QStringLiteral("/visual/panoramics");
    QDir().mkpath(panoramics);
    for (const Picture& p : brevane::pictures::stockPanoramics()) {
        ok = save(brevane::pictures::paint(p.landscape),
                  panoramics + QLatin1Char('/') + p.title + QStringLiteral(".jpg")) &&
             ok;
    }
    return ok;
}

// Every slideshow a row of thumbnails under its name, then the panoramics one a row.
bool writeSheet(const QString& file) {
    constexpr int kThumbW = 240, kThumbH = 135, kGap = 12, kCaption = 22, kHeading = 30;
    const auto sets = brevane::pictures::stockSlideshows();
    const auto panoramics = brevane::pictures::stockPanoramics();
    const int width = kGap + 8 * (kThumbW + kGap);
    const int height = kGap + static_cast<int>(sets.size()) * (kHeading + kThumbH + kCaption) +
                       kHeading + static_cast<int>(panoramics.size()) * (kThumbH + kCaption) + kGap;
    QImage sheet(width, height, QImage::Format_RGB32);
    sheet.fill(QColor(0x20, 0x22, 0x28));
    QPainter p(&sheet);
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    QFont heading = p.font();
    heading.setPixelSize(17);
    heading.setBold(true);
    QFont caption = p.font();
    caption.setPixelSize(12);
    int y = kGap;
    const auto thumb = [&p](const Picture& picture, int x, int top, int w) {
        p.drawImage(QRect(x, top, w, kThumbH),
                    brevane::pictures::paint(picture.landscape)
                        .scaled(w, kThumbH, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    };
    for (const auto& set : sets) {
        p.setPen(QColor(0xe8, 0xe8, 0xec));
        p.setFont(heading);
        p.drawText(kGap, y + 20, QStringLiteral("Slideshow \"%1\"").arg(set.folder));
        y += kHeading;
        int x = kGap;
        p.setFont(caption);
        for (const Picture& picture : set.pictures) {
            thumb(picture, x, y, kThumbW);
            p.setPen(QColor(0xc0, 0xc4, 0xcc));
            p.drawText(x, y + kThumbH + 15, picture.title);
            x += kThumbW + kGap;
        }
        y += kThumbH + kCaption;
    }
    p.setPen(QColor(0xe8, 0xe8, 0xec));
    p.setFont(heading);
    p.drawText(kGap, y + 20, QStringLiteral("Panoramics (three screens wide)"));
    y += kHeading;
    p.setFont(caption);
    for (const Picture& picture : panoramics) {
        thumb(picture, kGap, y, 3 * kThumbW);
        p.setPen(QColor(0xc0, 0xc4, 0xcc));
        p.drawText(kGap, y + kThumbH + 15, picture.title + QStringLiteral(".jpg"));
        y += kThumbH + kCaption;
    }
    p.end();
    return sheet.save(file, "png");
}

}  // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    const QStringList args = QCoreApplication::arguments();
    if (args.size() == 3 && args[1] == QStringLiteral("--sheet")) {
        return writeSheet(args[2]) ? 0 : 1;
    }
    if (args.size() != 2) {
        std::fprintf(stderr, "usage: picturegen <tree> | picturegen --sheet <file.png>\n");
        return 2;
    }
    return writeTree(args[1]) ? 0 : 1;
}
