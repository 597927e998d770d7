// The stock weather and night presets. Each names what a listener hears: how often the
// showers and storms come, how hard and for how long, and what the night brings.

#include "stock_weather.h"

namespace brevane::stock {

const std::vector<WeatherPreset>& weatherPresets() {
    static const std::vector<WeatherPreset> all = [] {
        std::vector<WeatherPreset> p;
        // The panel as it comes: frequent heavy showers and storms.
        p.push_back({.name = "Default"});

        // Light rain now and then, each shower over in a few minutes; no thunder.
        p.push_back({.name = "Passing showers",
                     .rainOccurrence = 90,
                     .rainSeverity = 2,
                     .rainSpeed = 700,
                     .rainLength = 3000,
                     .rainMax = 180,
                     .thunderOccurrence = 0});

        // Heavy rain with storms rolling in every few minutes and holding a while.
        p.push_back({.name = "Summer storm",
                     .rainOccurrence = 85,
                     .rainSeverity = 3,
                     .rainSpeed = 850,
                     .rainLength = 4000,
                     .rainMax = 210,
                     .thunderOccurrence = 80,
                     .thunderSeverity = 200,
                     .thunderSpeed = 800,
                     .thunderLength = 600,
                     .thunderMax = 210});

        // Long, slow-swelling rain that rarely stops, a far storm once in a long while,
        // and crickets when the evening comes.
        p.push_back({.name = "All-night rain",
                     .rainOccurrence = 100,
                     .rainSeverity = 3,
                     .rainSpeed = 400,
                     .rainLength = 4900,
                     .rainMax = 170,
                     .thunderOccurrence = 5,
                     .thunderSeverity = 90,
                     .thunderSpeed = 300,
                     .thunderLength = 300,
                     .thunderMax = 120,
                     .crickets = true,
                     .cricketsVolume = 110,
                     .delayMinutes = 45,
                     .rate = 150});

        // Thunder far off and soft, the odd light shower.
        p.push_back({.name = "Distant thunder",
                     .rainOccurrence = 20,
                     .rainSeverity = 1,
                     .rainSpeed = 500,
                     .rainLength = 3200,
                     .rainMax = 140,
                     .thunderOccurrence = 60,
                     .thunderSeverity = 120,
                     .thunderSpeed = 500,
                     .thunderLength = 300,
                     .thunderMax = 140});

        // Dry weather; after a minute the day gives way to a full night chorus.
        p.push_back({.name = "Quick night",
                     .rainOccurrence = 0,
                     .thunderOccurrence = 0,
                     .frogs = true,
                     .insects = true,
                     .nightBirds = true,
                     .crickets = true,
                     .frogsAmount = 60,
                     .insectsAmount = 60,
                     .nightBirdsAmount = 40,
                     .delayMinutes = 1,
                     .rate = 600});

        // An evening by the fire: owls and crickets come up after twenty minutes.
        p.push_back({.name = "Evening campfire",
                     .rainOccurrence = 0,
                     .thunderOccurrence = 0,
                     .nightBirds = true,
                     .crickets = true,
                     .campfire = true,
                     .nightBirdsAmount = 50,
                     .nightBirdsVolume = 140,
                     .cricketsVolume = 120,
                     .campfireVolume = 160,
                     .delayMinutes = 20,
                     .rate = 250});
        return p;
    }();
    return all;
}

}  // namespace brevane::stock
