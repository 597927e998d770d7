#pragma once
// The folder the program and its companions run on.

#include <optional>

#include "base/app_path.h"

namespace brevane {

// The folder the running program stands in when run from the build; installed, the
// user's own folder, made from the shared stock tree found at `relativeStockTree` from
// the program's folder (of version `version`). Nothing when that folder cannot be made,
// after saying why. Needs the QApplication.
std::optional<AppPath> programFolder(const char* relativeStockTree, const char* version);

}  // namespace brevane
