#pragma once
// Text and path crossings between the headless layer and Qt. The headless layer
// keeps text as UTF-8 std::string and paths as std::filesystem::path; Qt wants
// QString. Every view and adapter converts through these, so there is one rule.

#include <QFile>
#include <QString>
#include <filesystem>
#include <string>
#include <string_view>

namespace brevane {

inline QString qtText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string textFromQt(const QString& text) {
    return text.toStdString();
}

// Text for the screen: the files and messages break lines with CR LF, which a
// plain-text widget would show as a stray character before each break.
inline QString qtDisplayText(std::string_view text) {
    QString shown = qtText(text);
    shown.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    shown.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return shown;
}

// File names go through the system's file-name encoding, so a name that is not
// valid UTF-8 survives the trip to a dialog and back.
inline QString qtPath(const std::filesystem::path& path) {
    return QFile::decodeName(path.native().c_str());
}

inline std::filesystem::path pathFromQt(const QString& path) {
    return std::filesystem::path(QFile::encodeName(path).toStdString());
}

}  // namespace brevane
