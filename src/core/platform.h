#pragma once
// What the program needs of the machine it runs on, handed to the Application once.
// The program passes the real device, toolkit loop, message boxes and desktop
// settings; a test passes an offline or recording engine, a virtual-time loop,
// scripted dialogs and a memory store, on a temporary tree.
//
// Ownership: every referenced object belongs to the caller and must outlive the
// Application. The caller seeds the random source (the program from the clock, a
// test with a fixed seed). The launcher and the desktop services may be left out;
// the console then finds no companion program and opens no document.

#include "base/app_path.h"
#include "core/desktop.h"

namespace brevane {

class SoundEngine;
class EventLoop;
class Dialogs;
class SettingsStore;
class Random;
class AutostartEntry;
class CdDrives;

// A machine without a CD drive (the media library's).
CdDrives& noCdDrives();

struct Platform {
    AppPath appPath;
    SoundEngine& engine;
    EventLoop& loop;
    Dialogs& dialogs;
    SettingsStore& settings;
    Random& random;
    // The desktop's autostart entry for "Launch program automatically on boot"; none
    // keeps the setting without making an entry.
    AutostartEntry* autostart = nullptr;
    // Starts the companion programs beside this one ("Rec").
    ProgramLauncher& launcher = unavailableProgramLauncher();
    // Opens documents with the desktop's handler ("Help").
    DesktopServices& desktop = unavailableDesktopServices();
    // Powers the machine off after an alarm, and keeps it awake while one is due.
    SystemPower& power = unavailableSystemPower();
    // The CD drives the CD player finds.
    CdDrives& cdDrives = noCdDrives();
};

}  // namespace brevane
