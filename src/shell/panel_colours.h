#pragma once
// What a panel is painted in. Every panel has one, beside its window, and a `docolors`
// that paints it from the program's scheme (Application::scheme): the scheme goes here,
// and the panel's view turns it into its window's palette and style sheet, the one way
// every window is painted (ui/widgets/style.h). Panels paint nothing widget by widget;
// only what is panel state beyond the window takes the scheme too (the status displays'
// palette, a random bank's Auto button, whose colour is its state).
//
// A panel paints itself each time its window opens, so a closed panel needs no update;
// the scheme panel's Apply repaints the console and the panels that are open.
//
// Not thread-safe: a panel lives on the event thread.

#include <functional>
#include <optional>

#include "base/controls.h"
#include "shell/colour_scheme.h"

namespace brevane {

// A scheme to paint a window or a part of one with: nothing until it is first painted,
// when the view shows the program's own look. Views are told when the scheme changes.
class SchemePaint : public Control {
  public:
    const std::optional<ColourScheme>& scheme() const { return scheme_; }
    void paint(const ColourScheme& scheme);

  private:
    std::optional<ColourScheme> scheme_;
};

// A panel's window paint, and its docolors run on every opening.
class PanelColours : public SchemePaint {
  public:
    // Runs `docolors` each time `window` goes from hidden to shown. The window must
    // outlive this; `docolors` may call paint().
    PanelColours(PanelWindow& window, std::function<void()> docolors);
    PanelColours(const PanelColours&) = delete;
    PanelColours& operator=(const PanelColours&) = delete;
    ~PanelColours() override;

    // The panel-open flag: its window is on screen.
    bool open() const { return window_.visible(); }
    PanelWindow& window() const { return window_; }
    // The panel's docolors.
    void docolors();

  private:
    void windowChanged();

    PanelWindow& window_;
    std::function<void()> docolors_;
    bool wasOpen_ = false;
    WatchId watchId_ = 0;
};

}  // namespace brevane
