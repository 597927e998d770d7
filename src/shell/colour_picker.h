#pragma once
// Frmcolorpicker: gives a colour for the scheme panel's current target. It opens at the
// target's colour with the palette of XP.pal beside the program ("The Pallet can not be
// loaded." when that cannot be read; the picker still works without it), and its OK
// hands the chosen colour to frmDemo. The interface shows it as the desktop's colour
// chooser, with its own screen picker (ui/shell/colour_picker_view.h).
//
// The window position is kept in "Settings13".
//
// Not thread-safe: a panel lives on the event thread.

#include <optional>
#include <vector>

#include "base/controls.h"
#include "base/settings_store.h"
#include "shell/colour_scheme.h"
#include "shell/panel_colours.h"

namespace brevane {

class Application;

class ColourPicker {
  public:
    static constexpr const char* kSettingsSection = "Settings13";
    static constexpr const char* kPaletteUnreadableText = "The Pallet can not be loaded.";

    explicit ColourPicker(Application& app);
    ColourPicker(const ColourPicker&) = delete;
    ColourPicker& operator=(const ColourPicker&) = delete;

    PanelWindow window;
    PanelColours colours;
    CommandButton okButton;      // "OK": the colour goes to frmDemo's target
    CommandButton cancelButton;  // "Cancel"

    // The colour chosen: the target's at opening, then the user's.
    Colour colour = 0;
    // The palette offered beside the chooser, from XP.pal; empty when it was not read.
    std::vector<Colour> palette;

    std::optional<WindowPosition> position;

    void load();
    void unload();
    void docolors();

    // Opens at `current`, after reading the palette.
    void open(Colour current);
    // Reads XP.pal into `palette`; says so and leaves it empty when it cannot.
    bool OpenPallet();
    // The user's pick in the chooser.
    void choose(Colour chosen) { colour = chosen; }

  private:
    Application& app_;
};

}  // namespace brevane
