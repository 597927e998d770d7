#include "ui/shell/colour_picker_view.h"

#include <algorithm>

#include "shell/colour_picker.h"
#include "ui/core/kept_window_position.h"
#include "ui/core/panel_window_follow.h"
#include "ui/widgets/style.h"

namespace brevane {

ColourPickerView::ColourPickerView(ColourPicker& panel, QWidget* parent) : QColorDialog(parent) {
    setWindowFlag(Qt::Window);
    // Qt's own chooser everywhere, so the screen picker is always there.
    setOption(QColorDialog::DontUseNativeDialog);
    setOption(QColorDialog::NoButtons, false);

    // Each opening starts at the target's colour, with the palette as the basic colours.
    // Watching before the window follows the panel, so the dialog is set up before it
    // shows.
    const Control::WatchId id = panel.window.watch([this, &panel] {
        if (!panel.window.visible() || isVisible()) {
            return;
        }
        const int shown = std::min(static_cast<int>(panel.palette.size()), 48);
        for (int i = 0; i < shown; ++i) {
            QColorDialog::setStandardColor(
                i, style::toQColor(panel.palette[static_cast<std::size_t>(i)]));
        }
        setCurrentColor(style::toQColor(panel.colour));
    });
    QObject::connect(this, &QObject::destroyed, [&panel, id] { panel.window.unwatch(id); });

    QObject::connect(this, &QColorDialog::colorSelected, this, [&panel](const QColor& colour) {
        panel.choose(style::fromQColor(colour));
        panel.okButton.click();
    });
    QObject::connect(this, &QDialog::rejected, this, [&panel] {
        if (panel.window.visible()) {
            panel.cancelButton.click();
        }
    });

    followColours(panel.colours, *this);
    followPanelWindow(panel.window, *this, OnClose::HidePanel);
    keepWindowPosition(*this, panel.position);
}

}  // namespace brevane
