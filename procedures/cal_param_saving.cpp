#include "procedures/cal_param_saving.h"

#include "data/assets/assets.h"
#include "data/routine.h"
#include "procedures/refusal.h"
#include "procedures/statement_parts.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// What a save writes into the column of a parameter. The key alone is no entry, and its statement the one
/// place that names the schema instead of the user's owner.
Sql savedValue(const CalParamColumn& column, const QString& instrument, const CalParamEntries& entries) {
    if (column.member == CalParamMember(&CalParamRecord::mtag))
        return u"(select mtag from mt.inventory where i4201 = " + sqlText(instrument) + u")";
    const auto& entry = entries[column.member];
    return entry.isEmpty() && column.rules.empty == CalParamEmpty::null ? Sql(u"NULL") : sqlText(entry);
}

Sql insertStatement(const QString& instrument, const CalParamEntries& entries) {
    QList<Sql> names;
    QList<Sql> values;
    for (const auto* column : savedCalParams()) {
        names << sqlName(column->name);
        values << savedValue(*column, instrument, entries);
    }
    return u"insert into mt.hvm_kv_tag_config (" + joinWithCommas(names) + u") values (" +
           joinWithCommas(values) + u");commit";
}

/// The messages of one kind, from the first on.
QList<Sql> messageStatements(const Sql& mtag, const Sql& type, const QStringList& messages) {
    QList<Sql> statements;
    for (qsizetype i = 0; i < messages.size(); ++i)
        statements << u"insert into mt.hvm_kv_proc_prompts (mtag,prompt_type,prompt_seq,pname) values (" +
                          joinWithCommas({mtag, type, sqlText(QString::number(i)), sqlText(messages[i])}) +
                          u");commit";
    return statements;
}

QList<Sql> saveStatements(const Session& session, const QString& instrument, const CalParamEntries& entries,
                          const MessageLists& displayed) {
    const auto mtag = ModuleGlobals::mtagOf(session, instrument);
    QList<Sql> statements{
        u"delete from mt.hvm_kv_tag_config where mtag = " + mtag +
            u";delete from mt.hvm_kv_proc_prompts where mtag = " + mtag + u";commit",
        insertStatement(instrument, entries),
    };
    statements << messageStatements(mtag, u"'PRE'", displayed.pre)
               << messageStatements(mtag, u"'PST'", displayed.post);
    return statements;
}

} // namespace

std::optional<Error> storeCalParams(Session& session, const QString& instrument,
                                    const CalParamEntries& entries, const MessageLists& displayed) {
    Routine routine(session, u"FormCalParam,SaveData"_s);
    return routine.failureOf([&] {
        Transaction saving(session);
        for (const auto& statement : saveStatements(session, instrument, entries, displayed))
            routine.execute(statement);
        saving.commit();
    });
}

std::optional<CalParamMember> refusedParameter(const QString& instrument, const CalParamEntries& entries,
                                               const Error& error) {
    const auto columns = savedCalParams();
    auto refused = std::ranges::find_if(columns, [&](const CalParamColumn* column) {
        return !savedValue(*column, instrument, entries).isIntact();
    });
    if (refused == columns.end())
        refused = std::ranges::find_if(
            columns, [&](const CalParamColumn* column) { return namesColumn(error, column->name); });
    if (refused == columns.end())
        return {};
    return (*refused)->member;
}

qsizetype refusedMessage(const QStringList& messages) {
    const auto refused = std::ranges::find_if_not(messages, isConfined);
    return refused == messages.end() ? -1 : refused - messages.begin();
}

} // namespace kelvane
