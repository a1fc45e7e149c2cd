#include "tests/data/records/cal_record_fixture.h"

#include "data/assets/assets.h"
#include "data/records/cal_record.h"
#include "data/records/field_dictionary.h"
#include "resources/strings.h"
#include "resources/text_id.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

const QString RecordCreation::copiesWithinQuery =
    u"select scopy,fldnum from mt.customiz where scopy like '23%' and scopy <> '2340'"_s;
const QString RecordCreation::copiesBackQuery =
    u"select fldnum,dcopy from mt.customiz where dcopy is not null "
    u"and dcopy <> 'OFF' and fldnum like '23%' and "
    "fldnum <> '2340'"_s;
const QString RecordCreation::emptied4224 =
    u"update MT.inventory set I4224 = NULL where i4201 = 'A-1';commit"_s;
const QString RecordCreation::emptied4225 =
    u"update MT.inventory set I4225 = NULL where i4201 = 'A-1';commit"_s;

RecordCreation::RecordCreation() {
    ModuleGlobals::CheckAsset(session, u"A-1"_s);
    keyQuery = script.statements.value(0);
    script.statements.clear();
    ui.events.clear();
    script.answers[keyQuery] = {{u"1301"_s}};
    put(u"C2301"_s, u"03/16/2026"_s, 1);
    put(u"C2333"_s, u"08:05"_s, 3);
    put(u"C2302"_s, u"12"_s, 2);
    put(u"C2331"_s, u"M"_s);
    put(u"C2323"_s, u"Y"_s);
    put(u"C2303"_s, {}, 1);
}

CalField& RecordCreation::put(const QString& column, const QString& value, qint16 type) {
    auto& field = record.CalFieldTable[ModuleGlobals::calFieldCount(record)];
    field.column = column;
    field.value = value;
    field.field_type = type;
    field.title = column;
    return field;
}

void RecordCreation::set(const QString& column, const QString& value) {
    for (int row = 0; row < ModuleGlobals::calFieldCount(record); ++row) {
        if (record.CalFieldTable[row].column == column)
            record.CalFieldTable[row].value = value;
    }
}

QString RecordCreation::valueOf(const QString& column) const {
    for (int row = 0; row < ModuleGlobals::calFieldCount(record); ++row) {
        if (record.CalFieldTable[row].column == column)
            return record.CalFieldTable[row].value;
    }
    return u"no such field"_s;
}

QString RecordCreation::create() {
    const auto reason = ModuleGlobals::CreateCalRecord(session, record, u"A-1"_s);
    EXPECT_TRUE(ui.hasMetAll());
    EXPECT_FALSE(ui.progressShown) << "the progress window is gone on every way out";
    EXPECT_FALSE(ui.busy);
    return reason;
}

QString RecordCreation::insert() const {
    for (const auto& statement : script.statements) {
        if (statement.startsWith(u"insert into MT.calibration"_s))
            return statement;
    }
    return {};
}

QStringList RecordCreation::progress() const {
    QStringList values;
    for (const auto& event : ui.events) {
        if (event.startsWith(u"value "_s) || event == u"hide"_s || event.startsWith(u"progress "_s))
            values << event;
    }
    return values;
}

void RecordCreation::dialog(const QString& title, const QString& answer) {
    ui.expectDialog(u"Calibration Record Data (A-1)"_s, u"Please enter information for: "_s + title, answer);
}

void RecordCreation::cancelDialog(const QString& title) {
    dialog(title, cancelled);
    ui.expectBox(text(TextId::fieldEntryRequired), u"Calibration Record Data"_s, box::warningOkCancel,
                 BoxAnswer::cancel);
}

QString RecordCreation::duplicateQuery(const QString& date, const QString& time) {
    return u"select c2301 from MT.calibration where c2301 = '"_s + date + u"' and c2333 = '"_s + time +
           u"' and mtag = '1301'"_s;
}

QString RecordCreation::standardInsert(const QString& name) {
    return u"insert into mt.standards (c2430,mtag,ctag) values ((select mtag from MT.inventory where i4201 = '"_s +
           name + u"'),'1301',(select ctag from MT.calibration where mtag = '1301' and c2339 = 1));commit"_s;
}

QString RecordCreation::resultInsert(const QString& line, int number) {
    return u"insert into mt.calresults (c2501,c2502,mtag,ctag) values ('"_s + line + u"','"_s +
           QString::number(number) +
           u"','1301',(select ctag from MT.calibration where mtag = '1301' and c2339 = 1));commit"_s;
}

} // namespace kelvane::testing
