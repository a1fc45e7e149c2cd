#include "testkit/torque_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString listUnread =
    u"The instruments of the download could not be read from the database. The calibrator was not changed."_s;

} // namespace

/// What a download that can't read something leaves as it was.
class TorqueDownloadFailures : public TorqueFixture {
  protected:
    QString download() { return ModuleTSInterface::TorqueStar_download(driver, u"TAG"_s); }
};

TEST_F(TorqueDownloadFailures, ALostDatabaseIsReportedAndTheDownloadEnds) {
    addWrenches(u"TAG"_s, 1);
    script.lost = true;
    ui.expectReport(10054, u"ModuleGlobals,AssetfromSerial"_s);
    EXPECT_EQ(download(), listUnread);
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_EQ(conversation(), (QStringList{u"T0A"_s, u"T0D"_s}));
    EXPECT_EQ(writes(), QStringList());
}

TEST_F(TorqueDownloadFailures, AListThatCantBeReadLeavesCalibratorAndRegistryAsTheyWere) {
    addWrenches(u"TAG"_s, 2);
    const Error refused{208, u"Invalid object"_s, u"42S02"_s};
    for (const auto& statement : {selectPackage(u"TAG"_s), selectMembers(u"TAG"_s)}) {
        peer.received.clear();
        script.transactions.clear();
        script.failures = {{statement, refused}};
        ui.expectReport(208, u"ModuleGlobals,GetAssetsInTaskPackage"_s);
        EXPECT_EQ(download(), listUnread);
        EXPECT_TRUE(ui.hasMetAll());
        EXPECT_EQ(conversation(), (QStringList{u"T0A"_s, u"T0D"_s}));
        EXPECT_EQ(script.transactions, (QStringList{u"begin"_s, u"roll back"_s}));
    }
    script.failures.clear();
    script.transactions.clear();
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(script.transactions, (QStringList{u"begin"_s, u"commit"_s}));
}

TEST_F(TorqueDownloadFailures, APackageWithMembersThatTheInventoryDoesNotKnowIsAFailure) {
    addCalibrator();
    addPackage(u"TAG"_s, {});
    script.answers.insert(u"select tptag from mt.hvm_kv_task_assets where tptag = 'TAG'"_s, {{u"TAG"_s}});
    EXPECT_EQ(
        download(),
        u"None of the instruments of the download was found in the inventory. The calibrator was not changed."_s);
    EXPECT_EQ(conversation(), (QStringList{u"T0A"_s, u"T0D"_s}));
    EXPECT_EQ(script.transactions, (QStringList{u"begin"_s, u"roll back"_s}));
}

TEST_F(TorqueDownloadFailures, ParametersThatCantBeReadEndTheDownloadBeforeTheToolIsDeleted) {
    addWrenches(u"TAG"_s, 1);
    const Error refused{208, u"Invalid object"_s, u"42S02"_s};
    const struct {
        QString statement;
        QString routine;
    } reads[] = {{selectParams(u"W-1"_s), u"GetCalParams"_s},
                 {selectStandards(u"W-1"_s), u"GetInUseData"_s},
                 {selectParams(u"X-1"_s), u"GetCalParams"_s}};
    for (const auto& read : reads) {
        peer.received.clear();
        script.failures = {{read.statement, refused}};
        ui.expectReport(208, u"ModuleGlobals,"_s + read.routine);
        EXPECT_EQ(
            download(),
            u"W-1: The calibration parameters, test messages or tolerance could not be read from the database. The download ended there."_s);
        EXPECT_EQ(conversation(), (QStringList{u"T0A"_s, u"T0D"_s})) << read.statement.toStdString();
    }
}

TEST_F(TorqueDownloadFailures, MoreStandardsThanTheListTakesAreReportedAndTheFirstIsTheTransducer) {
    addWrenches(u"TAG"_s, 1);
    QStringList standards{u"X-1"_s};
    while (standards.size() < 52)
        standards << u"S-%1"_s.arg(standards.size());
    addStandards(u"W-1"_s, standards);
    ui.expectReport(9, u"ModuleGlobals,GetInUseData"_s);
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(conversation().filter(u"T1A"_s).size(), 1);
}

TEST_F(TorqueDownloadFailures, TheStatusLineNamesTheToolBeingLoadedAndIsClearedAtTheEnd) {
    addWrenches(u"TAG"_s, 2);
    const QStringList whole{u"Loading W-1 onto the calibrator (1 of 2)"_s,
                            u"Loading W-2 onto the calibrator (2 of 2)"_s, QString()};
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(ui.activities, whole);
    ui.activities.clear();
    replies["T1A"] << QByteArray("t1A\x01");
    EXPECT_NE(download(), QString());
    EXPECT_EQ(ui.activities, (QStringList{whole.first(), QString()}));
}

} // namespace kelvane::testing
