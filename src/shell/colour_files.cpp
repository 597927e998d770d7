#include "shell/colour_files.h"

#include <charconv>
#include <sstream>

#include "base/comma_record.h"
#include "base/file_io.h"
#include "core/lcd_display.h"

namespace brevane {

namespace {

// The .clr record as it stands in the file: colours of the roles as texts, the
// palette and the displays' colours as numbers.
struct SchemeRecord {
    std::string startGradient;
    std::string endGradient;
    std::string active;
    std::string back;
    int palette = 0;
    std::array<int, kDisplayColours> display{};
    std::string buttonBack;
    std::string buttonText;
    std::string text;
    std::string textBoxBack;
    std::string textBoxFore;
    std::string rollover;
    std::string line;
};

template <class Io, class Record>
void schemeFields(Io& io, Record& r) {
    io.text(r.startGradient);
    io.text(r.endGradient);
    io.text(r.active);
    io.text(r.back);
    io.number(r.palette);
    for (auto& d : r.display) {
        io.number(d);
    }
    io.text(r.buttonBack);
    io.text(r.buttonText);
    io.text(r.text);
    io.text(r.textBoxBack);
    io.text(r.textBoxFore);
    io.text(r.rollover);
    io.text(r.line);
}

// colors.tmp as it stands in the file.
struct SessionFileRecord {
    int palette = 0;
    std::array<int, kDisplayColours> display{};
    std::string line;
    std::string active;
    std::string name;
};

template <class Io, class Record>
void sessionFields(Io& io, Record& r) {
    io.number(r.palette);
    for (auto& d : r.display) {
        io.number(d);
    }
    io.text(r.line);
    io.text(r.active);
    io.text(r.name);
}

int asNumber(Colour colour) {
    // The top byte is never written: a colour number of the files fits in 24 bits.
    return static_cast<int>(colour & 0x00FFFFFFu);
}

}  // namespace

std::string writeSchemeFile(const ColourScheme& s) {
    SchemeRecord r;
    r.startGradient = colourText(s.startGradient);
    r.endGradient = colourText(s.endGradient);
    r.active = colourText(s.active);
    r.back = colourText(s.back);
    r.palette = s.palette;
    for (std::size_t d = 0; d < s.display.size(); ++d) {
        r.display[d] = asNumber(s.display[d]);
    }
    r.buttonBack = colourText(s.buttonBack);
    r.buttonText = colourText(s.buttonText);
    r.text = colourText(s.text);
    r.textBoxBack = colourText(s.textBoxBack);
    r.textBoxFore = colourText(s.textBoxFore);
    r.rollover = colourText(s.rollover);
    r.line = colourText(s.line);
    return writeFields(r, [](auto& io, auto& rec) { schemeFields(io, rec); });
}

std::optional<ColourScheme> readSchemeFile(std::string_view content) {
    const FieldsRead<SchemeRecord> read = readFields<SchemeRecord>(
        content, kSchemeFileFields, [](auto& io, auto& rec) { schemeFields(io, rec); });
    if (!read.whole(kSchemeFileFields)) {
        return std::nullopt;
    }
    const SchemeRecord& r = read.record;
    ColourScheme s;
    const std::pair<const std::string*, Colour*> texts[] = {{&r.startGradient, &s.startGradient},
                                                            {&r.endGradient, &s.endGradient},
                                                            {&r.active, &s.active},
                                                            {&r.back, &s.back},
                                                            {&r.buttonBack, &s.buttonBack},
                                                            {&r.buttonText, &s.buttonText},
                                                            {&r.text, &s.text},
                                                            {&r.textBoxBack, &s.textBoxBack},
                                                            {&r.textBoxFore, &s.textBoxFore},
                                                            {&r.rollover, &s.rollover},
                                                            {&r.line, &s.line}};
    for (const auto& [text, colour] : texts) {
        const std::optional<Colour> c = colourFromText(*text);
        if (!c) {
            return std::nullopt;
        }
        *colour = *c;
    }
    for (std::size_t d = 0; d < r.display.size(); ++d) {
        if (r.display[d] < 0) {
            return std::nullopt;
        }
        s.display[d] = static_cast<Colour>(r.display[d]);
    }
    s.palette = static_cast<int>(lcdPaletteFromIndex(r.palette));
    return s;
}

std::string writeColoursSessionFile(const ColoursSessionRecord& record) {
    SessionFileRecord r;
    r.palette = record.palette;
    for (std::size_t d = 0; d < record.display.size(); ++d) {
        r.display[d] = asNumber(record.display[d]);
    }
    r.line = record.line;
    r.active = record.active;
    r.name = record.name;
    return writeFields(r, [](auto& io, auto& rec) { sessionFields(io, rec); });
}

FieldsRead<ColoursSessionRecord> readColoursSessionFile(std::string_view content) {
    const FieldsRead<SessionFileRecord> read =
        readFields<SessionFileRecord>(content, ColoursSessionRecord::kFields,
                                      [](auto& io, auto& rec) { sessionFields(io, rec); });
    FieldsRead<ColoursSessionRecord> out;
    out.fields = read.fields;
    const SessionFileRecord& r = read.record;
    out.record.palette = r.palette;
    for (std::size_t d = 0; d < r.display.size(); ++d) {
        // A negative number is no colour: the reading stops before it.
        if (r.display[d] < 0 && out.fields > static_cast<int>(d) + 1) {
            out.fields = static_cast<int>(d) + 1;
        }
        out.record.display[d] = static_cast<Colour>(r.display[d] < 0 ? 0 : r.display[d]);
    }
    out.record.line = r.line;
    out.record.active = r.active;
    out.record.name = r.name;
    return out;
}

std::optional<ColourScheme> lastNamedScheme(const std::filesystem::path& programFolder) {
    std::string name = kDefaultSchemeName;
    if (const auto session = readWholeFile(programFolder / kColoursSessionFile)) {
        const FieldsRead<ColoursSessionRecord> read = readColoursSessionFile(*session);
        if (read.fields == ColoursSessionRecord::kFields && !read.record.name.empty()) {
            name = read.record.name;
        }
    }
    for (const std::string& candidate : {name, std::string(kDefaultSchemeName)}) {
        const auto file = programFolder / kColourFolder / (candidate + kSchemeExtension);
        if (const auto content = readWholeFile(file)) {
            if (auto scheme = readSchemeFile(*content)) {
                return scheme;
            }
        }
    }
    return std::nullopt;
}

std::string writePaletteFile(const std::vector<Colour>& colours) {
    std::string out = "JASC-PAL\r\n0100\r\n" + std::to_string(colours.size()) + "\r\n";
    for (const Colour c : colours) {
        out += std::to_string(c & 0xFFu) + " " + std::to_string((c >> 8) & 0xFFu) + " " +
               std::to_string((c >> 16) & 0xFFu) + "\r\n";
    }
    return out;
}

std::optional<std::vector<Colour>> readPaletteFile(std::string_view content) {
    std::istringstream in{std::string(content)};
    std::string line;
    const auto nextLine = [&]() -> bool {
        if (!std::getline(in, line)) {
            return false;
        }
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        return true;
    };
    if (!nextLine() || line != "JASC-PAL" || !nextLine() || line != "0100" || !nextLine()) {
        return std::nullopt;
    }
    int count = 0;
    const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), count);
    if (error != std::errc() || end != line.data() + line.size() || count < 1 || count > 256) {
        return std::nullopt;
    }
    std::vector<Colour> colours;
    for (int i = 0; i < count; ++i) {
        if (!nextLine()) {
            return std::nullopt;
        }
        std::istringstream parts(line);
        int red = -1;
        int green = -1;
        int blue = -1;
        std::string rest;
        if (!(parts >> red >> green >> blue) || (parts >> rest) || red < 0 || red > 255 ||
            green < 0 || green > 255 || blue < 0 || blue > 255) {
            return std::nullopt;
        }
        colours.push_back(rgbColour(red, green, blue));
    }
    return colours;
}

}  // namespace brevane
