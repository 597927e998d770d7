#pragma once
// formexportscen's window, "Scenario Exporter": the wizard's five pages one above the
// other, shown one at a time as the wizard's page says, with "<< Back", "Next >>" and
// "Exit" beneath. Binds to the ExportWizard; holds no state.

#include <QWidget>

namespace brevane {

class ExportWizard;

class ExportView : public QWidget {
  public:
    explicit ExportView(ExportWizard& wizard, QWidget* parent = nullptr);
};

}  // namespace brevane
