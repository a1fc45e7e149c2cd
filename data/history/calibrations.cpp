#include "data/history/calibrations.h"

#include "data/assets/assets.h"
#include "data/history/standard_records.h"
#include "data/history/statement_parts.h"
#include "data/small_routines.h"
#include "platform/values/numbers.h"
#include "platform/values/texts.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

using Record = CalibrationRecord;

struct TextColumn {
    SqlWords column;
    QString Record::*member;
};

constexpr TextColumn textColumns[] = {
    {u"ctag", &Record::ctag},
    {u"c2308", &Record::state},
    {u"c2323", &Record::passed},
    {u"c2307", &Record::technician},
    {u"c2306", &Record::laboratory},
    {u"c2309", &Record::procedure},
    {u"c2320", &Record::strategy},
    {u"c2315", &Record::place},
    {u"c2316", &Record::workOrder},
    {u"c2311", &Record::externalTemperature},
    {u"c2312", &Record::ambientTemperature},
    {u"c2313", &Record::humidity},
    {u"c2326", &Record::remarks},
    {u"c2329", &Record::furtherRemarks},
    {u"c2350", &Record::marginalPoints},
    {u"c2352", &Record::failedPoints},
    {u"cdsrc", &Record::source},
};

struct MomentColumn {
    SqlWords column;
    StoredMoment Record::*member;
};

constexpr MomentColumn momentColumns[] = {
    {u"c2301", &Record::date},
    {u"c2333", &Record::time},
    {u"c2303", &Record::due},
    {u"c2334", &Record::dueTime},
};

struct RunName {
    QStringView state;
    CalibrationRun run;
};

constexpr RunName runNames[] = {
    {u"AS-FOUND", CalibrationRun::asFound},
    {u"AS-LEFT", CalibrationRun::asLeft},
    {u"FOUND-LEFT", CalibrationRun::foundLeft},
};

/// The order of time.
Sql newestFirst() {
    return u" order by " + nullsLast(u"c2301") + u" desc," + nullsLast(u"c2333") + u" desc,ctag desc";
}

/// Among the records of one day, one without a time can be told from the others only by when it was made:
/// such a day is in the order of the records' numbers.
void orderDaysWithoutTime(QList<Record>& records) {
    const auto differ = [](const Record& one, const Record& next) {
        return one.date.moment.date != next.date.moment.date;
    };
    for (auto day = records.begin(); day != records.end();) {
        const auto edge = std::adjacent_find(day, records.end(), differ);
        const auto end = edge == records.end() ? edge : std::next(edge);
        const bool isOneWithoutTime =
            std::any_of(day, end, [](const Record& record) { return !record.time.moment.time.isValid(); });
        if (day->date.hasDate() && isOneWithoutTime)
            std::stable_sort(day, end, [](const Record& one, const Record& other) {
                return numericValue(one.ctag) > numericValue(other.ctag);
            });
        day = end;
    }
}

class History {
  public:
    History(Session& session, Routine& routine, const QString& asset)
        : session_(session),
          routine_(routine),
          asset_(asset),
          ofInstrument_(ModuleGlobals::mtagOf(session, ModuleGlobals::SQLSafe(asset))) {}

    QList<Record> read() {
        readRecords();
        readStandards();
        readLines();
        return std::move(records_);
    }

  private:
    void readRecords();
    void readStandards();
    void readLines();
    /// The record of a key; null for a key of none.
    Record* recordOf(const std::optional<QString>& ctag);

    Session& session_;
    Routine& routine_;
    const QString& asset_;
    /// The query that gives the instrument's key.
    Sql ofInstrument_;
    QList<Record> records_;
    QHash<QString, qsizetype> places_;
};

void History::readRecords() {
    Sql columns = u"";
    for (const auto& column : textColumns)
        columns += Sql(column.column) + u",";
    Sql link = u"";
    for (const auto& column : momentColumns) {
        columns += link + Sql(column.column);
        link = u",";
    }
    const auto rows = routine_.select(u"select " + columns + u" from " + sqlName(session_.SessionOwner) +
                                      u".calibration where mtag = " + ofInstrument_ + newestFirst());
    while (rows->next()) {
        Record record;
        int place = 0;
        for (const auto& column : textColumns)
            record.*column.member = storedText(rows->value(place++));
        for (const auto& column : momentColumns)
            record.*column.member = storedMomentOf(rows->value(place++));
        record.run = calibrationRunOf(record.state);
        records_ << std::move(record);
    }
    orderDaysWithoutTime(records_);
    for (qsizetype place = 0; place < records_.size(); ++place)
        places_.insert(records_[place].ctag, place);
}

Record* History::recordOf(const std::optional<QString>& ctag) {
    const auto place = places_.constFind(storedText(ctag));
    return place == places_.cend() ? nullptr : &records_[*place];
}

void History::readStandards() {
    const StandardRecords standards(session_, routine_, asset_);
    const auto rows = routine_.select(
        u"select used.ctag,used.c2430,inv.i4201,inv.i4204,inv.i4206 from mt.standards used "
        "left outer join " +
        sqlName(session_.SessionOwner) + u".inventory inv on inv.mtag = used.c2430 where used.mtag = " +
        ofInstrument_ + u" order by used.ctag asc,inv.i4201 asc,used.c2430 asc");
    while (rows->next()) {
        auto* record = recordOf(rows->value(0));
        if (record == nullptr)
            continue;
        UsedStandard standard;
        standard.mtag = storedText(rows->value(1));
        standard.asset = rows->value(2).value_or(QString());
        standard.description = storedText(rows->value(3));
        standard.serial = storedText(rows->value(4));
        if (record->date.hasDate())
            standards.describe(standard, {record->date.moment.date, record->time.moment.time});
        record->standards << standard;
    }
}

/// The number of a line may be a text, which the engine would order as one.
void History::readLines() {
    struct Line {
        double number;
        QString text;
    };
    QHash<QString, QList<Line>> lines;
    const auto rows = routine_.select(u"select ctag,c2502,c2501 from mt.calresults where mtag = " +
                                      ofInstrument_ + u" order by ctag asc,c2502 asc");
    while (rows->next()) {
        auto& ofRecord = lines[storedText(rows->value(0))];
        const auto number = numericValue(rows->value(1).value_or(QString()));
        ofRecord << Line{number, rows->value(2).value_or(QString())};
    }
    for (auto& record : records_) {
        auto ofRecord = lines.value(record.ctag);
        std::ranges::stable_sort(ofRecord, {}, &Line::number);
        for (const auto& line : ofRecord)
            record.lines << line.text;
    }
}

} // namespace

CalibrationRun calibrationRunOf(const QString& state) {
    const auto* found = std::ranges::find(runNames, toUpperCase(state), &RunName::state);
    return found == std::end(runNames) ? CalibrationRun::other : found->run;
}

std::optional<QList<CalibrationRecord>> calibrationsOf(Session& session, const QString& asset) {
    Routine routine(session, u"History,calibrations"_s);
    return routine.resultOf([&] { return History(session, routine, asset).read(); });
}

} // namespace kelvane
