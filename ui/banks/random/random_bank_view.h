#pragma once
// A random bank's window: the heading, two columns of 14 rows (the sound's name, which
// previews the sound when clicked, its Volume and its Frequency slider; on the custom
// bank also a file chooser, and a right click on the name renames it), the strip of
// six group sliders, the bank's commands and the buttons to the other panels. Binds to
// a RandomBank; holds no state.

#include <QWidget>

namespace brevane {

class RandomBank;

class RandomBankView : public QWidget {
  public:
    explicit RandomBankView(RandomBank& bank, QWidget* parent = nullptr);
};

}  // namespace brevane
