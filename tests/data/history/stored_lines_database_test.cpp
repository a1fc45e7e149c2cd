#include "data/history/calibrations.h"
#include "data/history/stored_lines.h"
#include "data/start_up.h"

#include "testkit/database_session.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// With the result template of the demonstration.
class StoredLinesOnDatabase : public DatabaseSession {
  protected:
    StoredLinesOnDatabase() {
        EXPECT_TRUE(
            QFile::copy(QStringLiteral(KELVANE_SOURCES "/database/demo/rslt_db.frm"), u"rslt_db.frm"_s));
        ModuleGlobals::StartupFunctions(session, {});
    }
    QList<StoredLine> linesOf(const QString& asset) {
        QList<StoredLine> lines;
        const auto records = calibrationsOf(session, asset).value_or(QList<CalibrationRecord>());
        for (const auto& record : records) {
            for (const auto& text : record.lines)
                lines << readStoredLine(session, text);
        }
        return lines;
    }
    /// A part of each stored line, cut out by the engine.
    QStringList cut(const QString& mtag, int from, int length) {
        auto parts =
            rows(u"select trim(substr(c2501,%1,%2)) from mt.calresults where mtag = '%3' order by c2502"_s
                     .arg(from)
                     .arg(length)
                     .arg(mtag));
        return parts;
    }
};

} // namespace

TEST_F(StoredLinesOnDatabase, OfTheDemonstrationAreReadAsTheirColumnsSay) {
    struct Column {
        LineField field;
        int from;
        int length;
    };
    for (const auto& [asset, mtag] : {std::pair{u"TW-101"_s, u"1301"_s}, {u"PT-101"_s, u"1401"_s}}) {
        const auto lines = linesOf(asset);
        for (const auto& column : {Column{LineField::number, 1, 4},
                                   {LineField::nominal, 5, 14},
                                   {LineField::applied, 19, 14},
                                   {LineField::reading, 33, 14},
                                   {LineField::tolerance, 47, 12},
                                   {LineField::deviation, 59, 13},
                                   {LineField::percent, 72, 5},
                                   {LineField::lowLimit, 93, 12},
                                   {LineField::highLimit, 105, 12},
                                   {LineField::verdict, 117, 4}}) {
            QStringList texts;
            for (const auto& line : lines) {
                EXPECT_EQ(line.reading, StoredLine::Reading::readable) << line.text.toStdString();
                texts << line.field(column.field);
            }
            EXPECT_EQ(texts, cut(mtag, column.from, column.length)) << column.from;
        }
    }
    const auto lines = linesOf(u"PT-101"_s);
    ASSERT_EQ(lines.size(), 5);
    EXPECT_EQ(lines[2].number(LineField::reading), 12.01);
    EXPECT_EQ(lines[2].number(LineField::percent), 25);
}

TEST_F(StoredLinesOnDatabase, ThatWereChangedAreTexts) {
    execute(u"update mt.calresults set c2501 = replace(c2501,'12.010','12.100') where mtag = '1401'"_s);
    execute(u"update mt.calresults set c2501 = null where mtag = '1401' and c2502 = 0"_s);
    const auto lines = linesOf(u"PT-101"_s);
    ASSERT_EQ(lines.size(), 5);
    EXPECT_EQ(lines[0].reading, StoredLine::Reading::blank);
    EXPECT_EQ(lines[1].reading, StoredLine::Reading::readable);
    EXPECT_EQ(lines[2].reading, StoredLine::Reading::unreadable);
    EXPECT_TRUE(lines[2].text.contains(u"12.100mA"_s));
}

} // namespace kelvane::testing
