#pragma once
// The one volume law of every sound position, background and random alike.
//
//   volume = Master x ((Group / 6 / 100) x (Slot / 14))
//
// evaluated in double precision in exactly that order and rounded to the nearest
// integer, exact halves to the even neighbour. Master is the console's Master slider,
// Group the panel's copy of its group slider (`maxvol`), Slot the position's own
// Volume slider. The result is not clipped: a full Slot with Master and Group near the
// top lands a little above 255, and the engine treats anything above 255 as 255.

namespace brevane {

int slotVolume(int master, int group, int slot);

// The same law with the slot's share already worked out: Master x ((Group / 6 / 100)
// x slotFactor). slotVolume() is this with slotFactor = Slot / 14; a random firing
// passes its coarse random step instead.
int slotVolumeWithFactor(int master, int group, double slotFactor);

}  // namespace brevane
