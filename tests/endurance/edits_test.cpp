#include "endurance/edits.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using endure::Edits;

/// Stations whose logs are written here, each line with its moment.
class EditsOfStations : public ::testing::Test {
  protected:
    void write(int station, const QStringList& lines) {
        const auto name = u"station-%1"_s.arg(station);
        const QDir top(folder_.path());
        top.mkpath(name);
        QString log = lines.join(u'\n') + u'\n';
        folder_.write(name + u"/acts.log"_s, log.replace(u'|', u'\t').toUtf8());
        folders_ << top.filePath(name);
    }
    Edits edits() const { return Edits(folders_); }

    const QString subject = u"strategy ENDURE 0"_s;

  private:
    OwnFolder folder_;
    QStringList folders_;
};

TEST_F(EditsOfStations, ASavedEditThatALaterOneReplacesIsNotLost) {
    write(0, {u"100|edit|8 save strategy ENDURE 0"_s, u"110|edited|8"_s, u"111|end|"_s});
    write(1, {u"120|edit|9 save strategy ENDURE 0"_s, u"130|edited|9"_s, u"131|end|"_s});
    EXPECT_EQ(edits().lostEdit(subject, 9), std::nullopt);
}

TEST_F(EditsOfStations, ASavedEditIsLostWhenAnEarlierOneIsStored) {
    write(0, {u"100|edit|8 save strategy ENDURE 0"_s, u"110|edited|8"_s, u"111|end|"_s});
    write(1, {u"120|edit|9 save strategy ENDURE 0"_s, u"130|edited|9"_s, u"131|end|"_s});
    EXPECT_EQ(edits().lostEdit(subject, 8), 9);
}

TEST_F(EditsOfStations, ASavedEditIsLostWhenNothingIsStored) {
    write(0, {u"100|edit|8 save strategy ENDURE 0"_s, u"110|edited|8"_s, u"111|end|"_s});
    EXPECT_EQ(edits().lostEdit(subject, {}), 8);
    EXPECT_EQ(edits().lostEdit(u"strategy ENDURE 1"_s, {}), std::nullopt);
}

TEST_F(EditsOfStations, EditsThatOverlapMayEndInEitherOrder) {
    write(0, {u"100|edit|8 save strategy ENDURE 0"_s, u"130|edited|8"_s, u"131|end|"_s});
    write(1, {u"110|edit|9 save strategy ENDURE 0"_s, u"120|edited|9"_s, u"121|end|"_s});
    EXPECT_EQ(edits().lostEdit(subject, 8), std::nullopt);
    EXPECT_EQ(edits().lostEdit(subject, 9), std::nullopt);
}

TEST_F(EditsOfStations, AnEditThatFailedMayStandOnlyUntilALaterOneIsSaved) {
    write(0, {u"100|edit|8 save strategy ENDURE 0"_s, u"110|end|"_s});
    EXPECT_EQ(edits().lostEdit(subject, 8), std::nullopt);
    write(1, {u"120|edit|9 save strategy ENDURE 0"_s, u"130|edited|9"_s, u"131|end|"_s});
    EXPECT_EQ(edits().lostEdit(subject, 8), 9);
}

TEST_F(EditsOfStations, AnEditWhoseProcessWasKilledMayStandAtAnyTime) {
    write(0, {u"100|edit|8 save strategy ENDURE 0"_s, u"105|start|"_s, u"106|end|"_s});
    write(1, {u"120|edit|9 save strategy ENDURE 0"_s, u"130|edited|9"_s, u"131|end|"_s});
    EXPECT_EQ(edits().lostEdit(subject, 8), std::nullopt);
}

TEST_F(EditsOfStations, NothingMayBeStoredBehindARemovalOnly) {
    write(0, {u"100|edit|8 save strategy ENDURE 0"_s, u"110|edited|8"_s, u"111|end|"_s});
    write(1, {u"120|edit|9 remove strategy ENDURE 0"_s, u"130|edited|9"_s, u"131|end|"_s});
    EXPECT_EQ(edits().lostEdit(subject, {}), std::nullopt);
    EXPECT_EQ(edits().lostEdit(subject, 8), 9) << "the removal is lost";
}

TEST_F(EditsOfStations, WhatIsEmptyIsOfAnEditThatFailed) {
    write(0, {u"100|edit|8 save strategy ENDURE 0"_s, u"110|end|"_s});
    EXPECT_EQ(edits().lostEditOfEmpty(subject), std::nullopt);
    write(1, {u"120|edit|9 save strategy ENDURE 0"_s, u"130|edited|9"_s, u"131|end|"_s});
    EXPECT_EQ(edits().lostEditOfEmpty(subject), 9);
}

TEST_F(EditsOfStations, SavedEditsAreListed) {
    write(0, {u"100|edit|8 save worksheet"_s, u"110|edited|8"_s, u"111|end|"_s,
              u"112|edit|16 save worksheet"_s, u"113|end|"_s});
    EXPECT_EQ(edits().saved(u"worksheet"_s), QList<int>{8});
}

} // namespace kelvane::testing
