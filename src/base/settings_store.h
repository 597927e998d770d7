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

// A panel's window position as the store keeps it: in twips (15 to a pixel), in the
// panel's own section, read from "MainLeft" and "Maintop" and written to "Mainleft" and
// "Maintop". Some panels read their top with an offset added and write it back as it
// stands, so they creep down from one session to the next; that is theirs to keep.
struct WindowPosition {
    int left = 0;
    int top = 0;
};

// The kept position, the top with `topOffset` added; nothing when the section holds
// neither value.
std::optional<WindowPosition> readWindowPosition(const SettingsStore& store,
                                                 const std::string& section, int topOffset = 0);
void writeWindowPosition(SettingsStore& store, const std::string& section,
                         const WindowPosition& position);

// The number a text begins with, as typed lists and the settings store are read:
// leading blanks skipped, an optional sign, then digits; 0 when there are none. Kept
// within the range of an int.
long long leadingNumber(const std::string& text);

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
