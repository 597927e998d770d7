#pragma once
// The program's keys (core/hotkeys.h) as shortcuts that work from any of its windows.
//
// Ownership: the shortcuts are children of `owner` and go with it; the Application
// must outlive `owner`. Event thread only.

class QWidget;

namespace brevane {

class Application;

void bindProgramHotkeys(Application& app, QWidget& owner);

}  // namespace brevane
