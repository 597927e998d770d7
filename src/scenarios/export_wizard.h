#pragma once
// formexportscen, "Scenario Exporter": a five-page wizard that packs the current
// scenario, with everything of the user's own it needs, into
// zipped scenarios/<name>.zip, whose root is the root of the program's tree: another
// installation's importer unpacks it straight over its tree.
//
// Pages, by "Next >>" and "<< Back": 1 introduction; 2 associations (the panoramic and
// the slideshow, each with a preview); 3 details (creator, description, recordings);
// 4 gather ("Collect Files and Create Zip File" copies the files into the staging
// folder packaged scenarios/<name>/, logging each step, and zips it); 5 finish (the
// staging folder and the details file go; the zip stays).
//
// What travels: the scenario's marker and its members 1, 2, 3, 4, 6, 8, 9, 10, 11, 12
// and 13 (5 and 7 stay home), the custom banks' sounds that are on (the stock banks'
// sounds are on every installation), the slideshow folder and the panoramic when asked
// for, and <name>.txt, the details. A file that is not there is skipped, its line
// logged all the same.
//
// The scenario's name is read from the remote's caption each time the wizard opens; a
// scenario load closes it.
//
// Not thread-safe: a panel lives on the event thread.

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "base/controls.h"
#include "shell/panel_colours.h"

namespace brevane {

class Application;

class ExportWizard {
  public:
    static constexpr int kPages = 5;
    static constexpr const char* kStagingFolder = "packaged scenarios";
    static constexpr const char* kZipFolder = "zipped scenarios";
    static constexpr const char* kUploaderProgram = "uploader";

    explicit ExportWizard(Application& app);

    PanelWindow window;
    PanelColours colours{window, [this] { docolors(); }};
    void docolors();

    // The page shown, 1 to 5.
    Slider page{1, kPages, 1};
    CommandButton back;
    CommandButton next;
    CommandButton exitButton;

    // 1. Introduction.
    Label introText;
    Label introNote;

    // 2. Associations. A preview holds the picture's path, empty for none.
    Label associationsNote;
    CheckBox includePanoramic;
    Label panoramicLabel;
    TextBox panoramicPreview;
    CheckBox includeSlideshow;
    Label slideshowLabel;
    TextBox slideshowPreview;

    // 3. Details, and the details file's text, kept out of sight.
    TextBox createdBy;
    TextBox description;
    TextBox recordings;
    TextBox detailsText;

    // 4. Gather.
    Label gatherNote;
    CommandButton collect;
    TextBox status;

    // 5. Finish.
    Label finishNote;
    CommandButton locate;
    CommandButton upload;

    // The console's "Export": the wizard opens at its first page, for the scenario the
    // remote names.
    void open();
    // A scenario load, and the program's end, close the wizard and clear it.
    void unload();

    // The scenario being packed, and the files of the package's making.
    const std::string& scenarioName() const { return name_; }
    std::filesystem::path stagingFolder() const;
    std::filesystem::path zipFile() const;
    std::filesystem::path detailsFile() const;

    // The custom banks' sounds, as the tree names them: 17 background slots (a file
    // when the slot is on), then 28 random slots (a file when its volume is above 0);
    // empty otherwise.
    std::array<std::string, 17> backgroundSounds() const;
    std::array<std::string, 28> randomSounds() const;

    // The collect process of page 4.
    void collectFiles();

  private:
    void showPage(int number);
    void enterPage(int number);
    void panoramicClicked();
    void slideshowClicked();
    void writeDetails();
    void removeWorkingFiles();
    void log(const std::string& line);
    void heading(const std::string& text);
    void copySound(const std::string& relative);

    Application& app_;
    std::string name_;
    std::filesystem::path detailsWritten_;
};

}  // namespace brevane
