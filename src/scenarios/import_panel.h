#pragma once
// Frmimport, "Scenario Importer": installs a scenario package chosen by the user into
// the program's tree, sealed as installPackage describes, with a progress bar that
// follows the bytes unpacked. The console's "Import" opens it.
//
// Not thread-safe: a panel lives on the event thread.

#include "base/controls.h"
#include "scenarios/package_install.h"
#include "shell/panel_colours.h"

namespace brevane {

class Application;

class ImportPanel {
  public:
    explicit ImportPanel(Application& app);

    PanelWindow window;
    PanelColours colours{window, [this] { docolors(); }};
    void docolors();
    Label intro;
    CommandButton importButton;
    // The progress bar, 0 to 100.
    Slider progress{0, 100, 0};
    CommandButton closeButton;

    // The bounds a package must keep to.
    PackageLimits limits;

    void importPackage();

  private:
    Application& app_;
};

}  // namespace brevane
