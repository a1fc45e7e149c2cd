#include "procedures/record_config.h"

#include "data/routine.h"
#include "platform/values/numbers.h"
#include "platform/values/texts.h"

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// The fields of a calibration record that an operator can be asked for.
const Sql fromDictionary =
    u"select fldnum,title from mt.customiz where fldnum not like '%90' and fldnum not like '%91' and fldnum "
    u"not like '%92' and fldnum not like '%93' and fldnum <> '2340' and fldnum not like '%94' and fldnum not "
    u"like '%95' and fldnum like '23%' and suppressed <> 'Y'";

/// The rows of a query for number and title; a field that has left the dictionary has no title.
QStringList fieldRows(Routine& routine, const Sql& query) {
    QStringList rows;
    for (const auto fields = routine.select(query); fields->next();) {
        const auto number = notNull(fields->value(0));
        rows << u'C' + number + u" : "_s + fields->value(1).value_or(QString());
    }
    return rows;
}

bool isConfigured(Routine& routine) {
    const auto count = routine.select(u"select count(fldnum) from mt.hvm_kv_worksheetfields", Rows::first);
    count->next();
    return numericValue(notNull(count->value(0))) > 0;
}

void readFields(Routine& routine, RecordConfig& config) {
    if (isConfigured(routine)) {
        config.available =
            fieldRows(routine, fromDictionary + u" and fldnum not in (select fldnum from "
                                                "mt.hvm_kv_worksheetfields) order by fldnum asc");
        config.requested =
            fieldRows(routine, u"select fldnum,(select title from mt.customiz where mt.customiz.fldnum = "
                               "mt.hvm_kv_worksheetfields.fldnum) from mt.hvm_kv_worksheetfields order by "
                               "sequence asc");
        return;
    }
    // The first configuration is proposed: the required fields.
    config.requested =
        fieldRows(routine, fromDictionary + u" and (ireq <> 'N' or sreq <> 'N') order by fldnum asc");
    config.available =
        fieldRows(routine, fromDictionary + u" and (ireq = 'N' and sreq = 'N') order by fldnum asc");
}

bool isYes(const std::optional<QString>& value) {
    return toUpperCase(value.value_or(QString())) == u"Y"_s;
}

void readPermissions(Routine& routine, RecordConfig& config) {
    const auto row =
        routine.select(u"select allow_ooc_stds,allow_poor_trace_stds from mt.hvm_kv_sysconfig", Rows::first);
    // Without a row nothing is allowed; the first save makes one.
    if (!row->next())
        return;
    config.allowsOverdueStandards = isYes(row->value(0));
    config.allowsPoorTrace = isYes(row->value(1));
}

void writePermissions(Routine& routine, const RecordConfig& config) {
    if (!routine.hasRow(u"select allow_ooc_stds from mt.hvm_kv_sysconfig"))
        routine.execute(u"insert into mt.hvm_kv_sysconfig (allow_ooc_stds,allow_poor_trace_stds) values "
                        "('N','N');commit");
    const auto store = [&](const Sql& column, bool allowed) {
        routine.execute(u"update mt.hvm_kv_sysconfig set " + column + u" = " +
                        (allowed ? Sql(u"'Y'") : Sql(u"'N'")) + u";commit");
    };
    store(u"allow_ooc_stds", config.allowsOverdueStandards);
    store(u"allow_poor_trace_stds", config.allowsPoorTrace);
}

} // namespace

std::optional<RecordConfig> loadRecordConfig(Session& session) {
    Routine routine(session, u"FormWorkConfig,LoadLists"_s);
    return routine.resultOf([&] {
        RecordConfig config;
        readFields(routine, config);
        readPermissions(routine, config);
        return config;
    });
}

std::optional<SaveFailure> saveRecordConfig(Session& session, const RecordConfig& config) {
    int sequence = 0;
    Routine routine(session, u"FormWorkConfig,CommandSave"_s);
    const auto error = routine.failureOf([&] {
        Transaction saving(session);
        routine.execute(u"delete from mt.hvm_kv_worksheetfields;commit");
        for (; sequence < config.requested.size(); ++sequence)
            routine.execute(u"insert into mt.hvm_kv_worksheetfields (fldnum,sequence) values (" +
                            sqlText(fieldNumber(config.requested[sequence])) + u"," +
                            sqlText(plainText(sequence)) + u");commit");
        writePermissions(routine, config);
        saving.commit();
    });
    return error ? std::optional(SaveFailure{.error = *error, .row = sequence}) : std::nullopt;
}

QString fieldNumber(const QString& row) {
    return row.mid(1, 4);
}

} // namespace kelvane
