#include "core/tips_panel.h"

#include <string>

#include "core/application.h"

namespace brevane {

TipsPanel::TipsPanel(Application& app) : app_(app) {
    window.setCaption("Tips");
    nextButton.setCaption("Next Tip");
    nextButton.onClick = [this] { showTip((tip_ + 1) % static_cast<int>(kTips.size())); };
    closeButton.setCaption("Close");
    closeButton.onClick = [this] { window.hide(); };
    showTip(0);
}

void TipsPanel::show() {
    showTip(0);
    window.show();
}

void TipsPanel::showTip(int index) {
    tip_ = index;
    tipText.setCaption(kTips[static_cast<std::size_t>(index)]);
    tipNumber.setCaption("Tip " + std::to_string(index + 1) + " of " +
                         std::to_string(kTips.size()));
}

void TipsPanel::docolors() {
    colours.paint(app_.scheme);
}

}  // namespace brevane
