#include "base/dialogs.h"

#include <gtest/gtest.h>

namespace brevane {
namespace {

TEST(ScriptedDialogs, AnswersFromItsQueuesThenDeclinesAndRecordsEverything) {
    ScriptedDialogs d;
    d.answerYesNo(true);
    d.answerInput("My Scenario");
    d.answerFile(std::filesystem::path("/tmp/a.bcf"));
    EXPECT_TRUE(d.askYesNo("Really Quit?"));
    EXPECT_FALSE(d.askYesNo("Again?"));
    EXPECT_EQ(d.inputBox("Name?", "Save", ""), "My Scenario");
    EXPECT_EQ(d.inputBox("Name?", "Save", "x"), "");
    EXPECT_EQ(d.openFile({"Load", "/tmp", "Config Files (*.bcf)|*.bcf", ""}),
              std::filesystem::path("/tmp/a.bcf"));
    EXPECT_FALSE(d.saveFile({"Save", "/tmp", "Config Files (*.bcf)|*.bcf", ""}));
    d.message(MessageKind::Exclamation, "The file could not be loaded");
    ASSERT_EQ(d.shown().size(), 7u);
    EXPECT_EQ(d.shown()[0].text, "Really Quit?");
    EXPECT_EQ(d.shown()[4].request.filter, "Config Files (*.bcf)|*.bcf");
    EXPECT_EQ(d.messages(), std::vector<std::string>{"The file could not be loaded"});
}

}  // namespace
}  // namespace brevane
