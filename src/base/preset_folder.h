#pragma once
// Folders of small named files (scenarios, presets): the names a list shows, and the
// Previous and Next buttons every preset list steps with.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/controls.h"

namespace brevane {

// The regular files of `folder` whose extension is `extension` (".rvf", any case), each
// without its last four characters, in the order a file manager lists them. A missing
// folder gives none.
std::vector<std::string> folderNames(const std::filesystem::path& folder,
                                     std::string_view extension);

// Replaces the entries of `list` with `names`.
void fillList(ListControl& list, const std::vector<std::string>& names);

// Previous: from the first entry the box goes to the last and then one back, so it
// lands on the last but one; with a single entry the selection clears.
void stepPrevious(ComboBox& box);
// Next: an empty box, or the last entry, goes to the first and then one on, so it lands
// on the second.
void stepNext(ComboBox& box);

}  // namespace brevane
