#pragma once
// A temporary folder for one test, removed with everything in it afterwards.

#include "base/scratch_tree.h"

namespace brevane {

class TempTree : public ScratchTree {
  public:
    TempTree() : ScratchTree("brevane-test") {}
};

}  // namespace brevane
