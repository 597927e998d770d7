#include "scheduling/scheduler_panel.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <vector>

#include "base/app_path.h"
#include "base/comma_record.h"
#include "base/dialogs.h"
#include "base/field_list.h"
#include "base/file_io.h"
#include "base/natural_order.h"
#include "base/random.h"
#include "core/application.h"
#include "scenarios/scenario_files.h"

namespace brevane {

namespace fs = std::filesystem;

namespace {

constexpr std::array<const char*, 7> kIntervals = {"5 Min", "10 Min", "30 Min", "60 Min",
                                                   "6 Hr",  "12 Hr",  "24 Hr"};
constexpr const char* kFirstIntervalText = "5 min";
constexpr const char* kScenarioFilter = "Scenario Files (*.scn)|*.scn";
constexpr const char* kBrowseFilter = "Brevane 6.0 scenarios (*.scn)| *.scn";

// A schedule (.sch): enabled, scenario and time of the eight rows.
struct ScheduleValues {
    std::array<int, SchedulerPanel::kRows> enabled{};
    std::array<std::string, SchedulerPanel::kRows> scenario;
    std::array<std::string, SchedulerPanel::kRows> time;
};

template <class Io, class V>
void scheduleFields(Io& io, V& v) {
    for (auto& e : v.enabled) {
        io.number(e);
    }
    for (auto& s : v.scenario) {
        io.text(s);
    }
    for (auto& t : v.time) {
        io.text(t);
    }
}
constexpr int kScheduleFields = 24;

// Timersettings.tmp: the schedule, the reserved flags, the mode and the playlist's
// interval and order.
struct SessionValues {
    ScheduleValues schedule;
    std::array<bool, SchedulerPanel::kRows> reservedA{};
    std::array<bool, SchedulerPanel::kRows> reservedB{};
    std::string reservedText;
    std::array<bool, 3> modes{};
    int interval = -1;
    int randomOrder = 0;
};

template <class Io, class V>
void sessionFields(Io& io, V& v) {
    scheduleFields(io, v.schedule);
    for (auto& a : v.reservedA) {
        io.truth(a);
    }
    for (auto& b : v.reservedB) {
        io.truth(b);
    }
    for (int i = 0; i < 7; ++i) {
        io.empty();
    }
    io.text(v.reservedText);
    for (auto& m : v.modes) {
        io.truth(m);
    }
    io.number(v.interval);
    io.number(v.randomOrder);
}
constexpr int kSessionFields = 53;

}  // namespace

// ---- the folder chooser ----

ScenarioFolderPanel::ScenarioFolderPanel(Application& app) : app_(app) {
    window.setCaption("Add Scenario Folder");
    folderLabel.setCaption("Select the directory containing your scenario files:");
    filesLabel.setCaption("Scenario files contained in selected folder:");
    Dir1.onChange = [this] { listFiles(); };
    okButton.setCaption("OK");
    okButton.onClick = [this] { confirm(); };
    cancelButton.setCaption("Cancel");
    cancelButton.onClick = [this] { window.hide(); };
}

void ScenarioFolderPanel::load() {
    position = readWindowPosition(app_.settings, kSettingsSection);
}

void ScenarioFolderPanel::unload() {
    if (position) {
        writeWindowPosition(app_.settings, kSettingsSection, *position);
    }
}

void ScenarioFolderPanel::open() {
    Dir1.setText((app_.appPath / kScenarioFolder).string());
    listFiles();
    window.show();
}

void ScenarioFolderPanel::listFiles() {
    File1.clear();
    std::vector<std::string> names;
    std::error_code ec;
    for (fs::directory_iterator it(Dir1.text(), ec), end; !ec && it != end; it.increment(ec)) {
        std::error_code fileEc;
        if (it->path().extension() == kScenarioMarkerExtension && it->is_regular_file(fileEc)) {
            names.push_back(it->path().filename().string());
        }
    }
    std::sort(names.begin(), names.end(), naturalLess);
    for (std::string& name : names) {
        File1.addItem(std::move(name));
    }
}

void ScenarioFolderPanel::confirm() {
    if (File1.count() == 0) {
        app_.dialogs.message(MessageKind::Information, kNoFilesText);
        window.hide();
        return;
    }
    const fs::path folder = Dir1.text();
    for (const std::string& name : File1.items()) {
        app_.Timers.appendEntry(name, (folder / name).string());
    }
    window.hide();
}

// ---- the scheduler ----

SchedulerPanel::SchedulerPanel(Application& app)
    : Timer1(app.loop, kClockMs), Timerinterval(app.loop, kIntervalMs), app_(app) {
    window.setCaption("Scheduler");

    Optionex1.setCaption("Disable Scheduling");
    Optionex2.setCaption("Time Of Day mode ( Change scenario at chosen times )");
    Optionex3.setCaption("Playlist Mode ( Change scenario at a specified interval )");
    for (OptionButton* mode : {&Optionex1, &Optionex2, &Optionex3}) {
        modes.add(*mode);
    }
    Optionex1.onClick = [this] { disableScheduling(); };
    Optionex2.onClick = [this] { timeOfDayMode(); };
    Optionex3.onClick = [this] { playlistMode(); };
    timeTable.setVisible(false);
    playlistView.setVisible(false);

    for (int k = 0; k < kRows; ++k) {
        ScheduleRow& row = rows[static_cast<std::size_t>(k)];
        row.enabled.setCaption("Enable this timer");
        // The texts the row is created with; only a later change arms it.
        row.scenario.setText(ScheduleRow::kNotSelected);
        row.time.setText(ScheduleRow::kMidnight);
        row.time.onChange = [this, &row] {
            row.armedTime = row.time.text();
            keepAwake();
        };
        row.reserved.add(row.reservedA);
        row.reserved.add(row.reservedB);
        row.enabled.onClick = [this, &row] {
            const bool on = row.enabled.checked();
            for (Control* c : std::initializer_list<Control*>{&row.scenario, &row.time,
                                                              &row.reservedA, &row.reservedB}) {
                c->setEnabled(on);
            }
            keepAwake();
        };
        row.enabled.onClick();
        row.browse.setCaption("...");
        row.browse.setToolTip("Choose the scenario");
        row.browse.onClick = [this, k] { browse(k); };
    }
    loadScheduleButton.setCaption("Load");
    loadScheduleButton.onClick = [this] { loadSchedule(); };
    saveScheduleButton.setCaption("Save");
    saveScheduleButton.onClick = [this] { saveSchedule(); };
    resetButton.setCaption("Reset");
    resetButton.onClick = [this] { reset(); };

    Check9.setCaption("Use Random Order");
    for (const char* interval : kIntervals) {
        Combo1.addItem(interval);
    }
    Combo1.setText(kFirstIntervalText);
    Combo1.onClick = [this] {
        counter = 0;
        parseInterval();
    };
    playlistName.setCaption(kUnnamedPlaylist);
    addFileButton.setCaption("+ File");
    addFileButton.onClick = [this] { addFile(); };
    addFolderButton.setCaption("+ Dir");
    addFolderButton.onClick = [this] { app_.frmaddscenariodirectory.open(); };
    clearButton.setCaption("Clear");
    clearButton.onClick = [this] { clearList(); };
    deleteButton.setCaption("Del");
    deleteButton.onClick = [this] { deleteEntry(); };
    upButton.setCaption("Up");
    upButton.onClick = [this] { moveEntry(-1); };
    downButton.setCaption("Dn");
    downButton.onClick = [this] { moveEntry(1); };
    loadPlaylistButton.setCaption("Load");
    loadPlaylistButton.onClick = [this] { loadPlaylist(); };
    savePlaylistButton.setCaption("Save");
    savePlaylistButton.onClick = [this] { savePlaylist(); };

    closePlainButton.setCaption("Close");
    closePlainButton.onClick = [this] { window.hide(); };
    closeTableButton.setCaption("Close");
    closeTableButton.onClick = [this] { closeView(); };
    closePlaylistButton.setCaption("Close");
    closePlaylistButton.onClick = [this] { closeView(); };

    Timer1.onTick = [this] { clockTick(); };
    Timerinterval.onTick = [this] { intervalTick(); };
}

// ---- life ----

void SchedulerPanel::load() {
    position = readWindowPosition(app_.settings, kSettingsSection);
    counter = 0;
    readPathList();
    readSession();
    keepAwake();
}

void SchedulerPanel::readPathList() {
    const auto content = readWholeFile(app_.appPath / kPathListFile);
    if (!content) {
        return;
    }
    for (const std::string& path : readLineList(*content)) {
        ScenarioPathList.addItem(path);
        ScenarioDisplayList.addItem(GetFileName(path) + kScenarioMarkerExtension);
    }
}

void SchedulerPanel::readSession() {
    Frmmain& console = app_.frmmain;
    const auto content = readWholeFile(app_.appPath / kSessionFile);
    const FieldsRead<SessionValues> read =
        content ? readFields<SessionValues>(*content, kSessionFields,
                                            [](auto& io, auto& r) { sessionFields(io, r); })
                : FieldsRead<SessionValues>{};
    if (!read.whole(kSessionFields)) {
        // No settings, or settings this program cannot read: scheduling stays off.
        Timer1.setEnabled(false);
        Timerinterval.setEnabled(false);
        plainView.setVisible(true);
        timeTable.setVisible(false);
        playlistView.setVisible(false);
        remoteLabel("Scheduler Off");
        console.LCD3.setLine(4, Combo1.text());
        return;
    }
    const SessionValues& v = read.record;
    const std::array<OptionButton*, 3> buttons = {&Optionex1, &Optionex2, &Optionex3};
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        if (v.modes[i]) {
            buttons[i]->setValue(true);
        }
    }
    Combo1.setListIndex(v.interval);
    Check9.setValue(v.randomOrder != 0 ? 1 : 0);
    for (std::size_t k = 0; k < rows.size(); ++k) {
        ScheduleRow& row = rows[k];
        row.enabled.setValue(v.schedule.enabled[k]);
        row.scenario.setText(v.schedule.scenario[k]);
        row.time.setText(v.schedule.time[k]);
        row.reservedA.setValue(v.reservedA[k]);
        row.reservedB.setValue(v.reservedB[k]);
    }
    console.LCD3.setLine(4, Combo1.text());
    refreshStatus();
}

void SchedulerPanel::unload() {
    if (position) {
        writeWindowPosition(app_.settings, kSettingsSection, *position);
    }
    writeSession();
    writeFileAtomically(app_.appPath / kPathListFile, writeLineList(ScenarioPathList.items()));
    Timer1.setEnabled(false);
    Timerinterval.setEnabled(false);
}

void SchedulerPanel::writeSession() {
    SessionValues v;
    for (std::size_t k = 0; k < rows.size(); ++k) {
        const ScheduleRow& row = rows[k];
        v.schedule.enabled[k] = row.enabled.value();
        v.schedule.scenario[k] = row.scenario.text();
        v.schedule.time[k] = row.time.text();
        v.reservedA[k] = row.reservedA.value();
        v.reservedB[k] = row.reservedB.value();
    }
    v.modes = {Optionex1.value(), Optionex2.value(), Optionex3.value()};
    v.interval = Combo1.listIndex();
    v.randomOrder = Check9.value();
    writeFileAtomically(app_.appPath / kSessionFile,
                        writeFields(v, [](auto& io, auto& r) { sessionFields(io, r); }));
}

void SchedulerPanel::show() {
    panelOpen = true;
    window.show();
}

// ---- the modes ----

void SchedulerPanel::disableScheduling() {
    Timerinterval.setEnabled(false);
    Timer1.setEnabled(false);
    plainView.setVisible(true);
    timeTable.setVisible(false);
    playlistView.setVisible(false);
    remoteLabel("Scheduler Off");
    refreshStatus();
    keepAwake();
}

void SchedulerPanel::timeOfDayMode() {
    remoteLabel("Scheduler: Enabled");
    Timerinterval.setEnabled(false);
    Timer1.setEnabled(true);
    timeTable.setVisible(true);
    plainView.setVisible(false);
    playlistView.setVisible(false);
    refreshStatus();
    keepAwake();
}

void SchedulerPanel::playlistMode() {
    Timer1.setEnabled(false);
    Timerinterval.setEnabled(true);
    counter = 0;
    refreshStatus();
    plainView.setVisible(false);
    timeTable.setVisible(false);
    playlistView.setVisible(true);
    parseInterval();
    // The next minute's status puts the count in its place.
    remoteLabel("Enabled");
    keepAwake();
}

void SchedulerPanel::parseInterval() {
    const std::string& text = Combo1.text();
    const std::size_t blank = text.find(' ');
    threshold = static_cast<int>(leadingNumber(text.substr(0, blank)));
    displayMinutes = threshold;
    if (blank != std::string::npos) {
        const std::size_t start = blank + 1;
        const std::string unit = text.substr(start, text.find(' ', start) - start);
        if (unit == "Hr") {
            displayMinutes = threshold * 60;
        }
    }
    // Started, not restarted: the minute already under way runs on.
    if (Optionex3.value()) {
        Timerinterval.setEnabled(true);
    }
    refreshStatus();
}

void SchedulerPanel::refreshStatus() {
    LcdDisplay& lcd = app_.frmmain.LCD3;
    if (!Optionex3.value()) {
        if (Optionex1.value()) {
            lcd.setLine(3, "Disabled");
            lcd.setLine(4, "N/A");
        }
        if (Optionex2.value()) {
            lcd.setLine(3, "Enabled");
            lcd.setLine(4, "N/A");
        }
        return;
    }
    const int m = displayMinutes;
    const int c = counter;
    const std::string left = std::to_string(m - c);
    // Each rule overwrites the one before; a full hour counts down only in its last
    // sixty minutes.
    if (m < 61) {
        lcd.setLine(3, "Enabled - " + left + "min");
        remoteLabel("Scheduler: On - Next: " + left + "mins");
    }
    if (m > 60) {
        lcd.setLine(3, "Enabled - >1Hr");
        remoteLabel("Scheduler: On - Next: > 1Hr");
    }
    if (m == 60) {
        lcd.setLine(3, "Enabled - 1Hr");
        remoteLabel("Scheduler: On - Next: 1Hr");
    }
    if (m >= 60 && c >= m - 60) {
        lcd.setLine(3, "Enabled - " + left + "min");
        remoteLabel("Scheduler: On - " + left + "mins");
    }
}

void SchedulerPanel::remoteLabel(std::string text) {
    app_.frmremote2.schedulerCaption.setCaption(std::move(text));
}

// ---- the ticks ----

void SchedulerPanel::clockTick() {
    for (ScheduleRow& row : rows) {
        // The clock is read again for each row.
        if (row.armedTime == app_.loop.timeOfDay() && row.enabled.value() == 1) {
            doloadroutine(row.scenario.text());
        }
    }
}

void SchedulerPanel::intervalTick() {
    ++counter;
    refreshStatus();
    if (counter < threshold) {
        return;
    }
    counter = 0;
    const int n = ScenarioDisplayList.count();
    if (n == 0) {
        return;
    }
    if (Check9.value() == 1) {
        // The last entry is never drawn.
        ScenarioDisplayList.setListIndex(static_cast<int>(app_.random.next() * (n - 1)));
    } else {
        if (ScenarioDisplayList.listIndex() == n - 1) {
            ScenarioDisplayList.setListIndex(0);
        }
        // From the end this lands on the second entry; a list of one keeps its entry.
        ScenarioDisplayList.setListIndex(ScenarioDisplayList.listIndex() + 1);
    }
    refreshStatus();
    const int index = ScenarioDisplayList.listIndex();
    ScenarioPathList.setListIndex(index);
    GetFileName(ScenarioPathList.item(index));
    loadMode = "Auto";
    app_.frmmain.doload(currentFileName);
}

// ---- loading ----

void SchedulerPanel::doloadroutine(const std::string& name) {
    if (name == ScheduleRow::kNotSelected) {
        return;
    }
    loadMode = "Auto";
    app_.frmmain.doload(name);
}

std::string SchedulerPanel::GetFileName(const std::string& path) {
    const std::size_t separator = path.find_last_of("/\\");
    std::string name = separator == std::string::npos ? path : path.substr(separator + 1);
    if (const std::size_t dot = name.find('.'); dot != std::string::npos) {
        name.resize(dot);
    }
    currentFileName = name;
    return name;
}

// ---- the time table ----

std::optional<fs::path> SchedulerPanel::chooseFile(const char* title, const char* folder,
                                                   const char* filter, bool save) {
    FileDialogRequest request;
    request.title = title;
    request.startFolder = app_.appPath / folder;
    request.filter = filter;
    return save ? app_.dialogs.saveFile(request) : app_.dialogs.openFile(request);
}

void SchedulerPanel::browse(int row) {
    if (const auto file = chooseFile("Choose Scenario", kScenarioFolder, kBrowseFilter)) {
        rows[static_cast<std::size_t>(row)].scenario.setText(
            withoutLastFour(file->filename().string()));
    }
}

void SchedulerPanel::loadSchedule() {
    const auto file = chooseFile("Load Schedule", kScheduleFolder, kScheduleFilter);
    if (!file) {
        return;
    }
    const auto content = readWholeFile(*file);
    const FieldsRead<ScheduleValues> read =
        content ? readFields<ScheduleValues>(*content, kScheduleFields,
                                             [](auto& io, auto& r) { scheduleFields(io, r); })
                : FieldsRead<ScheduleValues>{};
    if (!read.whole(kScheduleFields)) {
        // A short or damaged schedule changes nothing.
        app_.dialogs.message(MessageKind::Exclamation, kUnreadableScheduleText);
        return;
    }
    for (std::size_t k = 0; k < rows.size(); ++k) {
        rows[k].enabled.setValue(read.record.enabled[k]);
        rows[k].scenario.setText(read.record.scenario[k]);
        rows[k].time.setText(read.record.time[k]);
    }
}

void SchedulerPanel::saveSchedule() {
    const auto file = chooseFile("Save Schedule", kScheduleFolder, kScheduleFilter, true);
    if (!file || file->filename().empty()) {
        return;
    }
    ScheduleValues v;
    for (std::size_t k = 0; k < rows.size(); ++k) {
        v.enabled[k] = rows[k].enabled.value();
        v.scenario[k] = rows[k].scenario.text();
        v.time[k] = rows[k].time.text();
    }
    std::error_code ec;
    fs::create_directories(file->parent_path(), ec);
    writeFileAtomically(*file, writeFields(v, [](auto& io, auto& r) { scheduleFields(io, r); }));
}

void SchedulerPanel::reset() {
    if (!app_.dialogs.askYesNo(kResetQuestion)) {
        return;
    }
    for (ScheduleRow& row : rows) {
        row.scenario.setText(ScheduleRow::kNotSelected);
        row.time.setText(ScheduleRow::kMidnight);
        row.enabled.setValue(0);
    }
}

// ---- the playlist ----

void SchedulerPanel::appendEntry(const std::string& shownName, const std::string& path) {
    // A list holding one empty entry is taken as empty.
    for (ListBox* list : {&ScenarioDisplayList, &ScenarioPathList}) {
        if (list->count() == 1 && list->item(0).empty()) {
            list->clear();
        }
    }
    ScenarioDisplayList.addItem(shownName);
    ScenarioPathList.addItem(path);
    for (ListBox* list : {&ScenarioDisplayList, &ScenarioPathList}) {
        if (list->count() == 1) {
            list->setListIndex(0);
        }
    }
    keepAwake();
}

void SchedulerPanel::addFile() {
    if (const auto file = chooseFile("Add Scenario", kScenarioFolder, kScenarioFilter)) {
        appendEntry(file->filename().string(), file->string());
    }
}

void SchedulerPanel::clearList() {
    if (!app_.dialogs.askYesNo(kClearQuestion)) {
        return;
    }
    ScenarioDisplayList.clear();
    ScenarioPathList.clear();
    keepAwake();
}

void SchedulerPanel::deleteEntry() {
    const int index = ScenarioDisplayList.listIndex();
    if (index < 0) {
        return;
    }
    // The shown list only: the other keeps the entry, and from here the two lists
    // are out of step.
    ScenarioDisplayList.removeItem(index);
    ScenarioDisplayList.setListIndex(index - 1);
    keepAwake();
}

void SchedulerPanel::moveEntry(int by) {
    if (ScenarioDisplayList.count() == 0) {
        return;
    }
    const int from = ScenarioDisplayList.listIndex();
    ScenarioPathList.setListIndex(from);
    const int to = from + by;
    if (from < 0 || to < 0 || to >= ScenarioDisplayList.count()) {
        return;
    }
    for (ListBox* list : {&ScenarioDisplayList, &ScenarioPathList}) {
        if (from >= list->count() || to >= list->count()) {
            continue;
        }
        const std::string entry = list->item(from);
        list->removeItem(from);
        list->addItem(entry, to);
        list->setListIndex(to);
    }
}

void SchedulerPanel::playEntry(int index) {
    const std::string entry = ScenarioDisplayList.item(index);
    if (entry.empty()) {
        return;
    }
    app_.frmmain.doload(withoutLastFour(entry));
}

void SchedulerPanel::loadPlaylist() {
    const auto file = chooseFile("Load Playlist", kPlaylistFolder, kPlaylistFilter);
    if (!file) {
        return;
    }
    const auto content = readWholeFile(*file);
    if (!content) {
        return;
    }
    ScenarioDisplayList.clear();
    ScenarioPathList.clear();
    for (const std::string& line : readLineList(*content)) {
        ScenarioPathList.addItem(line);
        ScenarioDisplayList.addItem(GetFileName(line) + kScenarioMarkerExtension);
    }
    playlistName.setCaption(GetFileName(file->string()));
    app_.frmmain.updatelcdplaylist(playlistName.caption());
    keepAwake();
}

void SchedulerPanel::savePlaylist() {
    // Cancel answers the empty text, and ends the command.
    const std::string name =
        app_.dialogs.inputBox("Please type a name for your playlist", "Playlist", "");
    if (name.empty()) {
        return;
    }
    const fs::path folder = app_.appPath / kPlaylistFolder;
    const fs::path file = folder / (name + kPlaylistExtension);
    // A name that reaches out of the playlist folder is not written.
    if (file.parent_path() != folder) {
        return;
    }
    std::error_code ec;
    fs::create_directories(folder, ec);
    if (!writeFileAtomically(file, writeLineList(ScenarioDisplayList.items()))) {
        return;
    }
    playlistName.setCaption(name);
    app_.frmmain.updatelcdplaylist(name);
}

void SchedulerPanel::closeView() {
    panelOpen = false;
    if (ScenarioDisplayList.count() == 0 && Optionex3.value()) {
        app_.dialogs.message(MessageKind::Information, kEmptyPlaylistText);
        return;
    }
    window.hide();
}

void SchedulerPanel::closeWindow() {
    if (plainView.visible()) {
        closePlainButton.click();
    } else {
        closeView();
    }
}

// ---- keeping the machine awake ----

bool SchedulerPanel::changeDue() const {
    if (Optionex2.value()) {
        return std::any_of(rows.begin(), rows.end(), [](const ScheduleRow& row) {
            return row.enabled.value() == 1 && !row.armedTime.empty() &&
                   row.scenario.text() != ScheduleRow::kNotSelected;
        });
    }
    return Optionex3.value() && ScenarioDisplayList.count() > 0;
}

void SchedulerPanel::keepAwake() {
    app_.keepAwake();
}

void SchedulerPanel::docolors() {
    colours.paint(app_.scheme);
}

void ScenarioFolderPanel::docolors() {
    colours.paint(app_.scheme);
}

}  // namespace brevane
