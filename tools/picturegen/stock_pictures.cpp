// The stock pictures: five slideshows of eight and four panoramics, each a landscape of
// its own kind (dawn, storm, night, the sea, and a calm mixture for "Default").

#include <cstdint>

#include "landscape.h"

namespace brevane::pictures {

namespace {

QColor rgb(unsigned hex) {
    return QColor((hex >> 16) & 0xFF, (hex >> 8) & 0xFF, hex & 0xFF);
}

Landscape dawn(std::uint64_t seed, double sunX, double sunY) {
    Landscape l;
    l.seed = seed;
    l.zenith = rgb(0x2b3a67);
    l.midSky = rgb(0xb56576);
    l.horizon = rgb(0xf6bd8a);
    l.lightX = sunX;
    l.lightY = sunY;
    l.lightRadius = 34;
    l.lightColour = rgb(0xfff1d0);
    l.glowColour = rgb(0xffc08a);
    l.clouds = 3;
    l.cloudLit = rgb(0xffd3b0);
    l.cloudShade = rgb(0x8e5f7a);
    l.cloudiness = 0.35;
    l.ridges = 5;
    l.nearColour = rgb(0x2d2238);
    l.haze = rgb(0xd9a0a0);
    l.mist = 0.55;
    return l;
}

Landscape storm(std::uint64_t seed, double rain, bool lightning) {
    Landscape l;
    l.seed = seed;
    l.zenith = rgb(0x1c2230);
    l.midSky = rgb(0x3d4a5c);
    l.horizon = rgb(0x7d8a96);
    l.clouds = 7;
    l.cloudLit = rgb(0x8a96a6);
    l.cloudShade = rgb(0x1a1f29);
    l.cloudiness = 0.95;
    l.ridges = 4;
    l.roughness = 0.6;
    l.nearColour = rgb(0x141a20);
    l.haze = rgb(0x66727e);
    l.mist = 0.5;
    l.rain = rain;
    l.lightning = lightning;
    return l;
}

Landscape night(std::uint64_t seed, double moonX, double moonY) {
    Landscape l;
    l.seed = seed;
    l.zenith = rgb(0x05070f);
    l.midSky = rgb(0x0f1b3a);
    l.horizon = rgb(0x2a3f6b);
    l.lightX = moonX;
    l.lightY = moonY;
    l.lightRadius = 22;
    l.lightColour = rgb(0xf2f0e6);
    l.glowColour = rgb(0x7f9ccf);
    l.stars = 1400;
    l.clouds = 1;
    l.cloudLit = rgb(0x51648e);
    l.cloudShade = rgb(0x0b1020);
    l.cloudiness = 0.15;
    l.ridges = 4;
    l.nearColour = rgb(0x05070c);
    l.haze = rgb(0x25355a);
    l.mist = 0.3;
    return l;
}

Landscape seaside(std::uint64_t seed, double sunX, double sunY) {
    Landscape l;
    l.seed = seed;
    l.zenith = rgb(0x3f7cc4);
    l.midSky = rgb(0x8fc1e3);
    l.horizon = rgb(0xe8eef0);
    l.lightX = sunX;
    l.lightY = sunY;
    l.lightRadius = 30;
    l.lightColour = rgb(0xfffbe8);
    l.glowColour = rgb(0xfff2c4);
    l.clouds = 4;
    l.cloudLit = rgb(0xffffff);
    l.cloudShade = rgb(0xa9bccb);
    l.cloudiness = 0.4;
    l.ridges = 2;
    l.farRidge = 0.5;
    l.nearRidge = 0.56;
    l.roughness = 0.3;
    l.nearColour = rgb(0x3e5a58);
    l.haze = rgb(0xaac4cf);
    l.mist = 0.2;
    l.waterLine = 0.6;
    l.water = rgb(0x2f6f94);
    return l;
}

Landscape valley(std::uint64_t seed) {
    Landscape l;
    l.seed = seed;
    l.zenith = rgb(0x4a86c5);
    l.midSky = rgb(0x9cc7e4);
    l.horizon = rgb(0xdfe9dc);
    l.lightX = 0.25;
    l.lightY = 0.18;
    l.lightRadius = 28;
    l.lightColour = rgb(0xfffdf0);
    l.glowColour = rgb(0xfff4cc);
    l.clouds = 4;
    l.cloudLit = rgb(0xffffff);
    l.cloudShade = rgb(0xb4c3cf);
    l.cloudiness = 0.45;
    l.ridges = 5;
    l.nearColour = rgb(0x1f3b2a);
    l.haze = rgb(0xa9c2c0);
    l.mist = 0.45;
    l.trees = true;
    return l;
}

Landscape dusk(std::uint64_t seed) {
    Landscape l = dawn(seed, 0.5, 0.5);
    l.zenith = rgb(0x1d1e3c);
    l.midSky = rgb(0x5b3d6b);
    l.horizon = rgb(0xe58a5a);
    l.glowColour = rgb(0xff9a5a);
    l.lightColour = rgb(0xffd9a0);
    l.nearColour = rgb(0x141326);
    l.haze = rgb(0x8a5d7a);
    l.stars = 120;
    return l;
}

// Each picture of a set from a base and its number: the seed and a little of the light
// and the land change, so no two of a set look alike.
template <typename Make>
Slideshow series(const QString& folder, const QStringList& titles, Make make) {
    Slideshow s{folder, {}};
    for (int i = 0; i < titles.size(); ++i) {
        s.pictures.push_back(Picture{titles[i], make(i)});
    }
    return s;
}

}  // namespace

std::vector<Slideshow> stockSlideshows() {
    std::vector<Slideshow> sets;
    sets.push_back(series(QStringLiteral("Default"),
                          {QStringLiteral("Morning valley"), QStringLiteral("First light"),
                           QStringLiteral("Still bay"), QStringLiteral("Evening hills"),
                           QStringLiteral("Starry ridge"), QStringLiteral("After the rain"),
                           QStringLiteral("Pine slopes"), QStringLiteral("Moonrise")},
                          [](int i) {
                              switch (i) {
                                  case 0:
                                      return valley(101);
                                  case 1:
                                      return dawn(102, 0.3, 0.42);
                                  case 2:
                                      return seaside(103, 0.7, 0.25);
                                  case 3:
                                      return dusk(104);
                                  case 4:
                                      return night(105, 0.8, 0.2);
                                  case 5:
                                      return storm(106, 0.0, false);
                                  case 6: {
                                      Landscape l = valley(107);
                                      l.ridges = 6;
                                      l.roughness = 0.65;
                                      return l;
                                  }
                                  default:
                                      return night(108, 0.25, 0.42);
                              }
                          }));
    sets.push_back(series(QStringLiteral("Dawn"),
                          {QStringLiteral("Daybreak"), QStringLiteral("Rose mist"),
                           QStringLiteral("Warm haze"), QStringLiteral("Lifting fog"),
                           QStringLiteral("Golden ridge"), QStringLiteral("Quiet hour"),
                           QStringLiteral("Morning lake"), QStringLiteral("Sunrise pines")},
                          [](int i) {
                              Landscape l = dawn(200 + static_cast<std::uint64_t>(i),
                                                 0.15 + 0.1 * i, 0.5 - 0.03 * i);
                              l.mist = 0.4 + 0.07 * (i % 4);
                              l.ridges = 4 + i % 3;
                              l.waterLine = i == 6 ? 0.64 : 0;
                              l.water = QColor(0x6b, 0x4f, 0x6e);
                              l.trees = i == 7;
                              return l;
                          }));
    sets.push_back(series(QStringLiteral("Storm"),
                          {QStringLiteral("Gathering clouds"), QStringLiteral("First drops"),
                           QStringLiteral("Downpour"), QStringLiteral("Far thunder"),
                           QStringLiteral("Grey curtain"), QStringLiteral("Flash over the hills"),
                           QStringLiteral("Steady rain"), QStringLiteral("Clearing")},
                          [](int i) {
                              const double rain[] = {0.0, 0.25, 0.9, 0.5, 0.7, 0.6, 0.45, 0.1};
                              Landscape l = storm(300 + static_cast<std::uint64_t>(i), rain[i],
                                                  i == 3 || i == 5);
                              if (i == 7) {
                                  l.horizon = QColor(0xc9, 0xc2, 0xa8);
                                  l.cloudiness = 0.7;
                              }
                              return l;
                          }));
    sets.push_back(series(QStringLiteral("Night sky"),
                          {QStringLiteral("Milky dark"), QStringLiteral("Half moon"),
                           QStringLiteral("Starfield"), QStringLiteral("Moon over water"),
                           QStringLiteral("Blue hour"), QStringLiteral("Silent peaks"),
                           QStringLiteral("Night pines"), QStringLiteral("Late moon")},
                          [](int i) {
                              Landscape l = night(400 + static_cast<std::uint64_t>(i),
                                                  0.15 + 0.1 * i, 0.15 + 0.03 * i);
                              l.lightRadius = i == 0 || i == 2 ? 0 : 22;
                              l.stars = i == 2 ? 2600 : 1200 + 100 * i;
                              l.waterLine = i == 3 ? 0.62 : 0;
                              l.water = QColor(0x0b, 0x14, 0x2a);
                              l.trees = i == 6;
                              if (i == 4) {
                                  l.horizon = QColor(0x4a, 0x5f, 0x9a);
                                  l.stars = 300;
                              }
                              return l;
                          }));
    sets.push_back(series(
        QStringLiteral("Seaside"),
        {QStringLiteral("Open sea"), QStringLiteral("Noon swell"), QStringLiteral("Bright cove"),
         QStringLiteral("Sea haze"), QStringLiteral("Evening tide"), QStringLiteral("Calm water"),
         QStringLiteral("Cloud bank"), QStringLiteral("Night shore")},
        [](int i) {
            if (i == 4) {
                Landscape l = dusk(504);
                l.waterLine = 0.62;
                l.water = QColor(0x3a, 0x2c, 0x4a);
                l.ridges = 2;
                return l;
            }
            if (i == 7) {
                Landscape l = night(507, 0.6, 0.3);
                l.waterLine = 0.6;
                l.water = QColor(0x0a, 0x12, 0x26);
                l.ridges = 2;
                return l;
            }
            Landscape l =
                seaside(500 + static_cast<std::uint64_t>(i), 0.2 + 0.12 * i, 0.15 + 0.02 * i);
            l.cloudiness = i == 6 ? 0.85 : 0.3 + 0.05 * i;
            l.clouds = i == 6 ? 6 : 3 + i % 3;
            l.mist = i == 3 ? 0.7 : 0.2;
            return l;
        }));
    return sets;
}

std::vector<Picture> stockPanoramics() {
    const auto wide = [](Landscape l) {
        l.width = 3 * 1920;
        l.clouds *= 3;
        l.stars *= 3;
        return l;
    };
    Landscape evening = dusk(601);
    evening.lightX = 0.42;
    Landscape alps = valley(602);
    alps.ridges = 6;
    alps.roughness = 0.7;
    Landscape stars = night(603, 0.7, 0.2);
    Landscape coast = seaside(604, 0.3, 0.2);
    return {Picture{QStringLiteral("default"), wide(evening)},
            Picture{QStringLiteral("Alpine valley"), wide(alps)},
            Picture{QStringLiteral("Night ridge"), wide(stars)},
            Picture{QStringLiteral("Long coast"), wide(coast)}};
}

}  // namespace brevane::pictures
