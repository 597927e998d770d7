#pragma once
// The splash shown while the program loads its sounds. Follows STARTUP's window.

#include <QWidget>

namespace brevane {

class StartupSplash;

class SplashView : public QWidget {
  public:
    explicit SplashView(StartupSplash& splash, QWidget* parent = nullptr);
};

}  // namespace brevane
