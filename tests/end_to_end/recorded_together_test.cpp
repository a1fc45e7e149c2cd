#include "tests/end_to_end/recorded_together.h"

#include "testkit/database_session.h"
#include "tests/simulators/programs.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// Workstations in processes of their own that record one instrument at once, each on a day of its own.
class RecordedTogether : public DatabaseSession {
  protected:
    static constexpr int count = 50;

    std::unique_ptr<QProcess> start(const QString& name, const QString& date) {
        return simulators::startProgram(u"record_command"_s,
                                        {database.dsn(), name, date, QString::number(count)});
    }
    /// The record of that number has its own children, and those alone.
    void expectOwnChildren(const QString& name, const QString& date, int number) {
        SCOPED_TRACE(u"%1 %2"_s.arg(name).arg(number).toStdString());
        const auto found = rows(
            u"select ctag from mt.calibration where mtag = '1301' and c2301 = '%1' and c2333 = '%2'"_s.arg(
                date, togetherTime(number)));
        ASSERT_EQ(found.size(), 1);
        const auto lines =
            rows(u"select c2501 from mt.calresults where ctag = %1 order by c2502"_s.arg(found.first()));
        EXPECT_EQ(lines, togetherLines(name, number));
        const auto standards = rows(
            u"select i4201 from mt.standards, mt.inventory where ctag = %1 and mt.inventory.mtag = c2430 "
            "order by i4201"_s.arg(found.first()));
        EXPECT_EQ(standards, togetherStandards(name, number));
    }
};

TEST_F(RecordedTogether, NoRecordHasTheChildrenOfAnother) {
    const QList<std::pair<QString, QString>> workstations{{u"first"_s, u"2026-02-02"_s},
                                                          {u"second"_s, u"2026-02-03"_s}};
    folder.write(u"rslt_db.frm"_s, "FN NM AP\n");
    QList<std::shared_ptr<QProcess>> processes;
    for (const auto& workstation : workstations)
        processes << std::shared_ptr<QProcess>(start(workstation.first, workstation.second));
    for (const auto& process : processes) {
        ASSERT_TRUE(process->waitForFinished(90000));
        EXPECT_EQ(process->exitCode(), 0) << process->readAllStandardError().toStdString();
    }
    for (const auto& workstation : workstations) {
        for (int number = 0; number < count; ++number)
            expectOwnChildren(workstation.first, workstation.second, number);
    }
    EXPECT_EQ(rows(u"select count(*) from mt.calibration where mtag = '1301' and c2339 = 1"_s),
              QStringList{u"1"_s});
}

} // namespace kelvane::testing
