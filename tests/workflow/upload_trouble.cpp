#include "tests/workflow/upload_trouble.h"

#include "data/journal/journal.h"
#include "platform/database/odbc_connection.h"

#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const Error refused{1, u"trouble"_s, u"HY000"_s};
const Error locked{5, u"database is locked"_s, u"HY000"_s};
const Error lost{10054, u"connection lost"_s, u"08S01"_s, true};

/// The torque calibrator's numbers don't come over the line unharmed when one of their bytes is 10 to 15.
bool isUnharmed(int minute) {
    for (int rest = minute / 60 * 10000 + minute % 60 * 100; rest != 0; rest /= 256) {
        if (rest % 256 >= 10 && rest % 256 <= 15)
            return false;
    }
    return true;
}

} // namespace

void TroubleSource::before() {
    if (isLost)
        throw lost;
    if (++count != number)
        return;
    if (trouble == Trouble::fails)
        throw refused;
    if (trouble == Trouble::isBusy)
        throw locked;
    isLost = trouble == Trouble::isLost || trouble == Trouble::isCarriedOutAndLost;
    if (trouble == Trouble::isLost)
        throw lost;
}

void TroubleSource::after() const {
    if (count != number)
        return;
    if (trouble == Trouble::carryOutAndFail)
        throw refused;
    if (trouble == Trouble::isCarriedOutAndLost)
        throw lost;
}

void TroubledConnection::before() {
    if (maker_.isLost && endConnection_)
        return; // the statement fails by itself
    try {
        maker_.before();
    } catch (const Error& error) {
        if (!error.connectionLost || !endConnection_)
            throw;
        endConnection_();
    }
}

void TroubledConnection::after() {
    if (maker_.isLost && endConnection_)
        endConnection_();
    maker_.after();
}

UploadInTrouble::UploadInTrouble()
    : session({ui, clock, settings}, [this] {
          return std::make_unique<TroubledConnection>(odbcConnections()(), maker, endConnection);
      }) {
    session.SessionDataSource = database.dsn();
    session.SessionDateFormat = u"MM/DD/YYYY"_s;
    session.SessionDbVersion = 6;
    session.SessionUser = u"jdoe"_s;
    session.SessionOwner = u"MT"_s;
    session.SessionConnected = true;
    session.ResultTemplateLine = u"TN$ FVA$           FRE$           TR$   CO$"_s;
    logInAgain();
}

void UploadInTrouble::logInAgain() {
    auto& connection = sharedConnection(session);
    connection.close();
    connection.open(database.connectionString(), u"jdoe"_s, u"kelvane"_s);
}

const QString& UploadInTrouble::day() {
    static const auto date = u"2026-03-18"_s;
    return date;
}

QStringList UploadInTrouble::rows(const QString& query, int columns) {
    return database.rows(sharedConnection(session), query, columns);
}

/// The records of the moment, each with what belongs to it.
QStringList UploadInTrouble::recordsOf(const Instrument& instrument) {
    QStringList found;
    const auto records =
        rows(u"select ctag from mt.calibration where c2301 = '%1' and c2333 = '%2' and mtag = "
             "'%3' order by ctag"_s.arg(day(), time, instrument.mtag));
    for (const auto& ctag : records) {
        auto whole =
            rows(u"select c2323,c2303,c2308,c2350,c2352,c2307 from mt.calibration where ctag = "_s + ctag, 6);
        whole += rows(u"select c2502,c2501 from mt.calresults where ctag = %1 order by c2502"_s.arg(ctag), 2);
        whole += rows(u"select c2430 from mt.standards where ctag = %1 order by c2430"_s.arg(ctag));
        found << whole.join(u'\n');
    }
    return found;
}

bool UploadInTrouble::isWhole(const Instrument& instrument) {
    return recordsOf(instrument) == instrument.whole;
}

bool UploadInTrouble::isListed(const Instrument& instrument) {
    const auto results = unfinishedResults(session);
    return std::any_of(results.cbegin(), results.cend(),
                       [&](const UnfinishedResult& result) { return result.asset == instrument.asset; });
}

void UploadInTrouble::makeRecords() {
    for (const auto& result : unfinishedResults(session))
        makeRecordOf(session, result.id);
}

void UploadInTrouble::expectNothingLost(const QString& result) {
    for (const auto& instrument : std::as_const(instruments)) {
        EXPECT_LE(recordsOf(instrument).size(), 1) << "doubled";
        if (isWhole(instrument) || isListed(instrument))
            continue;
        EXPECT_FALSE(result.isEmpty()) << "success over " << instrument.asset.toStdString();
        EXPECT_TRUE(isStored(instrument.asset)) << "lost: " << instrument.asset.toStdString();
    }
}

void UploadInTrouble::expectWholeAndOnlyRecords() {
    for (const auto& instrument : std::as_const(instruments)) {
        EXPECT_EQ(recordsOf(instrument), instrument.whole) << instrument.asset.toStdString();
        EXPECT_EQ(rows(u"select count(*) from mt.inventory where mtag = '%1' and i4224 is null and i4225 is "
                       "null and i4230 = '%2'"_s.arg(instrument.mtag, day())),
                  QStringList{u"1"_s})
            << "what a calibration changes in the inventory";
    }
    EXPECT_EQ(
        rows(u"select count(*) from mt.calibration where c2333 = '%1' and c2301 = '%2'"_s.arg(time, day())),
        QStringList{QString::number(instruments.size())})
        << "a record of no instrument";
    EXPECT_TRUE(unfinishedResults(session).isEmpty());
}

/// The steps of the users: they log in again, make the listed records, and upload the results that are left.
void UploadInTrouble::recover() {
    maker = {};
    session.SessionConnected = true;
    makeRecords();
    const auto lacksRecord = [this](const Instrument& instrument) { return !isWhole(instrument); };
    if (std::none_of(instruments.cbegin(), instruments.cend(), lacksRecord))
        return;
    upload();
    makeRecords();
}

void UploadInTrouble::tryEachStatement(bool writingOnly) {
    int minute = 0;
    const auto prepare = [this, &minute] {
        do {
            ++minute;
        } while (!isUnharmed(minute));
        time = QTime(0, 0).addSecs(minute * 60).toString(u"HH:mm:ss"_s);
        for (const auto& instrument : std::as_const(instruments))
            execute(u"update mt.inventory set i4224 = 'RECALLED', i4225 = '2026-01-01', i4230 = null where "
                    "mtag = '%1'"_s.arg(instrument.mtag));
        calibrate(minute);
    };
    prepare();
    maker = {};
    ASSERT_EQ(upload(), QString());
    const int statements = maker.count;
    const auto writing = maker.writing;
    for (auto& instrument : instruments) {
        instrument.whole = recordsOf(instrument);
        ASSERT_EQ(instrument.whole.size(), 1);
    }
    ASSERT_GT(statements, 60);
    for (int number = 1; number <= statements; ++number) {
        if (writingOnly && !writing.contains(number))
            continue;
        prepare();
        maker = {.trouble = GetParam(), .number = number};
        const auto result = upload();
        maker.number = 0;
        const bool wasLost = std::exchange(maker.isLost, false);
        if (wasLost)
            logInAgain();
        SCOPED_TRACE("statement " + std::to_string(number) + (wasLost ? ", lost" : "") + " at " +
                     time.toStdString() + ": " + result.toStdString() + "\n" +
                     folder.read(u"errors.log"_s).toStdString());
        expectNothingLost(result);
        recover();
        expectWholeAndOnlyRecords();
        if (HasFailure())
            return;
        // Both would grow from statement to statement.
        QFile::remove(Journal(session).path());
        QFile::remove(u"errors.log"_s);
    }
}

} // namespace kelvane::testing
