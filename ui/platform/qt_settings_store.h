#pragma once
// The window settings store in the desktop's settings (QSettings, organisation and
// application "Brevane"): one group per section.
//
// Section and key names compare without regard to case, as in the settings the
// panels were written for: a panel that writes "Mainleft" at unload finds it again
// as "MainLeft" at load. Values are kept as text. Writes reach the disk at the
// latest when the store is destroyed, or at sync(). Event thread only.

#include <QSettings>

#include "base/settings_store.h"

namespace brevane {

class QtSettingsStore : public SettingsStore {
  public:
    QtSettingsStore();

    std::optional<std::string> value(const std::string& section,
                                     const std::string& key) const override;
    void setValue(const std::string& section, const std::string& key,
                  const std::string& value) override;

    // Writes what is pending to the disk now.
    void sync();

  private:
    QSettings settings_;
};

}  // namespace brevane
