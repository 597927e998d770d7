#pragma once
// The window settings store: values by section and key, one section per panel.
// The program keeps it in the desktop's settings; tests keep it in memory.
// Section and key names ignore case: panels write "Mainleft" and read "MainLeft".

#include <map>
#include <optional>
#include <string>
#include <utility>

namespace brevane {

class SettingsStore {
  public:
    virtual ~SettingsStore() = default;
    virtual std::optional<std::string> value(const std::string& section,
                                             const std::string& key) const = 0;
    virtual void setValue(const std::string& section, const std::string& key,
                          const std::string& value) = 0;
    // The value, or `fallback` when the store has none.
    std::string valueOr(const std::string& section, const std::string& key,
                        const std::string& fallback) const;
};

class MemorySettingsStore : public SettingsStore {
  public:
    std::optional<std::string> value(const std::string& section,
                                     const std::string& key) const override;
    void setValue(const std::string& section, const std::string& key,
                  const std::string& value) override;

  private:
    std::map<std::pair<std::string, std::string>, std::string> values_;
};

}  // namespace brevane
