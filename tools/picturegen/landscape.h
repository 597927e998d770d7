// Calm landscapes painted from a handful of numbers: a sky, a sun or a moon, stars,
// clouds, layered ridges fading into mist, water that mirrors them, rain. The stock
// slideshows and panoramics are made of these at build time, the same pixels every time
// (the randomness is a seeded generator whose output the standard fixes).
#pragma once

#include <QColor>
#include <QImage>
#include <QString>

#include <cstdint>
#include <vector>

namespace brevane::pictures {

struct Landscape {
    int width = 1920;
    int height = 1080;
    std::uint64_t seed = 1;

    // The sky from the top down to the horizon.
    QColor zenith, midSky, horizon;
    // A sun or a moon: its place as fractions of the picture, its radius in pixels
    // (0: none) and the colour of its disc and of its glow.
    double lightX = 0.7, lightY = 0.3;
    double lightRadius = 0;
    QColor lightColour, glowColour;
    int stars = 0;   // how many
    int clouds = 0;  // how many banks of cloud
    QColor cloudLit, cloudShade;
    double cloudiness = 0.5;  // 0 wisps .. 1 an overcast sky

    // Ridges from the farthest to the nearest: how many, where the farthest stands and
    // where the nearest does (fractions of the height), how rough they are, and the colour
    // of the nearest; the farther ones fade towards `haze`.
    int ridges = 4;
    double farRidge = 0.52, nearRidge = 0.78;
    double roughness = 0.5;
    QColor nearColour, haze;
    double mist = 0.4;   // 0 clear .. 1 thick mist at each ridge's foot
    bool trees = false;  // pines along the nearest ridge

    // Water from this fraction of the height down, mirroring what is above (0: none).
    double waterLine = 0;
    QColor water;

    double rain = 0;         // 0 none .. 1 a downpour of streaks
    bool lightning = false;  // one bolt far off
};

QImage paint(const Landscape& l);

// A named picture of a set.
struct Picture {
    QString title;
    Landscape landscape;
};

// The stock slideshows: each a folder name and its pictures.
struct Slideshow {
    QString folder;
    std::vector<Picture> pictures;
};
std::vector<Slideshow> stockSlideshows();
// The stock panoramics, "default" among them: three screens wide or more.
std::vector<Picture> stockPanoramics();

}  // namespace brevane::pictures
