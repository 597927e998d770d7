#pragma once
// The CD player's window: its display, the drive, the volume and a compact transport.
// Binds to Frmcd; holds no state.

#include <QWidget>

namespace brevane {

class Frmcd;

class CdView : public QWidget {
  public:
    explicit CdView(Frmcd& panel, QWidget* parent = nullptr);
};

}  // namespace brevane
