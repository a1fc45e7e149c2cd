#include "records/certificate_data.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "tests/admin/past_database.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// What certificates say of the past, against what the engine finds in it.
class PastCertificates : public PastDatabase {
  protected:
    PastCertificates() {
        clock.set(day.year(), day.month(), day.day(), 12);
        entered.rule = DecisionRule::simpleAcceptance;
    }

    /// The rows of the results as "1|4.022mA|0.022mA|3.960|4.040|passed", by the columns of the template.
    QStringList storedRows(const QString& ctag) {
        return rows(u"select trim(substr(c2501,1,3)) || '|' || trim(substr(c2501,33,13)) || '|' || "
                    "trim(substr(c2501,59,12)) || '|' || case trim(substr(c2501,%2)) when 'PASS' then "
                    "'passed' else 'failed' end from mt.calresults where ctag = %1 order by c2502"_s.arg(ctag)
                        .arg(session.ResultTemplateLine.columnOf(11) + 1));
    }
    static QStringList shownRows(const QJsonObject& values, const QString& list) {
        QStringList shown;
        for (const auto& value : values[list].toArray()) {
            const auto row = value.toObject();
            QStringList cells;
            for (const auto& name : {"point"_L1, "reading"_L1, "error"_L1, "verdict"_L1})
                cells << row[name].toString().remove(u' ');
            shown << cells.join(u'|');
        }
        return shown;
    }
    static QString conformity(const QJsonObject& values) {
        for (const auto& value : values["statements"_L1].toArray()) {
            if (value.toObject()["title"_L1] == text(TextId::certificateConformity))
                return value.toObject()["text"_L1].toString();
        }
        return {};
    }

    CertificateSettings entered;
};

} // namespace

TEST_F(PastCertificates, SayWhatTheDatabaseHolds) {
    int pairs = 0;
    for (const auto& instrument : admin::pastInstruments()) {
        const auto asset = instrument.asset.toString();
        SCOPED_TRACE(asset.toStdString());
        const auto records = calibrationsOf(session, asset).value_or(QList<CalibrationRecord>());
        ASSERT_FALSE(records.isEmpty());
        const auto values =
            certificateValues(session, certifiedCalibration({.asset = asset}, records, 0), entered);
        const auto ofRecord = [&](const QString& what, const QString& ctag) {
            return value(u"select %1 from mt.calibration where ctag = %2"_s.arg(what, ctag));
        };
        const auto newest =
            value(u"select max(ctag) from mt.calibration where mtag = '%1'"_s.arg(mtagOf(asset)));
        const bool isPair = ofRecord(u"c2308"_s, newest) == u"AS-LEFT";
        pairs += isPair ? 1 : 0;
        const auto first = isPair ? QString::number(newest.toInt() - 1) : newest;
        EXPECT_EQ(values["number"_L1].toString(),
                  isPair ? u"MT-%1/%2"_s.arg(first, newest) : u"MT-"_s + newest);
        EXPECT_EQ(values["calibrated"_L1].toString(), ofRecord(u"c2301"_s, newest));
        EXPECT_EQ(values["place"_L1].toString(), ofRecord(u"c2315"_s, newest));
        EXPECT_EQ(values["calibratedBy"_L1].toString(), ofRecord(u"c2307"_s, newest));
        EXPECT_EQ(values["workOrder"_L1].toString(), ofRecord(u"c2316"_s, newest));
        EXPECT_TRUE(values["method"_L1].toString().contains(ofRecord(u"c2309"_s, newest)));
        EXPECT_TRUE(values["conditions"_L1].toString().contains(ofRecord(u"c2313"_s, newest)));
        EXPECT_EQ(QString::number(values["standards"_L1].toArray().size()),
                  value(u"select count(distinct c2430) from mt.standards where ctag in (%1,%2)"_s.arg(
                      first, newest)));
        EXPECT_EQ(shownRows(values, u"resultsFound"_s), storedRows(first));
        EXPECT_EQ(shownRows(values, u"resultsLeft"_s), isPair ? storedRows(newest) : QStringList());
        const auto sentence = [&](const QString& ctag) {
            return text(ofRecord(u"c2323"_s, ctag) == u"Y" ? TextId::certificateConforms
                                                           : TextId::certificateFails);
        };
        EXPECT_TRUE(conformity(values).contains(sentence(first)));
        EXPECT_TRUE(conformity(values).contains(sentence(newest)));
    }
    EXPECT_GT(pairs, 0);
}

} // namespace kelvane::testing
