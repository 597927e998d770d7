#pragma once
// The MP3 player's windows: the transport with its display, the playlist docked under
// it, and the folder chooser. Bind to Frmmainmp3, FrmList and Mp3FolderPanel; hold no
// state.

#include <QWidget>

namespace brevane {

class Frmmainmp3;
class FrmList;
class Mp3FolderPanel;

class Mp3View : public QWidget {
  public:
    explicit Mp3View(Frmmainmp3& panel, QWidget* parent = nullptr);
};

class Mp3ListView : public QWidget {
  public:
    // Shows itself under `player` whenever the list is opened.
    Mp3ListView(FrmList& panel, QWidget& player, QWidget* parent = nullptr);
};

class Mp3FolderView : public QWidget {
  public:
    explicit Mp3FolderView(Mp3FolderPanel& panel, QWidget* parent = nullptr);
};

}  // namespace brevane
