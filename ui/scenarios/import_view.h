#pragma once
// Frmimport's window, "Scenario Importer": the "Import" button and the progress bar
// of the unpacking. Binds to the ImportPanel; holds no state.

#include <QWidget>

namespace brevane {

class ImportPanel;

class ImportView : public QWidget {
  public:
    explicit ImportView(ImportPanel& panel, QWidget* parent = nullptr);
};

}  // namespace brevane
