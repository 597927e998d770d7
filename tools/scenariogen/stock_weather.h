#pragma once
// The stock weather and night presets (config/evolve/<name>.rvf) as recipes: the values
// of the Evolve panel's sliders and checks. "Default" is the panel as it comes.

#include <string>
#include <vector>

namespace brevane::stock {

struct WeatherPreset {
    std::string name;
    // Rain: Occurence 0-100, Severity 1-3, Rate of Vol Change 0-995, Length of Event
    // 2800-4950, Max Volume 20-250.
    int rainOccurrence = 80;
    int rainSeverity = 3;
    int rainSpeed = 850;
    int rainLength = 3800;
    int rainMax = 200;
    // Thunder: Occurence 0-100, Severity 0-255, Rate of Vol Change 0-950, Length of Event
    // 0-1000, Max Volume 20-250.
    int thunderOccurrence = 80;
    int thunderSeverity = 255;
    int thunderSpeed = 950;
    int thunderLength = 500;
    int thunderMax = 200;
    // Night: the groups that come up, their amount (0-100) and volume (0-250), the
    // delay in minutes (1-120) and the rate of the transition (10-700).
    bool frogs = false;
    bool insects = false;
    bool nightBirds = false;
    bool crickets = false;
    bool campfire = false;
    int frogsAmount = 100;
    int insectsAmount = 100;
    int nightBirdsAmount = 100;
    int frogsVolume = 120;
    int insectsVolume = 120;
    int nightBirdsVolume = 120;
    int cricketsVolume = 125;
    int campfireVolume = 125;
    int delayMinutes = 30;
    int rate = 200;
};

// "Default" first.
const std::vector<WeatherPreset>& weatherPresets();

}  // namespace brevane::stock
