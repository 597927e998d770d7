#include "scheduling/alarm_panel.h"

#include <chrono>
#include <filesystem>

#include "base/comma_record.h"
#include "base/dialogs.h"
#include "base/field_list.h"
#include "base/file_io.h"
#include "core/application.h"

namespace brevane {

namespace fs = std::filesystem;

namespace {

constexpr std::array<const char*, 6> kDurations = {"10", "30", "60", "120", "300", "600"};

std::string twoDigits(int value) {
    return value < 10 ? "0" + std::to_string(value) : std::to_string(value);
}

// alarm.tmp: nine fields.
struct SessionValues {
    int duration = 0;
    int repeat = 0;
    int fade = 0;
    int volume = 0;
    int closeProgram = 0;
    int shutdown = 0;
    std::string soundFile;
    std::string hour;
    std::string minute;
};

template <class Io, class V>
void sessionFields(Io& io, V& v) {
    io.number(v.duration);
    io.number(v.repeat);
    io.number(v.fade);
    io.number(v.volume);
    io.number(v.closeProgram);
    io.number(v.shutdown);
    io.text(v.soundFile);
    io.text(v.hour);
    io.text(v.minute);
}

}  // namespace

AlarmPanel::AlarmPanel(Application& app)
    : Timer1(app.loop, kClockMs),
      Timer3(app.loop, kFadeMs),
      Timercountdown(app.loop, kCountdownMs),
      app_(app) {
    window.setCaption("Alarm Configuration");
    Text1.setText("00");
    Text2.setText("00");
    Text1.onChange = [this] { checkalarms(); };
    Text2.onChange = [this] { checkalarms(); };
    VScroll1.onChange = [this] { Text1.setText(twoDigits(23 - VScroll1.value())); };
    VScroll2.onChange = [this] { Text2.setText(twoDigits(59 - VScroll2.value())); };
    durationLabel.setCaption("Play alarm for                    secs");
    repeatCheck.setCaption("Repeat alarm continuously");
    repeatCheck.onClick = [this] { scombobox1.setEnabled(!repeatCheck.checked()); };
    fadeCheck.setCaption("Fade in alarm volume");
    closeProgramCheck.setCaption("Close program when alarm time is reached ");
    closeProgramCheck.onClick = [this] {
        if (closeProgramCheck.checked()) {
            shutdownCheck.setChecked(false);
        }
    };
    shutdownCheck.setCaption("Shutdown computer when alarm time is reached ");
    shutdownCheck.onClick = [this] {
        if (shutdownCheck.checked()) {
            closeProgramCheck.setChecked(false);
        }
    };
    hscroll2.onChange = [this] { app_.engine.setVolume(channel, hscroll2.value()); };
    hscroll2.setToolTip("The alarm's loudness; at 0 it plays unheard");
    wavname.setCaption("Current File to be played");

    testButton.setCaption("Test Alarm");
    testButton.onClick = [this] { testAlarm(); };
    stopTestButton.setCaption("Stop Test");
    stopTestButton.setEnabled(false);
    stopTestButton.onClick = [this] { stopTest(); };
    chooseButton.setCaption("Choose Alarm");
    chooseButton.onClick = [this] { chooseAlarm(); };
    useDefaultButton.setCaption("Use Default");
    useDefaultButton.onClick = [this] { useDefault(); };
    stopAlarmButton.setCaption("Stop Alarm");
    stopAlarmButton.setEnabled(false);
    stopAlarmButton.onClick = [this] { stopAlarm(); };
    closeButton.setCaption("Close");
    closeButton.onClick = [this] { window.hide(); };

    Timer1.onTick = [this] { clockTick(); };
    Timer3.onTick = [this] { fadeTick(); };
    Timercountdown.onTick = [this] { countdownTick(); };
}

// ---- life ----

void AlarmPanel::load() {
    position = readWindowPosition(app_.settings, kSettingsSection);
    soundFile = (app_.appPath / kDefaultSound).string();
    wavname.setCaption(soundFile);
    for (const char* d : kDurations) {
        scombobox1.addItem(d);
    }
    scombobox1.setText("60");
    readSession();
    Timer1.setEnabled(true);
}

void AlarmPanel::readSession() {
    const auto content = readWholeFile(app_.appPath / kSessionFile);
    if (!content) {
        return;
    }
    const FieldsRead<SessionValues> read =
        readFields<SessionValues>(*content, 9, [](auto& io, auto& r) { sessionFields(io, r); });
    const SessionValues& v = read.record;
    // What the file holds, as far as it reads. The spinners run their own rule after
    // the texts, so a kept time comes back mirrored.
    if (read.has(8)) {
        Text1.setText(v.hour);
        VScroll1.setValue(static_cast<int>(leadingNumber(v.hour)));
    }
    if (read.has(9)) {
        Text2.setText(v.minute);
        VScroll2.setValue(static_cast<int>(leadingNumber(v.minute)));
    }
    if (read.has(1)) {
        scombobox1.setListIndex(v.duration);
    }
    if (read.has(2)) {
        repeatCheck.setValue(v.repeat != 0 ? 1 : 0);
    }
    if (read.has(3)) {
        fadeCheck.setValue(v.fade != 0 ? 1 : 0);
    }
    if (read.has(4)) {
        hscroll2.setValue(v.volume);
    }
    // Fields 5 and 6, close program and shutdown, never survive a restart.
    if (read.has(7)) {
        soundFile = v.soundFile;
        wavname.setCaption(soundFile);
    }
}

void AlarmPanel::unload() {
    SessionValues v;
    v.duration = scombobox1.listIndex();
    v.repeat = repeatCheck.value();
    v.fade = fadeCheck.value();
    v.volume = hscroll2.value();
    v.closeProgram = closeProgramCheck.value();
    v.shutdown = shutdownCheck.value();
    v.soundFile = soundFile;
    v.hour = Text1.text();
    v.minute = Text2.text();
    writeFileAtomically(app_.appPath / kSessionFile,
                        writeFields(v, [](auto& io, auto& r) { sessionFields(io, r); }));
    if (position) {
        writeWindowPosition(app_.settings, kSettingsSection, *position);
    }
    for (Timer* t : {&Timer1, &Timer3, &Timercountdown}) {
        t->setEnabled(false);
    }
    setArmed(0);
}

// ---- the console's commands ----

std::string AlarmPanel::alarmTime() const {
    return Text1.text() + ":" + Text2.text() + ":00";
}

void AlarmPanel::setArmed(int value) {
    armed = value;
    // Awake while the alarm is due, or a scheduled change.
    app_.keepAwake();
}

void AlarmPanel::refresh() {
    Frmmain& console = app_.frmmain;
    const bool on = app_.AlarmArmed != "False";
    if (on) {
        console.LCD2.setLine(4, alarmTime());
        app_.frmremote2.alarmCaption.setCaption("Alarm: " + alarmTime());
    }
    console.alarmOnButton.setEnabled(!on);
    console.alarmOffButton.setEnabled(on);
}

void AlarmPanel::alarmOn() {
    Frmmain& console = app_.frmmain;
    console.alarmOffButton.setEnabled(true);
    console.alarmOnButton.setEnabled(false);
    app_.AlarmArmed = "True";
    refresh();
    setArmed(1);
}

void AlarmPanel::alarmOff() {
    Frmmain& console = app_.frmmain;
    app_.AlarmArmed = "False";
    console.alarmOffButton.setEnabled(false);
    console.alarmOnButton.setEnabled(true);
    refresh();
    stopAlarmButton.setEnabled(false);
    stopTest();
    setArmed(0);
    console.LCD2.setLine(4, kDisabledStatus);
    app_.frmremote2.alarmCaption.setCaption("Alarm: Off");
}

void AlarmPanel::checkalarms() {
    if (app_.AlarmArmed != "True") {
        app_.frmmain.LCD2.setLine(4, "Disabled");
        app_.frmremote2.alarmCaption.setCaption("Alarm: Off");
        return;
    }
    refresh();
}

void AlarmPanel::resized(bool minimized) {
    if (!minimized) {
        window.setCaption("Alarm Clock");
        return;
    }
    // The medium time: twelve hours, hours and minutes, AM or PM.
    const LocalTime now = app_.loop.localTime();
    const int hour12 = now.hour % 12 == 0 ? 12 : now.hour % 12;
    window.setCaption(twoDigits(hour12) + ":" + twoDigits(now.minute) +
                      (now.hour < 12 ? " AM" : " PM"));
}

// ---- the clock ----

void AlarmPanel::clockTick() {
    if (armed != 1 || alarmTime() != app_.loop.timeOfDay()) {
        return;
    }
    if (shutdownCheck.checked()) {
        // The machine powers off half a minute later; the program ends at once.
        app_.power.schedulePowerOff(std::chrono::seconds(kPowerOffDelaySeconds));
        app_.requestExit(ExitKind::Immediate);
        return;
    }
    if (closeProgramCheck.checked()) {
        app_.requestExit(ExitKind::Immediate);
        return;
    }
    if (fadeCheck.checked()) {
        fadeTarget = hscroll2.value();
        hscroll2.setValue(0);
        Timer3.setEnabled(true);
    }
    app_.frmmain.LCD2.setLine(4, kPlayingStatus);
    app_.frmremote2.alarmCaption.setCaption("Alarm Playing");
    loadSound();
    channel = app_.engine.play(sample);
    app_.engine.setVolume(channel, hscroll2.value());
    app_.engine.setLoopMode(channel, LoopMode::Normal);
    stopAlarmButton.setEnabled(true);
    if (!repeatCheck.checked()) {
        Timercountdown.setEnabled(true);
    }
    setArmed(0);
}

void AlarmPanel::fadeTick() {
    hscroll2.setValue(hscroll2.value() + 1);
    app_.engine.setVolume(channel, hscroll2.value());
    if (hscroll2.value() == fadeTarget) {
        Timer3.setEnabled(false);
    }
}

void AlarmPanel::countdownTick() {
    ++countdown;
    // The play runs one second past the duration.
    if (countdown <= static_cast<int>(leadingNumber(scombobox1.text()))) {
        return;
    }
    stopAlarmButton.setEnabled(false);
    app_.engine.stop(channel);
    app_.frmmain.LCD2.setLine(4, kDisabledStatus);
    app_.frmremote2.alarmCaption.setCaption("Alarm: Off");
    app_.AlarmArmed = "False";
    setArmed(0);
    refresh();
    countdown = 0;
    Timercountdown.setEnabled(false);
}

// ---- the panel's commands ----

void AlarmPanel::loadSound() {
    sample = app_.engine.loadSample(soundFile);
}

void AlarmPanel::testAlarm() {
    app_.engine.stop(channel);
    loadSound();
    channel = app_.engine.play(sample);
    app_.engine.setLoopMode(channel, LoopMode::Normal);
    app_.engine.setVolume(channel, kTestVolume);
    testButton.setEnabled(false);
    stopTestButton.setEnabled(true);
}

void AlarmPanel::stopTest() {
    app_.AlarmArmed = "False";
    refresh();
    app_.engine.stop(channel);
    testButton.setEnabled(true);
    stopTestButton.setEnabled(false);
}

void AlarmPanel::chooseAlarm() {
    app_.engine.stop(channel);
    FileDialogRequest request;
    request.title = "Choose Alarm";
    request.startFolder = app_.appPath / "config/alarms";
    request.filter = kSoundFilter;
    if (const auto file = app_.dialogs.openFile(request)) {
        soundFile = file->string();
        loadSound();
        wavname.setCaption(soundFile);
    }
}

void AlarmPanel::useDefault() {
    soundFile = (app_.appPath / kDefaultSound).string();
    wavname.setCaption(soundFile);
    loadSound();
}

void AlarmPanel::stopAlarm() {
    Timercountdown.setEnabled(false);
    app_.AlarmArmed = "False";
    refresh();
    setArmed(0);
    stopAlarmButton.setEnabled(false);
    refresh();
    app_.engine.stop(channel);
}

void AlarmPanel::docolors() {
    colours.paint(app_.scheme);
}

}  // namespace brevane
