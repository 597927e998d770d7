#pragma once
// frmDemo, "Color Schemes": edits the program's colour scheme on a sample of the
// controls, keeps named schemes as config/colors/<name>.clr, and applies a scheme to
// the program.
//
// Two schemes are in play. The program's scheme (Application::scheme) is what every
// panel paints from. The scheme being edited is this panel's: the swatches, the palette
// list and a loaded scheme change it and repaint only the sample, until "Apply" makes it
// the program's and repaints the console and every open panel (a closed one paints
// itself when it opens). Opening the panel starts the editing from the program's scheme
// and keeps that in config/colors/previous.tmp, which "Revert" brings back.
//
// A swatch stores its target number (shell/colour_scheme.h) in `target` and opens the
// colour picker (Frmcolorpicker), whose OK hands the colour back to takeColour.
//
// A display colour picked from its swatch turns the palette to "CUSTOM", where the
// display shows it; "Default" cannot be deleted; Save As asks before writing over a
// scheme of the same name; "Revert" takes back the changes since the panel opened.
//
// At start (load): the list fills from config/colors, colors.tmp gives the displays'
// colours and palette, Line Color, Active Color and the scheme's name; without
// colors.tmp (a first start) the scheme "Default" is loaded. The console then applies
// it once, so every panel paints from the restored scheme. At the end (unload)
// colors.tmp and the window position ("Settings15") are written.
//
// Not thread-safe: a panel lives on the event thread.

#include <array>
#include <filesystem>
#include <optional>
#include <string>

#include "base/controls.h"
#include "base/settings_store.h"
#include "core/lcd_display.h"
#include "shell/colour_scheme.h"
#include "shell/panel_colours.h"

namespace brevane {

class Application;

class Frmdemo {
  public:
    static constexpr const char* kSettingsSection = "Settings15";
    // The top is read 500 twips lower than it was written, as it always was.
    static constexpr int kTopOffset = 500;
    static constexpr const char* kNoSchemeText =
        "There is no scheme selected. Please use the 'save as' option";
    static constexpr const char* kOverwriteText = "This will overwrite the color profile - ";
    static constexpr const char* kContinueText = ". Continue?";
    static constexpr const char* kRestoreDefaultText =
        "This will restore the default color scheme. Continue?";
    static constexpr const char* kSchemeNamePrompt = "Please type a name for this color scheme";
    static constexpr const char* kNotSavedText = "The color scheme could not be saved.";
    static constexpr const char* kSelectToDeleteText =
        "Please select the color scheme you wish to delete.";
    static constexpr const char* kDeleteText = "This will delete the color profile - ";
    static constexpr const char* kDefaultUndeletableText =
        "The default color scheme cannot be deleted.";
    static constexpr const char* kDeleteFailedText = "The color scheme could not be deleted.";
    static constexpr const char* kSampleDisplayText = " Sample Display";
    static constexpr const char* kAdvancedCaption = "Advanced >>";
    static constexpr const char* kBasicCaption = "<< Advanced";

    explicit Frmdemo(Application& app);
    Frmdemo(const Frmdemo&) = delete;
    Frmdemo& operator=(const Frmdemo&) = delete;

    PanelWindow window;
    // The panel's own window, painted from the program's scheme on Apply and opening.
    PanelColours colours;
    // The sample of the controls, painted from the scheme being edited at every change.
    SchemePaint sample;

    // The named schemes, by name; a click (a pick, a step) loads the one selected.
    ComboBox schemeList;
    CommandButton previousSchemeButton;  // "<": the entry before, none from the first
    CommandButton nextSchemeButton;      // ">": the entry after, none from the last
    // The displays' palettes, kLcdPaletteNames in order; a click sets the palette.
    ComboBox paletteList;
    CommandButton previousPaletteButton;
    CommandButton nextPaletteButton;

    // The swatches, target 1 first: each shows its colour as its back colour and its
    // caption as its tool tip; a click opens the picker for it.
    std::array<CommandButton, kSchemeTargets> swatches;
    // The shared target text: the number of the swatch the picker works for.
    TextBox target;

    CommandButton saveButton;            // "Save"
    CommandButton saveAsButton;          // "Save As"
    CommandButton deleteButton;          // "Del"
    CommandButton restoreDefaultButton;  // "Restore Default Color Scheme"
    CommandButton revertButton;          // "Revert"
    CommandButton advancedButton;        // "Advanced >>" / "<< Advanced"
    CommandButton applyButton;           // "Apply"
    CommandButton closeButton;           // "Close"
    // The part of the panel with the single swatches, shown by "Advanced >>".
    Label advancedFrame;

    // The sample: one of each kind of control, to see the scheme on.
    Label sampleLabel;
    CommandButton sampleButton;
    ToggleButton sampleToggle;
    CheckBox sampleCheck;
    OptionGroup sampleOptions;
    OptionButton sampleOption1;
    OptionButton sampleOption2;
    TextBox sampleText;
    ListBox sampleList;
    Slider sampleSlider{0, 100, 60};
    LcdDisplay sampleDisplay;

    std::optional<WindowPosition> position;

    // The scheme being edited.
    const ColourScheme& scheme() const { return scheme_; }
    // The name of the scheme selected, "" for none.
    std::string schemeName() const { return schemeList.text(); }
    std::filesystem::path colourFolder() const;
    std::filesystem::path schemeFile(const std::string& name) const;

    // Program start: the list, colors.tmp (or "Default"), the position. Program end:
    // colors.tmp and the position.
    void load();
    void unload();

    // The console's "Colors": editing starts from the program's scheme, which is kept
    // in previous.tmp, and the panel shows.
    void show();
    // Paints the panel's own window from the program's scheme.
    void docolors();

    // "Apply": the scheme being edited becomes the program's; this panel, the console
    // and every open panel paint from it.
    void apply();

    // Loads config/colors/<name>.clr into the scheme being edited; false, changing
    // nothing, when the file is missing or damaged.
    bool doload(const std::string& name);
    // Writes the scheme being edited to `file`; false when it cannot.
    bool dosave(const std::filesystem::path& file) const;
    // Selects `name` in the list without loading it (the session's scheme name).
    void selectSchemeName(const std::string& name);

    // A swatch's click: its target, and the picker opens at its colour.
    void chooseColour(int target);
    // The picker's OK: `colour` goes to the target the shared text names.
    void takeColour(Colour colour);
    // Sets one colour of the scheme being edited, target 1 to 15.
    void setColour(int target, Colour colour);
    // Sets the displays' palette of the scheme being edited.
    void setPalette(int index);

    // Scenarios: member 9 (and its copy, 7) carries the program's scheme; a load with
    // "Allow color scheme change with scenario change" on reads member 9 and applies it.
    bool saveScenarioColours(const std::filesystem::path& file) const;
    bool loadScenarioColours(const std::filesystem::path& file);

    // The commands.
    void saveCommand();
    void saveAsCommand();
    void deleteCommand();
    void restoreDefaultCommand();
    void revertCommand();
    void toggleAdvanced();
    void stepScheme(int step);
    void stepPalette(int step);

  private:
    void refillList();
    // The swatches, the palette list and the sample show the scheme being edited.
    void showScheme();
    void readSessionFile();
    void schemeClicked();

    Application& app_;
    ColourScheme scheme_;
    // Set while the list is moved without loading.
    bool selecting_ = false;
};

}  // namespace brevane
