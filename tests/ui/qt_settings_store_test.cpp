#include "ui/platform/qt_settings_store.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

namespace brevane {
namespace {

// Keeps the desktop's settings in a temporary folder for the test's length.
class QtSettingsStoreTest : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(dir_.isValid());
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, dir_.path());
    }
    QString file() const { return dir_.filePath(QStringLiteral("Brevane/Brevane.conf")); }

    QTemporaryDir dir_;
};

TEST_F(QtSettingsStoreTest, ValuesSurviveIntoTheNextRunUnderTheProgramsName) {
    {
        QtSettingsStore store;
        store.setValue("Settings17", "Mainleft", "1200");
        store.setValue("Settings17", "Maintop", "-40");
        store.setValue("Settings4", "Maintop", "300");
    }
    EXPECT_TRUE(QFile::exists(file()));
    QtSettingsStore next;
    EXPECT_EQ(next.value("Settings17", "Mainleft"), "1200");
    EXPECT_EQ(next.value("Settings17", "Maintop"), "-40");
    EXPECT_EQ(next.value("Settings4", "Maintop"), "300");
}

TEST_F(QtSettingsStoreTest, NamesCompareWithoutCaseMissingValuesAreMissingAndSectionsSeparate) {
    QtSettingsStore store;
    store.setValue("Settings26", "Mainleft", "77");
    EXPECT_EQ(store.value("settings26", "MAINLEFT"), "77");
    store.setValue("Settings26", "MainLeft", "78");
    EXPECT_EQ(store.value("Settings26", "Mainleft"), "78");

    EXPECT_FALSE(store.value("Settings3", "Mainleft").has_value());
    EXPECT_FALSE(store.value("Settings26", "Maintop").has_value());
    EXPECT_EQ(store.valueOr("Settings3", "Maintop", "2"), "2");
    store.setValue("Settings26", "Empty", "");
    EXPECT_EQ(store.value("Settings26", "Empty"), "");
}

TEST_F(QtSettingsStoreTest, TextWithCommasQuotesAndAccentsComesBackAsWritten) {
    const std::string awkward = "Forêt, \"nuit\" = 3; [x]";
    {
        QtSettingsStore store;
        store.setValue("Settings9", "Name", awkward);
        store.sync();
    }
    EXPECT_EQ(QtSettingsStore().value("Settings9", "Name"), awkward);
}

}  // namespace
}  // namespace brevane
