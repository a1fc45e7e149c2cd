#include "tests/admin/past_database.h"

#include "data/session_values.h"
#include "data/start_up.h"
#include "tests/admin/admin_program.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

QString madeDatabase(const QDate& day) {
    static const QTemporaryDir made;
    auto path = made.filePath(u"database"_s);
    if (!QFile::exists(path))
        expectDone(runAdmin({u"make"_s, path, u"--demo"_s, u"--day="_s + day.toString(Qt::ISODate)}));
    return path;
}

QByteArray resultTemplate() {
    QFile file(QStringLiteral(KELVANE_SOURCES "/database/demo/rslt_db.frm"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

/// The number in front of a unit.
double numberOf(QString text) {
    qsizetype end = 0;
    while (end < text.size() && (text[end].isDigit() || text[end] == u'-' || text[end] == u'.'))
        ++end;
    bool isNumber = false;
    const double number = text.left(end).toDouble(&isNumber);
    EXPECT_TRUE(isNumber) << text.toStdString();
    return number;
}

} // namespace

PastDatabase::PastDatabase()
    : day(QDate::currentDate()),
      database(madeDatabase(day)),
      session({ui, clock, settings}, openConnections()) {
    sharedConnection(session).open(database.connectionString(), u"jdoe"_s, u"kelvane"_s);
    session.SessionConnected = true;
    session.SessionUser = u"jdoe"_s;
    readSessionValues(session, session.SessionUser);
    folder.write(u"rslt_db.frm"_s, resultTemplate());
    ModuleGlobals::StartupFunctions(session, {});
}

QStringList PastDatabase::rows(const QString& query, int columns) {
    return queryRows(sharedConnection(session), query, columns);
}

QString PastDatabase::value(const QString& query) {
    const auto found = rows(query);
    EXPECT_EQ(found.size(), 1) << query.toStdString();
    return found.value(0);
}

QString PastDatabase::mtagOf(QStringView asset) {
    return value(u"select mtag from mt.inventory where i4201 = '%1'"_s.arg(asset));
}

/// Each field reaches to the column of the next one.
PastPoint PastDatabase::pointOf(const QString& line) const {
    QStringList fields;
    for (std::size_t field = 0; field < resultFields.size(); ++field) {
        const auto begin = session.ResultTemplateLine.columnOf(field);
        const bool isLast = field + 1 == resultFields.size();
        const auto end = isLast ? line.size() : session.ResultTemplateLine.columnOf(field + 1);
        fields << line.mid(begin, end - begin).trimmed();
    }
    return {.nominal = numberOf(fields[1]),
            .applied = numberOf(fields[2]),
            .reading = numberOf(fields[3]),
            .deviation = fields[5],
            .comment = fields[8],
            .verdict = fields[11],
            .line = line};
}

QList<PastRecord> PastDatabase::recordsOf(QStringView asset) {
    QList<PastRecord> records;
    const auto mtag = mtagOf(asset);
    const auto found = rows(u"select ctag,c2301,c2333,c2303,c2308,c2307,c2323,c2339,c2350,c2352 from "
                            "mt.calibration where mtag = '%1' order by ctag"_s.arg(mtag),
                            10);
    for (const auto& row : found) {
        const auto cells = row.split(u'|');
        PastRecord record{.ctag = cells[0],
                          .date = QDate::fromString(cells[1], Qt::ISODate),
                          .time = QTime::fromString(cells[2], Qt::ISODate),
                          .due = cells[3],
                          .state = cells[4],
                          .technician = cells[5],
                          .passed = cells[6] == u"Y",
                          .isCurrent = cells[7] == u"1",
                          .marginal = cells[8].toInt(),
                          .failed = cells[9].toInt(),
                          .points = {}};
        const auto lines = rows(u"select c2501, c2502 from mt.calresults where mtag = '%1' and ctag = %2 "
                                "order by c2502"_s.arg(mtag, record.ctag),
                                2);
        for (const auto& line : lines) {
            EXPECT_EQ(line.section(u'|', 1), QString::number(record.points.size()));
            record.points << pointOf(line.section(u'|', 0, 0));
        }
        records << record;
    }
    return records;
}

PastLimits PastDatabase::limitsOf(QStringView asset) {
    const auto mtag = mtagOf(asset);
    EXPECT_EQ(
        value(
            u"select count(*) from mt.hvm_kv_tag_config where mtag = '%1' and neg_span_pct = pos_span_pct "
            "and neg_units = pos_units and pos_fs_range_pct = 0 and neg_fs_range_pct = 0 and "
            "pos_reading_pct = 0 and neg_reading_pct = 0 and pos_lsd_counts = 0 and neg_lsd_counts = 0"_s.arg(
                mtag)),
        u"1")
        << asset.toString().toStdString();
    const auto cells =
        rows(u"select input_low,input_high,output_low,output_high,pos_span_pct,pos_units,(select count(*) "
             u"from "
             "mt.hvm_kv_proc_points as points where points.tp_name = config.tp_name) from "
             "mt.hvm_kv_tag_config as config where mtag = '%1'"_s.arg(mtag),
             7)
            .value(0)
            .split(u'|');
    PastLimits limits{.inputLow = cells[0].toFloat(),
                      .inputHigh = cells[1].toFloat(),
                      .outputLow = cells[2].toFloat(),
                      .outputHigh = cells[3].toFloat(),
                      .points = cells[6].toInt()};
    limits.width = double{limits.outputHigh - limits.outputLow} * double{cells[4].toFloat()} / 100 +
                   double{cells[5].toFloat()};
    return limits;
}

QList<const admin::PastInstrument*> PastDatabase::all() {
    QList<const admin::PastInstrument*> members;
    for (const auto& instrument : admin::pastInstruments())
        members << &instrument;
    for (const auto& standard : admin::pastStandards())
        members << &standard;
    return members;
}

} // namespace kelvane::testing
