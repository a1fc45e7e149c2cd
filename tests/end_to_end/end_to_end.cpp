#include "tests/end_to_end/end_to_end.h"

#include "tests/platform/errors.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

EndToEndTest::EndToEndTest(const QString& calibrator, QString serial) : serial_(std::move(serial)) {
    screen.name = calibrator;
    QFile::copy(QStringLiteral(KELVANE_DEMO_TEMPLATE), u"rslt_db.frm"_s);
    workplace.start();
}

QHash<QString, QString> EndToEndTest::databaseSettings() {
    return {{u"Timeout"_s, u"200"_s}};
}

void EndToEndTest::list(const QString& asset, const QString& standard) {
    if (!standard.isEmpty()) {
        const auto question = text(TextId::standardToUse);
        const auto caption = asset + u": "_s + text(TextId::externalStandardRequired);
        ui.expectDialog(caption, question, standard);
        ui.expectDialog(caption, question, {});
    }
    addToDownloadList(calibrators, screen, asset);
    EXPECT_TRUE(ui.hasMetAll());
    EXPECT_TRUE(screen.list.contains(asset)) << asset.toStdString();
}

void EndToEndTest::download(const QString& message) {
    ui.expectBox(message, downloadTitle(),
                 message == messages::downloaded() ? box::information : box::warning);
    downloadList(calibrators, screen);
    EXPECT_TRUE(ui.hasMetAll());
    EXPECT_FALSE(ui.busy);
}

void EndToEndTest::expectChoice() {
    ui.expectDialog(uploadTitle(), text(TextId::selectCalibratorToUse), screen.name);
}

void EndToEndTest::expectRecord(const QString& asset, std::function<void()> meanwhile) {
    const auto caption = text(TextId::calibrationRecordData) + u" ("_s + asset + u')';
    const auto prompt = text(TextId::enterInformationFor) + u' ';
    ui.expectDialog(caption, prompt + u"Place of Calibration"_s, u"IN PLACE"_s);
    ui.expectDialog(caption, prompt + u"Ambient Temperature (C)"_s, u"21.5"_s,
                    [act = std::move(meanwhile)](const DialogQuestion&) {
                        if (act)
                            act();
                    });
}

void EndToEndTest::expectRefusal() {
    ui.expectBox(messages::recordExists(), text(TextId::recordCreation), box::stop);
}

void EndToEndTest::pressUpload(const QString& message) {
    ui.expectBox(message, uploadTitle(), message == messages::uploaded() ? box::information : box::warning);
    ModuleGlobals::UploadFromCalibrator(calibrators);
    EXPECT_TRUE(ui.hasMetAll());
    EXPECT_FALSE(ui.busy);
    EXPECT_FALSE(ui.progressShown);
}

QStringList EndToEndTest::withoutRecord() {
    QStringList assets;
    for (const auto& result : unfinishedResults(session))
        assets << result.asset;
    return assets;
}

void EndToEndTest::makeRecords() {
    const auto results = unfinishedResults(session);
    for (const auto& result : results) {
        const auto begun = rows(
            u"select ctag from mt.calibration where cdsrc = 'KVN' and c2301 || ' ' || c2333 = '%1' and mtag "
            "= (select mtag from mt.inventory where i4201 = '%2')"_s.arg(result.date, result.asset));
        if (begun.isEmpty())
            expectRecord(result.asset);
        const auto outcome = makeRecordOf(session, result.id);
        EXPECT_TRUE(ui.hasMetAll());
        EXPECT_EQ(outcome.end, MakeRecordOutcome::End::made) << outcome.message.toStdString();
    }
    EXPECT_EQ(withoutRecord(), QStringList());
}

QStringList EndToEndTest::rows(const QString& query, int columns) {
    return database.rows(sharedConnection(session), query, columns);
}

QStringList EndToEndTest::registered() {
    return rows(u"select i4201 from mt.hvm_kv_task_inuse, mt.inventory where inventory.mtag = "
                "hvm_kv_task_inuse.mtag and serial_number = '%1' order by i4201"_s.arg(serial_));
}

QStringList EndToEndTest::standardsInUse(const QString& asset) {
    return rows(u"select i4201 from mt.hvm_kv_task_standards_inuse, mt.inventory where inventory.mtag = "
                "standard_mtag and hvm_kv_task_standards_inuse.mtag = (select mtag from mt.inventory where "
                "i4201 = '"_s +
                asset + u"') order by i4201"_s);
}

QStringList EndToEndTest::records(const QString& asset) {
    return rows(
        u"select c2323,(select count(*) from mt.standards where standards.ctag = calibration.ctag),(select "
        "count(*) from mt.calresults where calresults.ctag = calibration.ctag) from mt.calibration where "
        "cdsrc = 'KVN' and c2301 = '"_s +
            workDay() + u"' and mtag = (select mtag from mt.inventory where i4201 = '"_s + asset +
            u"') order by ctag"_s,
        3);
}

void EndToEndTest::expectSoundDatabase() {
    if (database.isShared())
        return;
    const auto fresh = database.connect();
    for (const auto& owner : {u"main"_s, u"mt"_s, u"std"_s, u"abc"_s, u"sys"_s})
        EXPECT_EQ(queryRows(*fresh, u"pragma "_s + owner + u".integrity_check"_s), QStringList{u"ok"_s})
            << owner.toStdString();
}

void EndToEndTest::logInAgain(DatabaseOutage& outage) {
    EXPECT_NE(errorOf([&] { workplace.logIn(); }), 0);
    EXPECT_FALSE(session.SessionConnected);
    outage.end();
    workplace.logIn();
    EXPECT_TRUE(session.SessionConnected);
}

std::unique_ptr<QProcess> EndToEndTest::startCommand(int moment, const QStringList& downloaded) {
    return simulators::startProgram(
        u"end_to_end_command"_s,
        QStringList{database.dsn(), simulatorFolder.link(), QString::number(moment), screen.name} +
            downloaded);
}

/// A Wednesday whose number comes over the torque calibrator's line unharmed, before every day of the
/// demonstration data.
const QString& EndToEndTest::workDay() {
    static const auto day = u"2021-06-16"_s;
    return day;
}

} // namespace kelvane::testing
