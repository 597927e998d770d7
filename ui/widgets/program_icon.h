#pragma once
// The program's icon: a calm teal tile with three drifting waves, drawn at every size
// the desktop asks for. Used for the windows and the notification area.

#include <QIcon>

namespace brevane {

QIcon programIcon();

}  // namespace brevane
