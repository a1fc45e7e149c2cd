#include "data/records/cal_record_parts.h"

#include "data/assets/assets.h"
#include "data/records/record_columns.h"
#include "platform/values/numbers.h"

using namespace Qt::StringLiterals;

namespace kelvane::ModuleGlobals {

namespace {

void copy(Session& session, const QString& asset, const QString& source, const QString& target) {
    DestColumn(session, target, asset, SourceColumn(session, source, asset));
}

void copyWithinRecord(Session& session, Routine& routine, const QString& asset) {
    const auto copies =
        routine.select(u"select scopy,fldnum from mt.customiz where scopy like '23%' and scopy <> '2340'");
    while (copies->next()) {
        const auto target = notNull(copies->value(0));
        const auto source = notNull(copies->value(1));
        copy(session, asset, source, target);
    }
}

void copyToOtherTables(Session& session, Routine& routine, const QString& asset) {
    if (session.SessionDbVersion <= 5)
        return;
    const auto copies =
        routine.select(u"select fldnum,dcopy from mt.customiz where dcopy is not null and dcopy <> 'OFF' "
                       "and fldnum like '23%' and fldnum <> '2340'");
    while (copies->next()) {
        const auto source = notNull(copies->value(0));
        const auto target = notNull(copies->value(1));
        copy(session, asset, source, target);
    }
}

} // namespace

Sql RecordParts::currentRecord(const Session& session, const QString& mtag) {
    return u"(select ctag from " + sqlName(session.SessionOwner) + u".calibration where mtag = " +
           sqlText(mtag) + u" and c2339 = 1)";
}

void RecordParts::insertStandard(const QString& name) const {
    routine_.execute(u"insert into mt.standards (c2430,mtag,ctag) values (" + mtagOf(session_, name) + u"," +
                     mtag_ + u"," + record_ + u");commit");
}

void RecordParts::insertResult(const QString& line, int number) const {
    routine_.execute(u"insert into mt.calresults (c2501,c2502,mtag,ctag) values (" + sqlText(line) + u"," +
                     sqlText(plainText(number)) + u"," + mtag_ + u"," + record_ + u");commit");
}

QStringList distinctNames(const QStringList& names) {
    QStringList distinct;
    for (const auto& name : names) {
        if (!distinct.contains(name, Qt::CaseInsensitive))
            distinct << name;
    }
    return distinct;
}

void copyFields(Session& session, Routine& routine, const QString& asset) {
    copyWithinRecord(session, routine, asset);
    copyToOtherTables(session, routine, asset);
}

void clearInventoryFields(Session& session, const QString& asset, bool passed) {
    if (!passed && session.BCalP)
        return;
    if (!session.BCal4224)
        DestColumn(session, u"I4224"_s, asset, u"NULL"_s);
    if (!session.BCal4225)
        DestColumn(session, u"I4225"_s, asset, u"NULL"_s);
}

} // namespace kelvane::ModuleGlobals
