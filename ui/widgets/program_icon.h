#pragma once
// The program's icon: a calm teal tile with three drifting waves, drawn at every size
// the desktop asks for. Used for the windows and the notification area, and drawn by
// the build into the icon files the desktop's menus show.

#include <QIcon>

class QPainter;

namespace brevane {

QIcon programIcon();

// Paints the icon on a square `size` pixels wide whose top left is the painter's origin.
void paintProgramIcon(QPainter& painter, int size);

}  // namespace brevane
