// The recipe families. Each adds its recipes to the list in the order they should appear;
// registry.cpp calls them in turn. A new family is one more function here and one call there.
#pragma once

#include <vector>

#include "registry.h"

namespace brevane::soundgen {

inline constexpr const char* kBankOne = "Background bank one";
inline constexpr const char* kBankTwo = "Background bank two";
inline constexpr const char* kRandomFour = "Random bank four";
inline constexpr const char* kTonesAndAlarm = "Brainwave tones and alarm";
inline constexpr const char* kRandomOne = "Random bank one";
inline constexpr const char* kRandomTwo = "Random bank two";
inline constexpr const char* kRandomThree = "Random bank three";

void addRainRecipes(std::vector<Recipe>& out);
// Wind loops of bank one and the gusts of random bank four.
void addWindRecipes(std::vector<Recipe>& out);
// Sea and shore loops of bank one and the waves of random bank four.
void addSeaRecipes(std::vector<Recipe>& out);
// Fountain, stream and river of bank two.
void addWaterRecipes(std::vector<Recipe>& out);
// Campfire and crackling fire of bank two.
void addFireRecipes(std::vector<Recipe>& out);
// The eleven thunder rumbles of random bank four.
void addThunderRecipes(std::vector<Recipe>& out);
void addToneRecipes(std::vector<Recipe>& out);
// Birds, owls and wing flaps of random bank one.
void addBirdRecipes(std::vector<Recipe>& out);
// Bees, hoverflies, cicadas, crickets, katydids, lizards and frogs of random bank two.
void addInsectRecipes(std::vector<Recipe>& out);
// Cows, cats, roosters, dogs, sheep, horses, goats and geese of random bank three.
void addFarmRecipes(std::vector<Recipe>& out);
// The living loops of bank two: woods, meadow, lake, jungles, crickets and cicadas.
void addLivingRecipes(std::vector<Recipe>& out);

}  // namespace brevane::soundgen
