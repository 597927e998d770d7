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

void addRainRecipes(std::vector<Recipe>& out);
void addToneRecipes(std::vector<Recipe>& out);

}  // namespace brevane::soundgen
