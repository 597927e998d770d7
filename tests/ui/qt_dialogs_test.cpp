#include "ui/platform/qt_dialogs.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>

#include "modal_helper.h"

namespace brevane {
namespace {

using testing::answerNextDialog;

TEST(QtFileFilter, TurnsNamePatternPairsIntoQtEntriesWithoutRepeatingPatterns) {
    const std::pair<const char*, const char*> cases[] = {
        {"Zip Files|*.zip", "Zip Files (*.zip)"},
        {"Playlist Files|*.plf|All|*.*", "Playlist Files (*.plf);;All (*.*)"},
        {"", ""},
        {"Background Config Files (*.bcf)|*.bcf", "Background Config Files (*.bcf)"},
        // A space before the pattern, as some panels write it.
        {"Brevane 6.0 Scenario Files (*.scn)| *.scn", "Brevane 6.0 Scenario Files (*.scn)"},
        // Qt reads the patterns from the last brackets, so the name's comma list must
        // give way to the real, space-separated one.
        {"All Supported Samples (*.wav, *.mp3, *.ogg, *.wma)|*.wav;*.ogg;*.mp3;*.wma",
         "All Supported Samples (*.wav *.ogg *.mp3 *.wma)"},
        {"Notes (old)|*.txt", "Notes (old) (*.txt)"},
        {"Everything", "Everything (*)"},
        {"Zip Files|*.zip|", "Zip Files (*.zip)"},
        {"|*.scn", "(*.scn)"},
    };
    for (const auto& [filter, qt] : cases) {
        EXPECT_EQ(qtFileFilter(filter), QString::fromUtf8(qt)) << filter;
    }
}

TEST(QtDialogsMessages, MessageShowsItsKindTextAndTitleWhichDefaultsToTheProgramsName) {
    QtDialogs dialogs;
    struct Case {
        MessageKind kind;
        QMessageBox::Icon icon;
        const char* title;
    };
    for (const Case c : {Case{MessageKind::Information, QMessageBox::Information, "Scenario"},
                         Case{MessageKind::Exclamation, QMessageBox::Warning, "Scenario"},
                         Case{MessageKind::Critical, QMessageBox::Critical, ""}}) {
        QString text, title;
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        answerNextDialog<QMessageBox>([&](QMessageBox& box) {
            text = box.text();
            title = box.windowTitle();
            icon = box.icon();
            box.accept();
        });
        dialogs.message(c.kind, "Not saved\r\n<try again>", c.title);
        EXPECT_EQ(text, QStringLiteral("Not saved\n<try again>"));
        EXPECT_EQ(title, *c.title ? QString::fromUtf8(c.title) : QStringLiteral("Brevane"));
        EXPECT_EQ(icon, c.icon);
    }
}

TEST(QtDialogsMessages, QuestionAnswersYesOrNoAndEscapeMeansNo) {
    QtDialogs dialogs;
    for (const bool yes : {true, false}) {
        QString text;
        answerNextDialog<QMessageBox>([&](QMessageBox& box) {
            text = box.text();
            box.button(yes ? QMessageBox::Yes : QMessageBox::No)->click();
        });
        EXPECT_EQ(dialogs.askYesNo("Overwrite?"), yes);
        EXPECT_EQ(text, QStringLiteral("Overwrite?"));
    }
    answerNextDialog<QMessageBox>([](QMessageBox& box) { box.reject(); });
    EXPECT_FALSE(dialogs.askYesNo("Delete the preset?"));
}

TEST(QtDialogsInput, InputBoxOffersTheDefaultAndCancelGivesEmptyText) {
    QtDialogs dialogs;
    QString label, offered, title;
    answerNextDialog<QInputDialog>([&](QInputDialog& d) {
        label = d.labelText();
        offered = d.textValue();
        title = d.windowTitle();
        d.setTextValue(QStringLiteral("Evening Rain"));
        d.accept();
    });
    EXPECT_EQ(dialogs.inputBox("Name of the preset", "Save As", "Untitled"), "Evening Rain");
    EXPECT_EQ(label, QStringLiteral("Name of the preset"));
    EXPECT_EQ(offered, QStringLiteral("Untitled"));
    EXPECT_EQ(title, QStringLiteral("Save As"));

    answerNextDialog<QInputDialog>([](QInputDialog& d) { d.reject(); });
    EXPECT_EQ(dialogs.inputBox("Name", "", "Untitled"), "");
}

class QtFileDialogsTest : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(dir_.isValid());
        QFile f(dir_.filePath(QStringLiteral("storm.bcf")));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    }
    std::filesystem::path folder() const { return dir_.path().toStdString(); }

    QTemporaryDir dir_;
    QtDialogs dialogs_;
};

TEST_F(QtFileDialogsTest, OpenFileStartsWhereAskedWithTheFilterAndGivesTheChoiceOrNothingOnCancel) {
    QString title, shownFolder;
    QStringList filters;
    answerNextDialog<QFileDialog>([&](QFileDialog& d) {
        title = d.windowTitle();
        shownFolder = d.directory().absolutePath();
        filters = d.nameFilters();
        d.selectFile(QStringLiteral("storm.bcf"));
        // accept() is the dialog's own, reached through QDialog as a button would.
        static_cast<QDialog&>(d).accept();
    });
    const auto chosen = dialogs_.openFile(
        {"Load Bank", folder(), "Background Config Files (*.bcf)|*.bcf|All|*.*", ""});
    EXPECT_EQ(title, QStringLiteral("Load Bank"));
    EXPECT_EQ(shownFolder, QDir(dir_.path()).absolutePath());
    EXPECT_EQ(filters, (QStringList{QStringLiteral("Background Config Files (*.bcf)"),
                                    QStringLiteral("All (*.*)")}));
    ASSERT_TRUE(chosen.has_value());
    EXPECT_EQ(*chosen, folder() / "storm.bcf");

    answerNextDialog<QFileDialog>([](QFileDialog& d) { d.reject(); });
    EXPECT_FALSE(dialogs_.openFile({"Load", folder(), "Zip Files|*.zip", ""}).has_value());
}

TEST_F(QtFileDialogsTest, SaveFileOffersThePresetNameAndTheFolderChooserGivesAFolder) {
    QStringList offered;
    QFileDialog::AcceptMode mode = QFileDialog::AcceptOpen;
    answerNextDialog<QFileDialog>([&](QFileDialog& d) {
        offered = d.selectedFiles();
        mode = d.acceptMode();
        static_cast<QDialog&>(d).accept();
    });
    const auto chosen = dialogs_.saveFile({"Save Bank", folder(), "Bank|*.bcf", "0"});
    EXPECT_EQ(mode, QFileDialog::AcceptSave);
    ASSERT_EQ(offered.size(), 1);
    EXPECT_EQ(offered.front(), dir_.filePath(QStringLiteral("0")));
    ASSERT_TRUE(chosen.has_value());
    EXPECT_EQ(*chosen, folder() / "0");

    // The folder chooser shows only folders and gives the folder.
    ASSERT_TRUE(QDir(dir_.path()).mkdir(QStringLiteral("slideshow")));
    bool foldersOnly = false;
    answerNextDialog<QFileDialog>([&](QFileDialog& d) {
        foldersOnly =
            d.fileMode() == QFileDialog::Directory && d.testOption(QFileDialog::ShowDirsOnly);
        d.selectFile(dir_.filePath(QStringLiteral("slideshow")));
        static_cast<QDialog&>(d).accept();
    });
    const auto folderChosen = dialogs_.chooseFolder("Select Folder", folder());
    EXPECT_TRUE(foldersOnly);
    ASSERT_TRUE(folderChosen.has_value());
    EXPECT_EQ(*folderChosen, folder() / "slideshow");
}

}  // namespace
}  // namespace brevane
