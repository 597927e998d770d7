// The stock pictures as the build painted them into the install tree: every slideshow and
// panoramic the painter lists is there at its size, no two alike, and each file is what
// the painter makes from its numbers.

#include <gtest/gtest.h>

#include <QDir>
#include <QImage>

#include <cmath>
#include <cstdlib>
#include <vector>

#include "landscape.h"

namespace brevane::pictures {
namespace {

const QString kTree = QString::fromUtf8(BREVANE_TREE_DIR);

// Mean difference per channel, 0..255, of two pictures brought to one small size.
double difference(const QImage& a, const QImage& b) {
    const QSize size(96, 54);
    const QImage x = a.scaled(size).convertToFormat(QImage::Format_RGB32);
    const QImage y = b.scaled(size).convertToFormat(QImage::Format_RGB32);
    double sum = 0;
    for (int r = 0; r < size.height(); ++r) {
        for (int c = 0; c < size.width(); ++c) {
            const QRgb p = x.pixel(c, r);
            const QRgb q = y.pixel(c, r);
            sum += std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q)) +
                   std::abs(qBlue(p) - qBlue(q));
        }
    }
    return sum / (3.0 * size.width() * size.height());
}

TEST(StockPictures, EverySlideshowAndPanoramicIsThereAtItsSizeAndNoTwoAlike) {
    std::vector<QImage> all;
    const auto slideshows = stockSlideshows();
    ASSERT_GE(slideshows.size(), 4u);
    for (const Slideshow& set : slideshows) {
        const QDir folder(kTree + QStringLiteral("/visual/slideshow/") + set.folder);
        EXPECT_GE(folder.entryList({QStringLiteral("*.jpg")}, QDir::Files).size(), 8)
            << set.folder.toStdString();
        for (const Picture& p : set.pictures) {
            const QImage image(folder.filePath(p.title + QStringLiteral(".jpg")));
            ASSERT_FALSE(image.isNull()) << p.title.toStdString();
            EXPECT_GE(image.width(), 1920);
            EXPECT_GE(image.height(), 1080);
            all.push_back(image);
        }
    }
    const QDir panoramics(kTree + QStringLiteral("/visual/panoramics"));
    EXPECT_TRUE(panoramics.exists(QStringLiteral("default.jpg")));
    const auto wide = stockPanoramics();
    EXPECT_GE(wide.size(), 4u);
    for (const Picture& p : wide) {
        const QImage image(panoramics.filePath(p.title + QStringLiteral(".jpg")));
        ASSERT_FALSE(image.isNull()) << p.title.toStdString();
        EXPECT_GE(image.width(), 3 * image.height() * 16 / 9);
        all.push_back(image);
    }
    for (std::size_t i = 0; i < all.size(); ++i) {
        for (std::size_t j = i + 1; j < all.size(); ++j) {
            EXPECT_GT(difference(all[i], all[j]), 2.0) << "pictures " << i << " and " << j;
        }
    }
}

// The files hold the painter's pixels, JPEG aside: the same numbers paint the same
// picture, so the build's pictures never change unless the painter does.
TEST(StockPictures, EachFileIsWhatThePainterMakesOfItsNumbers) {
    const Slideshow set = stockSlideshows().front();
    for (const Picture& p : {set.pictures.front(), set.pictures.back()}) {
        const QImage file(kTree + QStringLiteral("/visual/slideshow/") + set.folder +
                          QLatin1Char('/') + p.title + QStringLiteral(".jpg"));
        EXPECT_LT(difference(file, paint(p.landscape)), 1.5) << p.title.toStdString();
    }
    // Another seed paints another land.
    Landscape other = set.pictures.front().landscape;
    other.seed += 1;
    EXPECT_GT(difference(paint(other), paint(set.pictures.front().landscape)), 1.0);
}

}  // namespace
}  // namespace brevane::pictures
