#include "records/certificate_conformity.h"

#include "tests/records/certificate_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class CertificateConformity : public CertificateSession {
  protected:
    static CertificateSettings ruled(DecisionRule rule, double guardBand = 0) {
        CertificateSettings made;
        made.rule = rule;
        made.guardBand = guardBand;
        return made;
    }
    /// Of a reading that is off by so many percent of the tolerance.
    std::optional<bool> ofPoint(double percent, const CertificateSettings& rule) {
        return isConforming(readStoredLine(session, line(50, percent)), rule);
    }
    std::optional<bool> ofRecord(const QString& passed, const QStringList& lines,
                                 const CertificateSettings& rule) {
        QList<StoredLine> read;
        for (const auto& stored : lines)
            read << readStoredLine(session, stored);
        return isConforming(record(u"1"_s, u"2026-03-17"_s, u"FOUND-LEFT"_s, passed, lines), read, rule);
    }

    const CertificateSettings none = ruled(DecisionRule::none);
    const CertificateSettings simple = ruled(DecisionRule::simpleAcceptance);
    const CertificateSettings guarded = ruled(DecisionRule::guardBand, 20);
};

TEST_F(CertificateConformity, OfAPointFollowsTheRule) {
    const struct {
        double percent;
        bool simple;
        bool guarded;
    } rows[] = {{0, true, true},      {80, true, true},    {-80, true, true},   {82.5, true, false},
                {-82.5, true, false}, {97.5, true, false}, {105, false, false}, {-105, false, false}};
    for (const auto& row : rows) {
        EXPECT_EQ(ofPoint(row.percent, simple), row.simple) << row.percent;
        EXPECT_EQ(ofPoint(row.percent, guarded), row.guarded) << row.percent;
        EXPECT_EQ(ofPoint(row.percent, none), std::nullopt) << row.percent;
    }
    EXPECT_EQ(ofPoint(0, ruled(DecisionRule::guardBand, 100)), true);
    EXPECT_EQ(ofPoint(2.5, ruled(DecisionRule::guardBand, 100)), false);
    EXPECT_EQ(ofPoint(97.5, ruled(DecisionRule::guardBand, 0)), true);
}

TEST_F(CertificateConformity, OfALineThatCanNotBeReadIsNotStated) {
    for (const auto& text : {u"of another program PASS"_s, QString()}) {
        EXPECT_EQ(isConforming(readStoredLine(session, text), simple), std::nullopt);
        EXPECT_EQ(isConforming(readStoredLine(session, text), guarded), std::nullopt);
    }
}

TEST_F(CertificateConformity, OfARecordBySimpleAcceptanceIsItsStoredResultWhereEachLineConfirmsIt) {
    EXPECT_EQ(ofRecord(u"Y"_s, {line(0, 0), line(50, 90)}, simple), true);
    EXPECT_EQ(ofRecord(u"N"_s, {line(0, 0), line(50, 105)}, simple), false);
    EXPECT_EQ(ofRecord(u"Y"_s, {line(50, 105)}, simple), std::nullopt);
    EXPECT_EQ(ofRecord(u"N"_s, {line(0, 0)}, simple), std::nullopt);
    EXPECT_EQ(ofRecord(u"Y"_s, {}, simple), std::nullopt);
    EXPECT_EQ(ofRecord(u"Y"_s, {u"of another program"_s}, simple), std::nullopt);
    EXPECT_EQ(ofRecord({}, {line(0, 0)}, simple), std::nullopt);
    EXPECT_EQ(ofRecord(u"Y"_s, {line(0, 0)}, none), std::nullopt);
}

TEST_F(CertificateConformity, OfARecordThatHasFailedIsNotStatedByGuardBandWhereItsLinesConform) {
    EXPECT_EQ(ofRecord(u"N"_s, {line(0, 10), line(50, 75)}, guarded), std::nullopt);
    EXPECT_EQ(ofRecord(u"N"_s, {line(0, 10), line(50, 90)}, guarded), false);
    EXPECT_EQ(ofRecord({}, {line(0, 10), line(50, 75)}, guarded), true) << "a result that is not stored";
}

TEST_F(CertificateConformity, OfARecordByGuardBandNeedsEachLine) {
    EXPECT_EQ(ofRecord(u"Y"_s, {line(0, 10), line(50, 75)}, guarded), true);
    EXPECT_EQ(ofRecord(u"Y"_s, {line(0, 10), line(50, 90)}, guarded), false);
    EXPECT_EQ(ofRecord(u"Y"_s, {line(0, 10), u"   "_s}, guarded), true) << "a blank line is none";
    EXPECT_EQ(ofRecord(u"Y"_s, {line(0, 10), u"of another program"_s}, guarded), std::nullopt);
    EXPECT_EQ(ofRecord(u"N"_s, {line(50, 120), u"of another program"_s}, guarded), std::nullopt);
    EXPECT_EQ(ofRecord(u"Y"_s, {}, guarded), std::nullopt);
    session.ResultTemplateLine = {};
    EXPECT_EQ(ofRecord(u"Y"_s, {u"  1 4.000mA"_s}, guarded), std::nullopt);
}

} // namespace kelvane::testing
