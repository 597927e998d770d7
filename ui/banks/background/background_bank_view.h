#pragma once
// A background bank's window, laid out as a mixing desk: 17 channel rows under the
// headings "Sound", "Volume", "Volume Range", "Rate Of Change" and "L / R Balance";
// under each column its bulk buttons; beside them the strip of six group faders and
// "Stop", "Load", "Save" (and the custom bank's "Reset All"). The custom bank has a
// chooser button before each name. Binds to a BackgroundBank; holds no state.

#include <QWidget>

namespace brevane {

class BackgroundBank;

class BackgroundBankView : public QWidget {
  public:
    explicit BackgroundBankView(BackgroundBank& bank, QWidget* parent = nullptr);
};

}  // namespace brevane
