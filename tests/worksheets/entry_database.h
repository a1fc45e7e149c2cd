#pragma once

#include "testkit/recording_connection.h"

namespace kelvane::testing {

/// A field of the site's dictionary; an empty text is a null.
struct DictionaryField {
    QString column;
    QString title;
    QString required = {};
    QString defaultText = {};
    QString copyFrom = {};
    bool isDate = false;
    QString maxLength = {};
};

/// What a scripted database answers to the entry of worksheets. It knows the instruments PT-1 (key 7) and
/// PT-2 (8), and the standards S-1 and S-2, which may be used for both.
class EntryDatabase {
  public:
    explicit EntryDatabase(RecordingConnection::Script& script) : database_(script) {
        for (const auto& [asset, key] : {std::pair(QStringLiteral("PT-1"), QStringLiteral("7")),
                                         std::pair(QStringLiteral("PT-2"), QStringLiteral("8"))}) {
            database_.answers.insert(keyQuery(asset), {Row{key}});
            database_.answers.insert(
                QStringLiteral("select count(ctag) from MT.calibration where mtag = (%1)")
                    .arg(keyQuery(asset)),
                {Row{QStringLiteral("1")}});
        }
        for (const auto& standard : {QStringLiteral("S-1"), QStringLiteral("S-2")})
            addStandard(standard);
    }

    static QString keyQuery(const QString& asset) {
        return QStringLiteral("select mtag from MT.inventory where i4201 = '%1'").arg(asset);
    }
    static QString standardQuery(const QString& standard, const QString& instrument) {
        return QStringLiteral(
                   "select i4209,(select c2303 from MT.calibration where c2339 = 1 and MT.calibration.mtag = "
                   "MT.inventory.mtag),(select c2334 from MT.calibration where c2339 = 1 and "
                   "MT.calibration.mtag = MT.inventory.mtag),(select i4209 trace from MT.inventory where "
                   "i4201 = '%1'),(select allow_ooc_stds from mt.hvm_kv_sysconfig),(select "
                   "allow_poor_trace_stds from mt.hvm_kv_sysconfig) from MT.inventory where i4201 = '%2'")
            .arg(instrument, standard);
    }
    static QString rankQuery(const QString& standard, const QString& instrument) {
        return QStringLiteral(
                   "select sum(locate(tracecodes,(select i4209 from MT.inventory where i4201 = '%1')) - "
                   "locate(tracecodes,(select i4209 from MT.inventory where i4201 = '%2')) - trace_delta) "
                   "from mt.dbconfig")
            .arg(instrument, standard);
    }
    /// What the database knows of a standard: its trace code, due date, and that of the instrument.
    void addStandard(const QString& standard, const std::optional<QString>& trace = QStringLiteral("A"),
                     const std::optional<QString>& due = {},
                     const std::optional<QString>& instrumentTrace = QStringLiteral("D")) {
        database_.answers.insert(keyQuery(standard), {Row{QStringLiteral("90")}});
        for (const auto& instrument : {QStringLiteral("PT-1"), QStringLiteral("PT-2")})
            database_.answers.insert(
                standardQuery(standard, instrument),
                {Row{trace, due, std::nullopt, instrumentTrace, QStringLiteral("N"), QStringLiteral("N")}});
    }

    /// The site's dictionary, and the field numbers that its worksheets ask for.
    void setDictionary(const QList<DictionaryField>& fields, const QStringList& worksheetFields = {}) {
        const auto valueOf = [](const QString& text) {
            return text.isEmpty() ? std::nullopt : std::optional(text);
        };
        QList<Row> rows;
        for (const auto& field : fields) {
            rows << Row{field.column,
                        field.title,
                        std::nullopt,
                        std::nullopt,
                        valueOf(field.required),
                        valueOf(field.defaultText),
                        valueOf(field.copyFrom),
                        std::nullopt,
                        std::nullopt,
                        valueOf(field.maxLength),
                        std::nullopt};
            if (field.isDate)
                database_.answers.insert(typeQuery(field.column), {Row{QStringLiteral("DATE")}});
        }
        database_.answers.insert(dictionaryQuery, rows);
        QList<Row> numbers;
        for (const auto& number : worksheetFields)
            numbers << Row{number};
        database_.answers.insert(worksheetQuery, numbers);
    }
    static QString typeQuery(const QString& column) {
        return QStringLiteral(
                   "select domain_name from sys.sysdomain where domain_id = (select max(domain_id) "
                   "from sys.syscolumn where column_name = '%1')")
            .arg(column);
    }

    inline static const QString dictionaryQuery = QStringLiteral(
        "select datacol,title,idefault,ireq,sreq,sdefault,scopy,dcopy,validation,datalen,tooltip from "
        "mt.customiz where fldnum like '23%' and (suppressed <> 'Y' or fldnum = '2331' or fldnum = '2302' or "
        "fldnum = '2308' or fldnum = '2303' or fldnum = '2301' or fldnum = '2307') order by row,nextfld asc");
    inline static const QString worksheetQuery =
        QStringLiteral("select fldnum from mt.hvm_kv_worksheetfields order by sequence asc");

  private:
    RecordingConnection::Script& database_;
};

} // namespace kelvane::testing
