// soundsheet: draws one spectrogram sheet per bank of stock sounds, so anyone can see
// what each file holds.
//
//   soundsheet <tree> <out-folder>             one sheet per bank
//   soundsheet <tree> <out-folder> <file>...   one sheet, selection.png, of those files
//   soundsheet <tree> <out-folder> --window <from> <seconds> <file>...
//                                              the same, showing only that stretch
//
// Each sound gets a panel: its file, name and length; a spectrogram on a log frequency
// scale (30 Hz to 20 kHz, 80 dB of range under the sound's loudest point, tilted by
// +3 dB an octave so that pink noise reads level, the way the ear weighs bands); and its
// level over time beneath, from -60 to 0 dBFS.
#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QList>
#include <QPainter>
#include <QString>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>

#include "analysis.h"
#include "registry.h"
#include "sound_file.h"

using namespace brevane::soundgen;

namespace {

constexpr int kPanelW = 560, kSpecH = 120, kEnvH = 28, kLabelH = 22, kGap = 14, kMargin = 16;
constexpr int kColumns = 2, kTitleH = 40;
constexpr double kLowHz = 30.0, kHighHz = 20000.0, kRangeDb = 80.0;

QRgb heat(double u) {
    struct Stop {
        double at;
        int r, g, b;
    };
    static constexpr Stop kStops[] = {{0.0, 0, 0, 4},
                                      {0.25, 80, 18, 123},
                                      {0.5, 182, 54, 121},
                                      {0.75, 251, 136, 97},
                                      {1.0, 252, 253, 191}};
    u = std::clamp(u, 0.0, 1.0);
    for (std::size_t i = 1; i < std::size(kStops); ++i) {
        if (u <= kStops[i].at) {
            const auto& a = kStops[i - 1];
            const auto& b = kStops[i];
            const double f = (u - a.at) / (b.at - a.at);
            return qRgb(static_cast<int>(a.r + f * (b.r - a.r)),
                        static_cast<int>(a.g + f * (b.g - a.g)),
                        static_cast<int>(a.b + f * (b.b - a.b)));
        }
    }
    return qRgb(252, 253, 191);
}

void drawPanel(QPainter& p, QImage& img, int x, int y, const Recipe& r, const Buffer& sound) {
    const double secs = static_cast<double>(sound.size()) / kRate;
    p.setPen(QColor(230, 230, 230));
    p.drawText(x, y + 15,
               QString::fromUtf8(r.file.c_str()) + QStringLiteral("  ") +
                   QString::fromUtf8(r.name.c_str()) +
                   QStringLiteral("  (%1 s)").arg(secs, 0, 'f', 1));
    const int top = y + kLabelH;
    // A window about four columns long, so short sounds and zoomed stretches keep their detail.
    std::size_t kFft = 512;
    while (kFft < 4096 && kFft < 4 * sound.size() / kPanelW) {
        kFft *= 2;
    }
    const Edge edge = r.kind == Kind::OneShot ? Edge::Linear : Edge::Circular;
    auto spec = spectrogram(sound, kPanelW, kFft, edge);
    const double binHz = static_cast<double>(kRate) / kFft;
    for (std::size_t c = 0; c < spec.columns; ++c) {
        for (std::size_t k = 1; k < spec.bins; ++k) {
            spec.db[c * spec.bins + k] +=
                static_cast<float>(3.0 * std::log2(static_cast<double>(k) * binHz / 1000.0));
        }
    }
    float loudest = -200.0f;
    for (std::size_t c = 0; c < spec.columns; ++c) {
        for (std::size_t k = 1; k < spec.bins; ++k) {
            if (static_cast<double>(k) * binHz >= kLowHz) {
                loudest = std::max(loudest, spec.db[c * spec.bins + k]);
            }
        }
    }
    for (int row = 0; row < kSpecH; ++row) {
        const double f =
            kLowHz * std::pow(kHighHz / kLowHz, 1.0 - static_cast<double>(row) / (kSpecH - 1));
        const double bin = f / binHz;
        const auto k0 = static_cast<std::size_t>(bin);
        const double frac = bin - static_cast<double>(k0);
        auto* line = reinterpret_cast<QRgb*>(img.scanLine(top + row));
        for (int c = 0; c < kPanelW; ++c) {
            const float* col = &spec.db[static_cast<std::size_t>(c) * spec.bins];
            const double v = col[k0] * (1 - frac) + col[std::min(k0 + 1, spec.bins - 1)] * frac;
            line[x + c] = heat((v - (loudest - kRangeDb)) / kRangeDb);
        }
    }
    // Frequency ticks at 100 Hz, 1 kHz and 10 kHz.
    p.setPen(QColor(120, 200, 255, 160));
    for (double f : {100.0, 1000.0, 10000.0}) {
        const int row = static_cast<int>((1.0 - std::log(f / kLowHz) / std::log(kHighHz / kLowHz)) *
                                         (kSpecH - 1));
        p.drawLine(x, top + row, x + 5, top + row);
    }
    // Level over time.
    const int envTop = top + kSpecH + 2;
    p.fillRect(x, envTop, kPanelW, kEnvH, QColor(20, 24, 30));
    const auto frames = frameRms(sound, std::max<std::size_t>(1, sound.size() / kPanelW));
    p.setPen(QColor(120, 220, 140));
    for (int c = 0; c < kPanelW && c < static_cast<int>(frames.size()); ++c) {
        const double db = 20 * std::log10(std::max(frames[static_cast<std::size_t>(c)], 1e-6));
        const int h = static_cast<int>(std::clamp((db + 60.0) / 60.0, 0.0, 1.0) * kEnvH);
        p.drawLine(x + c, envTop + kEnvH, x + c, envTop + kEnvH - h);
    }
}

}  // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    if (argc < 3) {
        std::fprintf(stderr, "usage: soundsheet <tree> <out-folder> [file...]\n");
        return 2;
    }
    const std::filesystem::path tree = argv[1], outDir = argv[2];
    std::vector<std::string> only(argv + 3, argv + argc);
    double windowFrom = 0.0, windowSeconds = 0.0;
    if (only.size() >= 3 && only[0] == "--window") {
        windowFrom = std::atof(only[1].c_str());
        windowSeconds = std::atof(only[2].c_str());
        only.erase(only.begin(), only.begin() + 3);
    }
    std::vector<std::string> banks;
    std::map<std::string, std::vector<const Recipe*>> byBank;
    for (const auto& r : recipes()) {
        const std::string bank = only.empty() ? r.bank : "Selection";
        if (!only.empty() && std::find(only.begin(), only.end(), r.file) == only.end()) {
            continue;
        }
        if (byBank[bank].empty()) {
            banks.push_back(bank);
        }
        byBank[bank].push_back(&r);
    }
    if (banks.empty()) {
        std::fprintf(stderr, "soundsheet: no such sound\n");
        return 1;
    }
    std::filesystem::create_directories(outDir);
    int status = 0;
    for (const auto& bank : banks) {
        const auto& list = byBank[bank];
        const int rows = (static_cast<int>(list.size()) + kColumns - 1) / kColumns;
        const int cellH = kLabelH + kSpecH + 2 + kEnvH + kGap;
        QImage img(kMargin * 2 + kColumns * kPanelW + (kColumns - 1) * kMargin,
                   kTitleH + rows * cellH + kMargin, QImage::Format_RGB32);
        img.fill(QColor(14, 16, 20));
        QPainter p(&img);
        QFont font = p.font();
        font.setPixelSize(13);
        p.setFont(font);
        p.setPen(QColor(255, 255, 255));
        QFont title = font;
        title.setPixelSize(20);
        title.setBold(true);
        p.setFont(title);
        p.drawText(kMargin, 28, QString::fromUtf8(bank.c_str()));
        p.setFont(font);
        for (std::size_t i = 0; i < list.size(); ++i) {
            const int col = static_cast<int>(i) % kColumns, row = static_cast<int>(i) / kColumns;
            const int x = kMargin + col * (kPanelW + kMargin), y = kTitleH + row * cellH;
            const auto data = readSound(tree / list[i]->file);
            if (!data) {
                std::fprintf(stderr, "soundsheet: cannot read %s\n", list[i]->file.c_str());
                status = 1;
                continue;
            }
            Buffer sound = fromPcm16(data->samples);
            if (windowSeconds > 0.0) {
                const std::size_t from = std::min(sound.size(), samples(windowFrom));
                const std::size_t to = std::min(sound.size(), from + samples(windowSeconds));
                sound = Buffer(sound.begin() + static_cast<std::ptrdiff_t>(from),
                               sound.begin() + static_cast<std::ptrdiff_t>(to));
            }
            drawPanel(p, img, x, y, *list[i], sound);
        }
        p.end();
        std::string name = bank;
        std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) {
            return c == ' ' ? '_' : static_cast<char>(std::tolower(c));
        });
        const auto file = outDir / (name + ".png");
        // A palette of the heat scale and the few drawing colours keeps the sheets small.
        QList<QRgb> palette;
        for (int k = 0; k < 48; ++k) {
            palette.push_back(heat(k / 47.0));
        }
        for (QRgb c :
             {qRgb(14, 16, 20), qRgb(20, 24, 30), qRgb(120, 220, 140), qRgb(230, 230, 230),
              qRgb(255, 255, 255), qRgb(120, 200, 255), qRgb(80, 90, 100), qRgb(160, 160, 160)}) {
            palette.push_back(c);
        }
        const QImage small =
            img.convertToFormat(QImage::Format_Indexed8, palette, Qt::ThresholdDither);
        if (!small.save(QString::fromStdString(file.string()), "PNG", 0)) {
            std::fprintf(stderr, "soundsheet: cannot write %s\n", file.c_str());
            status = 1;
        } else {
            std::printf("soundsheet: %s\n", file.c_str());
        }
    }
    return status;
}
