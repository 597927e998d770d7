#include "shell/colour_picker.h"

#include "base/app_path.h"
#include "base/dialogs.h"
#include "base/file_io.h"
#include "core/application.h"
#include "shell/colour_files.h"

namespace brevane {

ColourPicker::ColourPicker(Application& app) : colours(window, [this] { docolors(); }), app_(app) {
    window.setCaption("Color Picker");
    okButton.setCaption("OK");
    okButton.onClick = [this] {
        window.hide();
        app_.frmDemo.takeColour(colour);
    };
    cancelButton.setCaption("Cancel");
    cancelButton.onClick = [this] { window.hide(); };
}

void ColourPicker::load() {
    position = readWindowPosition(app_.settings, kSettingsSection);
}

void ColourPicker::unload() {
    window.hide();
    if (position) {
        writeWindowPosition(app_.settings, kSettingsSection, *position);
    }
}

void ColourPicker::docolors() {
    colours.paint(app_.scheme);
}

void ColourPicker::open(Colour current) {
    colour = current;
    OpenPallet();
    window.show();
}

bool ColourPicker::OpenPallet() {
    palette.clear();
    const auto content = readWholeFile(app_.appPath / kPaletteFile);
    const auto read = content ? readPaletteFile(*content) : std::nullopt;
    if (!read) {
        app_.dialogs.message(MessageKind::Information, kPaletteUnreadableText);
        return false;
    }
    palette = *read;
    return true;
}

}  // namespace brevane
