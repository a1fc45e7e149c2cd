#include "data/history/line_layout.h"

#include "data/tolerances/result_lines.h"
#include "testkit/fixtures.h"

#include <QRegularExpression>

#include <random>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const auto usual = u"TN$ FN$           FVA$          FRE$          TT$         DE$          ET$  TU$ CO$     "
                   u"    FLL$        FUL$      "
                   "  TR$"_s;
const LineFields usualFields{u"7"_s,  u"12.00mA"_s, u"-50.0psi"_s, u"12.01mA"_s, u"0.10mA"_s, u"0.01mA"_s,
                             u"10"_s, {},           u"MARGINAL"_s, u"11.90"_s,   u"12.10"_s,  u"PASS"_s};
/// The places of the fields in `resultFields`.
enum Place { TN, FN, FVA, FRE, TT, DE, ET, TU, CO, FLL, FUL, TR };

class LineLayout : public RecordedSession {
  protected:
    LineLayout() { session.ResultTemplateLine = usual; }

    QString laidOut(LineFields f) {
        return ModuleGlobals::ResultLine(session, f[0], f[1], f[2], f[3], f[4], f[5], f[6], f[7], f[8], f[9],
                                         f[10], f[11]);
    }
    void substitute(const QString& code, const QString& from, const QString& to) {
        session.SubstTable[added_++] = {code, from, to};
    }
    /// The fields that come back of a line that is made of some.
    std::optional<LineFields> thereAndBack(const LineFields& fields) {
        return fieldsOfLine(session, laidOut(fields));
    }
    LineFields with(Place place, const QString& value) {
        auto fields = usualFields;
        fields[place] = value;
        return fields;
    }

  private:
    int added_ = 0;
};

} // namespace

TEST_F(LineLayout, GivesBackWhatWasLaidOut) {
    EXPECT_EQ(thereAndBack(usualFields), usualFields);
    for (const auto& fields :
         {with(TN, u"123"_s), with(FN, u"-12.00mA"_s), with(FRE, u"12 ft-lb"_s), with(ET, u">500"_s),
          with(CO, QString()), with(FVA, u"50.0µΩ\U0001F527"_s), with(FLL, u"-0.5"_s)})
        EXPECT_EQ(thereAndBack(fields), fields);
}

TEST_F(LineLayout, DoesNotMindTheBlanksAtTheEnd) {
    auto line = laidOut(with(TR, u"FAIL"_s));
    while (line.endsWith(u' '))
        line.chop(1);
    EXPECT_EQ(fieldsOfLine(session, line), with(TR, u"FAIL"_s));
    EXPECT_EQ(fieldsOfLine(session, line + QString(40, u' ')), with(TR, u"FAIL"_s));
}

TEST_F(LineLayout, LeavesFieldsWithoutATagEmpty) {
    session.ResultTemplateLine = u"..TN$ FRE$        TR$"_s;
    LineFields fields;
    fields[TN] = u"7"_s;
    fields[FRE] = u"12.01mA"_s;
    fields[TR] = u"PASS"_s;
    EXPECT_EQ(thereAndBack(usualFields), fields);
}

TEST_F(LineLayout, FollowsTheColumnsWhateverTheirOrder) {
    session.ResultTemplateLine = u"TR$  FUL$      FLL$      ET$   DE$       FN$          TN$ FRE$      "_s;
    auto fields = usualFields;
    for (const auto place : {FVA, TT, TU, CO})
        fields[place].clear();
    EXPECT_EQ(thereAndBack(usualFields), fields);
}

TEST_F(LineLayout, RefusesAValueThatReachesTheNextColumn) {
    // The digits behind the thirteenth have been written over.
    EXPECT_EQ(thereAndBack(with(FN, u"1234567890.1234"_s)), std::nullopt);
    EXPECT_EQ(thereAndBack(with(FN, u"1234567890.12"_s)), std::nullopt) << "it might have gone on";
    EXPECT_EQ(thereAndBack(with(FN, u"1234567890.1"_s)), with(FN, u"1234567890.1"_s));
    EXPECT_EQ(thereAndBack(with(TN, u"1234"_s)), std::nullopt);
}

TEST_F(LineLayout, RefusesWhatTheProgramDoesNotLayOutSo) {
    const auto line = laidOut(usualFields);
    QStringList others{
        u"CALIBRATED BY ANOTHER PROGRAM"_s,
        u"Test 7: nominal 12.00, reading 12.01, passed"_s,
        u" "_s + line,
        line.mid(1),
        QString(line).replace(u"  7"_s, u"7  "_s),
        QString(line).replace(u" 12.00mA"_s, u"12.00mA "_s),
        QString(line).replace(u"0.10mA"_s, u" 0.10mA"_s),
        QString(line).replace(u" 10 "_s, u"10  "_s),
        QString(line).replace(u"12.01mA"_s, u"\t12.01mA"_s),
    };
    for (const auto& other : others)
        EXPECT_EQ(fieldsOfLine(session, other), std::nullopt) << other.toStdString();
}

TEST_F(LineLayout, RefusesTextsThatTheProgramDoesNotWrite) {
    for (const auto& fields :
         {with(CO, u"ADJUSTED"_s), with(TU, u"mA"_s), with(TR, u"OK"_s), with(TR, QString())})
        EXPECT_EQ(thereAndBack(fields), std::nullopt);
}

TEST_F(LineLayout, WithoutATemplateReadsNothing) {
    const auto line = laidOut(usualFields);
    session.ResultTemplateLine.clear();
    EXPECT_EQ(fieldsOfLine(session, line), std::nullopt);
}

TEST_F(LineLayout, RefusesATemplateWhoseColumnsTheLineDoesNotReach) {
    // The verdict stands right behind the blanks of a shorter line.
    session.ResultTemplateLine = QString(116, u' ') + u"TU$    TR$"_s;
    EXPECT_EQ(thereAndBack(usualFields), std::nullopt);
    session.ResultTemplateLine = QString(112, u' ') + u"TN$     TR$"_s;
    LineFields fields;
    fields[TN] = u"7"_s;
    fields[TR] = u"PASS"_s;
    EXPECT_EQ(thereAndBack(usualFields), fields);
    session.ResultTemplateLine = u"FRE$       TN$"_s + QString(105, u' ') + u"TR$"_s;
    fields[FRE] = u"12.01mA"_s;
    EXPECT_EQ(thereAndBack(usualFields), fields);
    substitute(u"TN"_s, u"  7"_s, u"7"_s);
    EXPECT_EQ(laidOut(usualFields).indexOf(u"PASS"_s), 118);
    EXPECT_EQ(thereAndBack(usualFields), std::nullopt) << "the shorter number has moved the end of the line";
}

TEST_F(LineLayout, TakesSubstitutionsBack) {
    substitute(u"CO"_s, u"NOTIFY USER"_s, u"OUT OF TOL."_s);
    substitute(u"TU"_s, u"degC"_s, u"C   "_s);
    substitute(u"TR"_s, u"FAIL"_s, u"*"_s);
    substitute(u"TT"_s, u"mA"_s, u" milliampere"_s);
    substitute(u"DE"_s, u"mA"_s, u""_s);
    for (const auto& fields :
         {usualFields, with(CO, u"NOTIFY USER"_s), with(TR, u"FAIL"_s), with(CO, QString())}) {
        auto line = laidOut(fields);
        const auto back = fieldsOfLine(session, line);
        // The long unit of the tolerance reaches the next column.
        EXPECT_EQ(back, std::nullopt) << line.toStdString();
    }
    session.SubstTable[3].to = u" A"_s;
    session.SubstTable[3].from = u"mA"_s;
    for (const auto& fields :
         {usualFields, with(CO, u"NOTIFY USER"_s), with(TR, u"FAIL"_s), with(CO, QString())})
        EXPECT_EQ(thereAndBack(fields), fields);
}

TEST_F(LineLayout, RefusesALineThatASubstitutionHasMoved) {
    // The error is written before the verdict, behind which it stands: a longer or shorter verdict moves it.
    session.ResultTemplateLine = u"TR$   DE$       TN$"_s;
    substitute(u"TR"_s, u"FAIL"_s, u"FAILED"_s);
    LineFields fields;
    fields[TN] = u"7"_s;
    fields[DE] = u"0.01mA"_s;
    fields[TR] = u"FAIL"_s;
    EXPECT_EQ(laidOut(fields).indexOf(u"0.01mA"_s), 8);
    EXPECT_EQ(thereAndBack(fields), std::nullopt);
    fields[TR] = u"PASS"_s;
    EXPECT_EQ(thereAndBack(fields), fields) << "this one was not replaced";
    substitute(u"DE"_s, u"psi"_s, u"PSIG"_s);
    EXPECT_EQ(thereAndBack(fields), std::nullopt) << "the number may have been moved";
}

TEST_F(LineLayout, TakesWordsBackThatASiteLeavesOut) {
    substitute(u"CO"_s, u"MARGINAL"_s, u"NEAR LIMIT"_s);
    substitute(u"CO"_s, u"NOTIFY USER"_s, u" "_s);
    substitute(u"TR"_s, u"PASS"_s, u""_s);
    session.ResultTemplateLine = u"TN$ FRE$       CO$              TR$"_s;
    LineFields fields;
    fields[TN] = u"7"_s;
    fields[FRE] = u"12.01mA"_s;
    fields[CO] = u"MARGINAL"_s;
    for (const auto& verdict : {u"PASS"_s, u"FAIL"_s}) {
        fields[TR] = verdict;
        EXPECT_EQ(thereAndBack(fields), fields);
    }
    fields[CO].clear();
    EXPECT_EQ(thereAndBack(fields), std::nullopt) << "it may have been a comment that is left out";
}

TEST_F(LineLayout, RefusesASubstitutionThatMayHaveTakenDigits) {
    // "5" stands in the value, and its last character is dropped: 15.2 became "15.x".
    substitute(u"TT"_s, u"5"_s, u"x"_s);
    EXPECT_EQ(thereAndBack(with(TT, u"15.2"_s)), std::nullopt);
    EXPECT_EQ(thereAndBack(with(TT, u"12.5"_s)), std::nullopt);
    EXPECT_EQ(thereAndBack(with(TT, u"12.1"_s)), with(TT, u"12.1"_s));
}

TEST_F(LineLayout, RefusesWhatTwoDifferentValuesLeadTo) {
    substitute(u"TR"_s, u"PASS"_s, u"DONE"_s);
    substitute(u"TR"_s, u"FAIL"_s, u"DONE"_s);
    EXPECT_EQ(thereAndBack(usualFields), std::nullopt);
    session.SubstTable.erase();
    session.SubstTable[0] = {u"ET"_s, u"1"_s, u"2"_s};
    EXPECT_EQ(thereAndBack(with(ET, u"1"_s)), std::nullopt) << "2 may have been 1 or 2";
    EXPECT_EQ(thereAndBack(with(ET, u"3"_s)), with(ET, u"3"_s));
}

/// Whatever the template and its substitutions: a line gives the numbers and verdicts that went into it, or
/// nothing.
TEST_F(LineLayout, GivesNoOtherNumbersThanWereLaidOut) {
    std::mt19937 random(20261123);
    const auto below = [&](qsizetype count) {
        return static_cast<qsizetype>(random() % static_cast<unsigned>(count));
    };
    const auto pick = [&](const QStringList& list) { return list[below(list.size())]; };
    const QStringList units{u"mA"_s, u"psi"_s, u"ft-lb"_s, u"degC"_s, QString()};
    const QStringList replaced{u"mA"_s,   u"A"_s, u"psi"_s,      u"1"_s, u"5"_s,  u"FAIL"_s,
                               u"PASS"_s, u" "_s, u"MARGINAL"_s, u"."_s, u"0m"_s, QString()};
    const QStringList replacements{u"amp"_s, u"5"_s, u""_s, u"OK"_s, u"F   "_s, u" 1"_s, u"PASS"_s, u"x"_s};
    const auto amount = [&] {
        return QString::number((static_cast<double>(below(40000)) - 20000) / 100, 'f', 2) + pick(units);
    };
    int given = 0;
    for (int turn = 0; turn < 20000; ++turn) {
        QStringList tags;
        for (const auto& field : resultFields)
            tags << field.code.toString() + u'$';
        while (tags.size() > 7)
            tags.removeAt(below(tags.size()));
        if (turn % 2 == 0)
            std::shuffle(tags.begin(), tags.end(), random);
        QString line;
        for (const auto& tag : tags)
            line += tag + QString(5 + below(10), u' ');
        session.ResultTemplateLine = line;
        session.SubstTable.erase();
        for (int row = 0; row < turn % 4; ++row)
            session.SubstTable[row] = {pick({u"TN"_s, u"FN"_s, u"TT"_s, u"DE"_s, u"ET"_s, u"CO"_s, u"TR"_s}),
                                       pick(replaced), pick(replacements)};
        const LineFields fields{QString::number(1 + below(120)),
                                amount(),
                                amount(),
                                amount(),
                                amount(),
                                amount(),
                                QString::number(below(600)),
                                {},
                                pick({QString(), u"MARGINAL"_s, u"NOTIFY USER"_s}),
                                amount(),
                                amount(),
                                pick({u"PASS"_s, u"FAIL"_s})};
        const auto stored = laidOut(fields);
        const auto back = fieldsOfLine(session, stored);
        if (!back)
            continue;
        ++given;
        static const QRegularExpression number(u"^-?[0-9.]*"_s);
        for (std::size_t field = 0; field < fields.size(); ++field) {
            if (session.ResultTemplateLine.columnOf(field) < 0)
                continue;
            const bool isWord = field == TR || field == CO;
            const auto part = [&](const QString& text) {
                return isWord ? text : number.match(text).captured();
            };
            ASSERT_EQ(part((*back)[field]), part(fields[field]))
                << line.toStdString() << '\n'
                << stored.toStdString() << " field " << field;
        }
    }
    EXPECT_GT(given, 500);
}

TEST_F(LineLayout, CountsCharactersAndNotUnits) {
    const auto fields = with(FVA, u"5\U0001F321\U0001F321"_s);
    const auto line = laidOut(fields);
    EXPECT_EQ(line.size(), 122);
    EXPECT_EQ(fieldsOfLine(session, line), fields);
}

} // namespace kelvane::testing
