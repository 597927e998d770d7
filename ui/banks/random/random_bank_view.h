#pragma once
// A random bank's window: the heading, two columns of 14 rows (the sound's name, which
// previews the sound when clicked, its Volume and its Frequency slider), the strip of
// six group sliders, and the buttons to the other banks. Binds to a RandomBank; holds
// no state.

#include <QWidget>

namespace brevane {

class RandomBank;

class RandomBankView : public QWidget {
  public:
    explicit RandomBankView(RandomBank& bank, QWidget* parent = nullptr);
};

}  // namespace brevane
