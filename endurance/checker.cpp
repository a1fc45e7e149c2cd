#include "endurance/checker.h"

#include "data/tolerances/result_template.h"
#include "endurance/act_log.h"
#include "platform/values/numbers.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <algorithm>
#include <cmath>
#include <map>

using namespace Qt::StringLiterals;

namespace kelvane::endure {

namespace {

constexpr std::size_t readingField = 3;

QString roundKey(const QString& asset, int station, int number) {
    return u"%1 %2 %3"_s.arg(asset).arg(station).arg(number);
}

} // namespace

Checker::Checker(Connection& connection, QStringList folders, const QString& resultTemplate, SiteRows before)
    : connection_(connection), folders_(std::move(folders)), edits_(folders_), before_(std::move(before)) {
    const ResultTemplate body(resultTemplate);
    readingColumn_ = body.columnOf(readingField);
    readingWidth_ = body.columnOf(readingField + 1) - readingColumn_;
}

QList<Checker::Row> Checker::rows(const QString& query, int columns) {
    QList<Row> found;
    for (const auto set = connection_.select(query); set->next();) {
        Row row;
        for (int column = 0; column < columns; ++column)
            row << set->value(column).value_or(QString());
        found << row;
    }
    return found;
}

void Checker::expect(bool holds, const QString& fault) {
    if (!holds)
        findings_.faults << fault;
}

Findings Checker::check() {
    readInventory();
    readRecords();
    checkCurrentMarks();
    checkSiteRows();
    for (int station = 0; station < folders_.size(); ++station) {
        checkUploads(station);
        checkJournal(station);
        checkRegistry(station);
    }
    checkWorksheets();
    checkStrategies();
    checkMessages();
    checkPackages();
    checkParameters();
    return findings_;
}

void Checker::readInventory() {
    for (const auto& row : rows(u"select mtag,i4201 from mt.inventory"_s, 2))
        assets_.insert(row[0], row[1]);
    for (const auto& row :
         rows(u"select mtag,output_low,output_high,resolution from mt.hvm_kv_tag_config"_s, 4))
        scales_.insert(assets_.value(row[0]), {row[1].toDouble(), row[2].toDouble(), row[3].toDouble()});
}

void Checker::readRecords() {
    for (const auto& row :
         rows(u"select ctag,mtag,c2301,c2333,c2312 from mt.calibration where cdsrc = 'KVN'"_s, 5)) {
        Record record;
        record.asset = assets_.value(row[1]);
        if (wholeOf(row[4]) >= worksheetMark(0)) {
            record.mark = QString::number(wholeOf(row[4]));
            worksheets_.insert(record.mark, row[0]);
            ++findings_.worksheets;
        } else if (const auto round = roundOf(row[2], row[3])) {
            record.round = round;
            byRound_.insert(roundKey(record.asset, round->station, round->number), row[0]);
            ++findings_.records;
        } else {
            continue; // the site's own
        }
        records_.insert(row[0], record);
    }
    for (const auto& row : rows(u"select ctag,c2502,c2501 from mt.calresults"_s, 3)) {
        if (auto record = records_.find(row[0]); record != records_.end())
            record->lines[row[1].toInt()] << row[2];
    }
    for (const auto& row : rows(u"select ctag,c2430 from mt.standards"_s, 2)) {
        if (auto record = records_.find(row[0]); record != records_.end())
            record->standards << row[1];
    }
}

void Checker::checkCurrentMarks() {
    QHash<QString, int> marks;
    for (const auto& record : std::as_const(records_))
        marks.insert(record.asset, 0);
    for (const auto& row :
         rows(u"select mtag,count(ctag) from mt.calibration where c2339 = '1' group by mtag"_s, 2))
        marks.insert(assets_.value(row[0]), row[1].toInt());
    for (auto mark = marks.cbegin(); mark != marks.cend(); ++mark)
        expect(mark.value() == 1, u"%1 has %2 current records"_s.arg(mark.key()).arg(mark.value()));
}

void Checker::checkSiteRows() {
    const auto keys = records_.keys();
    findings_.faults << faultsOfSiteRows(before_, readSiteRows(connection_, {keys.begin(), keys.end()}));
}

/// What the calibrator held when a round was carried out has one record each; of a round that was cut off
/// while it was put in there may be none.
void Checker::checkUploads(int station) {
    QSet<QString> known;
    for (const auto& line : ActLog::read(folders_[station])) {
        if (line.kind != u"offered" && line.kind != u"offering")
            continue;
        const auto words = line.text.split(u' ', Qt::SkipEmptyParts);
        for (const auto& item : words.sliced(1)) {
            const auto asset = item.section(u':', 0, 0);
            const auto key = roundKey(asset, station, words[0].toInt());
            const auto records = byRound_.values(key);
            known << key;
            if (line.kind == u"offered")
                expect(!records.isEmpty(), u"the record of %1 is lost"_s.arg(key));
            if (line.kind == u"offering")
                expect(records.size() < 2, u"%1 has %2 records"_s.arg(key).arg(records.size()));
            for (const auto& record : line.kind == u"offered" ? records : QStringList())
                checkUpload(records_[record], key, item.section(u':', 1).toInt());
        }
    }
    for (auto record = byRound_.cbegin(); record != byRound_.cend(); ++record) {
        if (records_[record.value()].round->station == station)
            expect(known.contains(record.key()),
                   u"there is a record of %1, which nobody has carried out"_s.arg(record.key()));
    }
}

void Checker::checkUpload(const Record& record, const QString& name, int lines) {
    expect(record.lines.size() == lines,
           u"the record of %1 has %2 lines of %3"_s.arg(name).arg(record.lines.size()).arg(lines));
    const auto& scale = scales_[record.asset];
    const double reading = scale.low + record.round->fraction() * (scale.high - scale.low);
    for (auto line = record.lines.cbegin(); line != record.lines.cend(); ++line) {
        expect(line->size() == 1 && line.key() >= 0 && line.key() < lines,
               u"the record of %1 has line %2 %3 times"_s.arg(name).arg(line.key()).arg(line->size()));
        const auto shown = line->first().mid(readingColumn_, readingWidth_);
        expect(std::abs(numericValue(shown) - reading) <= 0.55 * scale.resolution,
               u"a line of another record stands in that of %1: %2"_s.arg(name, line->first()));
    }
    const auto own = calibratorKey(record.round->station);
    expect(record.standards.contains(own), u"the record of %1 lacks its calibrator"_s.arg(name));
    for (const auto& standard : record.standards)
        expect(standard.startsWith(u"99") && record.standards.count(standard) == 1,
               u"the record of %1 has the standard %2 wrongly"_s.arg(name, standard));
}

/// Nothing is left without a record, and what ended as done has one.
void Checker::checkJournal(int station) {
    const QDir folder(folders_[station]);
    std::map<QString, QJsonObject> entries;
    for (const auto& name : folder.entryList({u"*.journal"_s}, QDir::Files)) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        for (const auto& line : file.readAll().split('\n')) {
            const auto content = QJsonDocument::fromJson(line).object();
            auto& entry = entries[content["id"_L1].toString()];
            for (auto key = content.begin(); key != content.end(); ++key)
                entry[key.key()] = key.value();
        }
    }
    for (const auto& [id, entry] : entries) {
        const auto state = entry["state"_L1].toString();
        if (id.isEmpty() || !entry.contains("raw"_L1))
            continue;
        const QString name = entry["asset"_L1].toString() + u' ' + entry["date"_L1].toString() + u' ' +
                             entry["time"_L1].toString();
        expect(state != u"unfinished", u"station %1: %2 is unfinished"_s.arg(station).arg(name));
        if (entry["driver"_L1] != "worksheet"_L1)
            continue;
        for (const auto& field : entry["raw"_L1]["fields"_L1].toArray()) {
            const int mark = wholeOf(field[1].toString());
            if (field[0].toString() != u"C2312" || mark < worksheetMark(0))
                continue; // one that had not been filled in far enough
            const auto count = worksheets_.count(QString::number(mark));
            const bool isDone = state == u"done";
            expect(isDone ? count == 1 : count <= 1,
                   u"the worksheet %1 (%2, %3) has %4 records"_s.arg(name, field[1].toString(), state)
                       .arg(count));
        }
    }
}

void Checker::checkWorksheets() {
    for (const int edit : edits_.saved(u"worksheet"_s))
        expect(worksheets_.contains(QString::number(worksheetMark(edit))),
               u"the worksheet %1, which was saved, has no record"_s.arg(worksheetMark(edit)));
    for (auto worksheet = worksheets_.cbegin(); worksheet != worksheets_.cend(); ++worksheet) {
        const auto& record = records_[worksheet.value()];
        const QString name = record.asset + u' ' + worksheet.key();
        expect(record.lines.isEmpty(), u"lines stand in the worksheet record of %1"_s.arg(name));
        expect(record.standards == QStringList{u"1203"_s},
               u"the worksheet record of %1 has the standards %2"_s.arg(name, record.standards.join(u' ')));
    }
}

/// The registry holds what the calibrator does, once, and the calibrator as the standard of it.
void Checker::checkRegistry(int station) {
    QStringList held;
    for (const auto& line : ActLog::read(folders_[station])) {
        if (line.kind == u"downloaded")
            held = line.text.split(u' ');
    }
    held.sort();
    const auto listed = [&](const QString& query) {
        QStringList assets;
        for (const auto& row : rows(query, 1))
            assets << assets_.value(row[0]);
        assets.sort();
        return assets;
    };
    const auto inUse = listed(
        u"select mtag from mt.hvm_kv_task_inuse where serial_number = '%1'"_s.arg(calibratorSerial(station)));
    const auto standards =
        listed(u"select mtag from mt.hvm_kv_task_standards_inuse where standard_mtag = '%1'"_s.arg(
            calibratorKey(station)));
    expect(inUse == held, u"station %1 holds %2, the registry says %3"_s.arg(station).arg(held.join(u' '),
                                                                                          inUse.join(u' ')));
    expect(standards == held, u"station %1 holds %2, its standards are %3"_s.arg(station).arg(
                                  held.join(u' '), standards.join(u' ')));
}

} // namespace kelvane::endure
