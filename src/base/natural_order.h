#pragma once
// Names in the order a file manager lists them: letters without regard to case, and a
// run of digits by its value, so "Storm 2" comes before "Storm 10".

#include <string_view>

namespace brevane {

// Strict weak order. Names equal but for case or leading zeros fall back to a plain
// byte comparison, so the order is total and stable from run to run.
bool naturalLess(std::string_view a, std::string_view b);

}  // namespace brevane
