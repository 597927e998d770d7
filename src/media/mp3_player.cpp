#include "media/mp3_player.h"

#include <algorithm>
#include <cmath>
#include <system_error>

#include "base/comma_record.h"
#include "base/dialogs.h"
#include "base/file_io.h"
#include "base/natural_order.h"
#include "base/random.h"
#include "core/application.h"
#include "engine/music_stream.h"

namespace brevane {

namespace fs = std::filesystem;

namespace {

// The top of the console's MP3 group.
constexpr int kMp3GroupTop = 5000;

}  // namespace

int mp3ControlVolume(int hscroll, int groupValue) {
    // The law's mix is a percentage, but the console's MP3 group runs to 5000 and
    // mirrors hscroll1: read as it stands, any value past about 707 on both would put
    // the bus at full level, and the top 85 % of the slider would do nothing. Read as
    // a share of the group's range the law is smooth over the whole slider, and its
    // two fixed points hold (hscroll1 5000 at a mix of 100 % is full, at 50 % -25 dB).
    if (groupValue <= 0) {
        return -10000;
    }
    const double mix = groupValue * 100.0 / kMp3GroupTop;
    const double volume = hscroll / (100.0 / mix) - 5000.0;
    return static_cast<int>(std::clamp(std::lround(volume), -10000L, 0L));
}

std::string mp3TimeText(double seconds) {
    const auto whole = seconds == -1.0 ? 0L : std::max(0L, static_cast<long>(seconds));
    const long minutes = whole / 60;
    const long rest = whole % 60;
    return std::to_string(minutes) + (rest < 10 ? ":0" : ":") + std::to_string(rest);
}

std::string mp3ShownName(const std::string& path) {
    return fs::path(path).stem().string() + ".mp3";
}

// ---- frmList ----

FrmList::FrmList(Application& app) : app_(app) {
    window.setCaption("Playlist");
    fileButton.setCaption("File");
    fileButton.setToolTip("Add a file to the playlist");
    fileButton.onClick = [this] { addFile(); };
    dirButton.setCaption("Dir");
    dirButton.setToolTip("Add every file of a folder");
    dirButton.onClick = [this] { app_.frmmainmp3.Formmp3adddir.open(); };
    selButton.setCaption("Sel");
    selButton.setToolTip("Remove the selected file");
    selButton.onClick = [this] { removeSelected(); };
    allButton.setCaption("All");
    allButton.setToolTip("Empty the playlist");
    allButton.onClick = [this] { removeAll(); };
    loadButton.setCaption("Loa");
    loadButton.setToolTip("Load a playlist");
    loadButton.onClick = [this] { loadPlaylist(); };
    saveButton.setCaption("Sav");
    saveButton.setToolTip("Save the playlist");
    saveButton.onClick = [this] { savePlaylist(); };
}

void FrmList::load() {
    const fs::path session = app_.appPath / kSessionFile;
    std::error_code ec;
    if (fs::exists(session, ec)) {
        List_Load(session);
    }
}

void FrmList::unload() {
    List_Save(app_.appPath / kSessionFile);
}

void FrmList::List_Add(const std::string& path) {
    List2.addItem(path);
    List1.addItem(mp3ShownName(path));
}

bool FrmList::List_Load(const fs::path& file) {
    const std::optional<std::string> text = readWholeFile(file);
    if (!text) {
        return false;
    }
    for (const std::string& line : readLineList(*text)) {
        List_Add(line);
    }
    return true;
}

bool FrmList::List_Save(const fs::path& file) const {
    return writeFileAtomically(file, writeLineList(List2.items()));
}

void FrmList::addFile() {
    const auto file = app_.dialogs.openFile({"", "/", kFileFilter, ""});
    if (!file) {
        return;
    }
    if (List1.count() == 1 && List1.item(0).empty()) {
        removeAll();
    }
    List_Add(file->string());
    if (List1.count() == 1) {
        List1.setListIndex(0);
    }
}

void FrmList::removeSelected() {
    if (List1.listIndex() < 0) {
        app_.dialogs.message(MessageKind::Information, kNoSelectionText);
        return;
    }
    // Each list loses the entry its own selection names: in step only while both agree.
    List1.removeItem(List1.listIndex());
    if (List2.listIndex() >= 0) {
        List2.removeItem(List2.listIndex());
    }
}

void FrmList::removeAll() {
    List1.clear();
    List2.clear();
}

void FrmList::loadPlaylist() {
    const auto file =
        app_.dialogs.openFile({kLoadTitle, app_.appPath / kPlaylistFolder, kLoadFilter, ""});
    if (file) {
        List_Load(*file);
    }
}

void FrmList::savePlaylist() {
    const auto file = app_.dialogs.saveFile({"", app_.appPath / kPlaylistFolder, kSaveFilter, ""});
    if (file && !List_Save(*file)) {
        app_.dialogs.message(MessageKind::Exclamation, kSaveFailedText);
    }
}

void FrmList::activate(int index) {
    if (index < 0 || index >= List1.count()) {
        return;
    }
    Frmmainmp3& player = app_.frmmainmp3;
    List1.setListIndex(index);
    List2.setListIndex(index);
    player.setFile();
    player.showName(List1.item(index));
    player.takeDuration();
    if (!player.Text1.text().empty()) {
        player.play();
    }
}

// ---- Formmp3adddir ----

Mp3FolderPanel::Mp3FolderPanel(Application& app) : app_(app) {
    window.setCaption("Add Folder");
    folderLabel.setCaption("Select the folder holding your music:");
    filesLabel.setCaption("Files in the selected folder:");
    Dir1.onChange = [this] { listFiles(); };
    browseButton.setCaption("Browse...");
    browseButton.onClick = [this] {
        if (auto folder = app_.dialogs.chooseFolder("Add Folder", Dir1.text())) {
            Dir1.setText(folder->string());
        }
    };
    okButton.setCaption("OK");
    okButton.onClick = [this] { confirm(); };
    cancelButton.setCaption("Cancel");
    cancelButton.onClick = [this] { window.hide(); };
}

void Mp3FolderPanel::load() {
    position = readWindowPosition(app_.settings, kSettingsSection);
}

void Mp3FolderPanel::unload() {
    if (position) {
        writeWindowPosition(app_.settings, kSettingsSection, *position);
    }
}

void Mp3FolderPanel::open() {
    if (Dir1.text().empty()) {
        Dir1.setText(app_.appPath.root().string());
    }
    listFiles();
    window.show();
}

void Mp3FolderPanel::listFiles() {
    File1.clear();
    std::vector<std::string> names;
    std::error_code ec;
    for (fs::directory_iterator it(Dir1.text(), ec), end; !ec && it != end; it.increment(ec)) {
        std::error_code fileEc;
        std::string ext = it->path().extension().string();
        std::transform(ext.begin(), ext.end(), ext.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        if (ext == ".mp3" && it->is_regular_file(fileEc)) {
            names.push_back(it->path().filename().string());
        }
    }
    std::sort(names.begin(), names.end(), naturalLess);
    for (std::string& name : names) {
        File1.addItem(std::move(name));
    }
}

void Mp3FolderPanel::confirm() {
    if (File1.count() == 0) {
        app_.dialogs.message(MessageKind::Information, kNoFilesText);
        return;
    }
    FrmList& list = app_.frmmainmp3.frmList;
    const fs::path folder = Dir1.text();
    for (const std::string& name : File1.items()) {
        list.List_Add((folder / name).string());
    }
    window.hide();
}

// ---- frmmainmp3 ----

Frmmainmp3::Frmmainmp3(Application& app)
    : Timer1(app.loop, kClockMs),
      watch(app.loop, kWatchMs),
      frmList(app),
      Formmp3adddir(app),
      app_(app) {
    window.setCaption("MP3 Player");
    cmdplay.setCaption("Play");
    cmdplay.onClick = [this] { play(); };
    command7.setCaption("Pause");
    command7.onClick = [this] { pause(); };
    Command3.setCaption("Next");
    Command3.onClick = [this] { next(); };
    command4.setCaption("Previous");
    command4.onClick = [this] { previous(); };
    COMMAND5.setCaption("Open");
    COMMAND5.onClick = [this] { openFile(); };
    closeButton.setCaption("Close");
    closeButton.onClick = [this] {
        panelOpen = false;
        window.hide();
    };
    Check1.setCaption("Playlist");
    Check1.onClick = [this] { frmList.window.setVisible(Check1.checked()); };
    optrnd.setCaption("Random");
    Slider1.setCaption("Position");
    hscroll1.setCaption("Volume");
    lblTime.setCaption("00:00");
    lblTime.watch([this] { LCD1.setLine(3, lblTime.caption()); });
    Slider1.onChange = [this] {
        if (MediaPlayer* p = player(); p != nullptr && !following_ && holdsBus()) {
            p->setPosition(Slider1.value());
        }
    };
    hscroll1.onChange = [this] {
        app_.frmmain.MP3.setValue(hscroll1.value());
        applyVolume();
    };
    app.frmmain.onGroupMoved(MixGroup::MP3, [this](int value) {
        hscroll1.setValue(value);
        applyVolume();
    });
    Timer1.onTick = [this] { tick(); };
    watch.onTick = [this] {
        MediaPlayer* p = player();
        if (p != nullptr && holdsBus() && p->takeEnded()) {
            trackEnded();
        }
        // Asked only while it plays: a player left alone wakes nothing for hours.
        if (p == nullptr || !holdsBus() || !p->playing()) {
            watch.setEnabled(false);
        }
    };
}

MediaPlayer* Frmmainmp3::player() const {
    return app_.engine.mediaPlayer();
}

bool Frmmainmp3::holdsBus() const {
    const MediaPlayer* p = player();
    return p != nullptr && p->sourceSerial() == busSerial_;
}

void Frmmainmp3::load() {
    position = readWindowPosition(app_.settings, kSettingsSection);
    frmList.load();
    Formmp3adddir.load();
    hscroll1.setValue(app_.frmmain.MP3.value());
}

void Frmmainmp3::unload() {
    if (position) {
        writeWindowPosition(app_.settings, kSettingsSection, *position);
    }
    frmList.unload();
    Formmp3adddir.unload();
    Timer1.setEnabled(false);
    watch.setEnabled(false);
    if (MediaPlayer* p = player()) {
        p->clear();
    }
}

void Frmmainmp3::open() {
    panelOpen = true;
    window.show();
}

void Frmmainmp3::applyVolume() {
    if (MediaPlayer* p = player(); p != nullptr && holdsBus()) {
        p->setVolume(mp3ControlVolume(hscroll1.value(), app_.frmmain.MP3.value()));
    }
}

void Frmmainmp3::play() {
    Timer1.setEnabled(true);
    watch.setEnabled(true);
    ListBox& shown = frmList.List1;
    if (shown.listIndex() < 0) {
        shown.setListIndex(0);
    }
    frmList.List2.setListIndex(shown.listIndex());
    const std::string path = frmList.List2.item(frmList.List2.listIndex());
    if (path.empty()) {
        showName(kNoTrackText);
        return;
    }
    // The same file again resumes it, unless the CD player has had the bus since.
    if (Text1.text() != path || !holdsBus()) {
        setFile();
    }
    applyVolume();
    showName(shown.item(shown.listIndex()));
    takeDuration();
    if (MediaPlayer* p = player()) {
        p->play();  // a file that would not open stays silent, without a message
    }
}

void Frmmainmp3::pause() {
    if (MediaPlayer* p = player(); p != nullptr && holdsBus()) {
        p->pause();
    }
}

bool Frmmainmp3::setFile() {
    const std::string path = frmList.List2.item(frmList.List2.listIndex());
    Text1.setText(path);
    MediaPlayer* p = player();
    if (p == nullptr) {
        return true;
    }
    if (path.empty()) {
        if (holdsBus()) {
            p->clear();
        }
        busSerial_ = p->sourceSerial();
        return true;
    }
    const bool opened = p->setFile(path);
    busSerial_ = p->sourceSerial();
    return opened;
}

void Frmmainmp3::showName(const std::string& name) {
    LCD1.setLine(1, name);
}

void Frmmainmp3::takeDuration() {
    const MediaPlayer* p = player();
    const double length = p == nullptr ? 0.0 : p->duration();
    Slider1.setRange(0, static_cast<int>(std::lround(length)));
}

void Frmmainmp3::step(int by) {
    if (optrnd.checked()) {
        trackEnded();
        return;
    }
    ListBox& shown = frmList.List1;
    if (shown.count() == 0) {
        return;
    }
    const int at = std::clamp(shown.listIndex() + by, 0, shown.count() - 1);
    shown.setListIndex(at);
    frmList.List2.setListIndex(at);
    setFile();
    showName(shown.item(at));
}

void Frmmainmp3::next() {
    step(1);
}

void Frmmainmp3::previous() {
    step(-1);
}

void Frmmainmp3::openFile() {
    const auto file = app_.dialogs.openFile({"", "/", kOpenFilter, ""});
    if (!file) {
        return;
    }
    frmList.removeAll();
    frmList.List_Add(file->string());
    frmList.List1.setListIndex(0);
    play();
}

void Frmmainmp3::trackEnded() {
    Slider1.setValue(0);
    ListBox& shown = frmList.List1;
    ListBox& paths = frmList.List2;
    const int count = shown.count();
    if (count == 0) {
        return;
    }
    if (optrnd.checked()) {
        reseed();
        const int index = std::min(count - 1, static_cast<int>(app_.random.next() * count));
        shown.setListIndex(index);
        paths.setListIndex(index);
        const bool opened = setFile();
        if (paths.item(index).empty()) {
            app_.dialogs.message(MessageKind::Information, kNotFoundText);
        } else if (!opened) {
            app_.dialogs.message(MessageKind::Exclamation, kPlayErrorText);
        } else {
            play();
        }
        return;
    }
    const int at = shown.listIndex();
    if (at < count - 1) {
        shown.setListIndex(at + 1);
        paths.setListIndex(at + 1);
        if (!setFile()) {
            app_.dialogs.message(MessageKind::Exclamation, kPlayErrorText);
            return;
        }
        play();
    }
    // At the last entry the list stops: there is no repeat. The old test for a count
    // equal to the selection can never hold with a selection, but one entry goes back
    // to the start.
    if (count == 1) {
        shown.setListIndex(0);
    }
}

void Frmmainmp3::reseed() {
    const LocalTime t = app_.loop.localTime();
    const std::int64_t secondOfDay = (t.hour * 60 + t.minute) * 60 + t.second;
    app_.random.seed(static_cast<std::uint64_t>(secondOfDay * 1000 + app_.loop.now() % 1000));
}

void Frmmainmp3::tick() {
    const MediaPlayer* p = player();
    if (p == nullptr || !holdsBus()) {
        return;
    }
    TxtTime.setText(mp3TimeText(p->position()) + " / " + mp3TimeText(p->duration()));
    lblTime.setCaption(TxtTime.text());
    // The slider follows the play position; moved this way it does not seek.
    following_ = true;
    Slider1.setValue(static_cast<int>(std::max(0.0, p->position())));
    following_ = false;
}

void FrmList::docolors() {
    colours.paint(app_.scheme);
}

void Mp3FolderPanel::docolors() {
    colours.paint(app_.scheme);
}

void Frmmainmp3::docolors() {
    colours.paint(app_.scheme);
    paintDisplay(LCD1, app_.scheme);
}

}  // namespace brevane
