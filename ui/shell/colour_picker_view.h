#pragma once
// Frmcolorpicker's window: Qt's colour chooser, with its screen picker ("Pick Screen
// Color"), opening at the target's colour with the palette of XP.pal as its basic
// colours. OK hands the colour to the panel, Cancel and the window's close leave it.
// Binds to ColourPicker; holds no state.

#include <QColorDialog>

namespace brevane {

class ColourPicker;

class ColourPickerView : public QColorDialog {
  public:
    explicit ColourPickerView(ColourPicker& panel, QWidget* parent = nullptr);
};

}  // namespace brevane
