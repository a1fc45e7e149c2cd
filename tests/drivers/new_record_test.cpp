#include "drivers/new_record.h"

#include "data/guard.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const auto standardsOfPT1 =
    u"select i4201 from MT.inventory where mtag in (select standard_mtag from "
    "mt.hvm_kv_task_standards_inuse where mtag = (select mtag from MT.inventory where i4201 = 'PT-1'))"_s;

} // namespace

class PreparedRecord : public RecordedSession {
  protected:
    CalRecord record;
    void addField(const QString& column, const QString& value) {
        auto& field = record.CalFieldTable[fields_++];
        field.column = column;
        field.value = value;
    }
    QStringList values() const {
        QStringList found;
        for (int row = 0; row < fields_; ++row)
            found << std::as_const(record.CalFieldTable)[row].value;
        return found;
    }

  private:
    int fields_ = 0;
};

TEST_F(PreparedRecord, ValuesGoIntoTheirColumnsWhereverTheseStandAndIgnoringCase) {
    addField(u"C2326"_s, u"kept"_s);
    addField(u"c2307"_s, u"default"_s);
    addField(u"C2301"_s, {});
    addField(u"C2308"_s, u"cleared"_s);
    addField(u"C2350"_s, u"left"_s);
    addField(u"C2301"_s, u"twice"_s);
    const FieldValue found[] = {
        {u"C2301", u"2026-03-18"_s}, {u"C2307", u"Joe"_s},     {u"C2308", QString()},
        {u"C2350", std::nullopt},    {u"C2399", u"nowhere"_s},
    };
    fillFields(record, found);
    EXPECT_EQ(values(),
              (QStringList{u"kept"_s, u"Joe"_s, u"2026-03-18"_s, QString(), u"left"_s, u"2026-03-18"_s}));
}

TEST_F(PreparedRecord, AFullTableIsFilledToItsLastRow) {
    for (int row = 0; row < 100; ++row)
        addField(u"X%1"_s.arg(row), {});
    addField(u"C2301"_s, {});
    const FieldValue found[] = {{u"C2301", u"2026-03-18"_s}};
    fillFields(record, found);
    EXPECT_EQ(values().last(), u"2026-03-18"_s);
}

TEST_F(PreparedRecord, StandardsInUseFollowFromTheRowThatIsGiven) {
    script.answers.insert(standardsOfPT1, {{u"S-1"_s}, {u"S-2"_s}});
    record.RecordStandards[0] = u"first"_s;
    EXPECT_EQ(takeStandardsInUse(session, record, u"PT-1"_s, 1), 2);
    EXPECT_EQ(entriesOf(record.RecordStandards), (QStringList{u"first"_s, u"S-1"_s, u"S-2"_s}));
    EXPECT_EQ(takeStandardsInUse(session, record, u"other"_s, 0), 0);
}

TEST_F(PreparedRecord, MoreStandardsInUseThanCanBeListedAreNoneAndDoNotSpoilThePreparation) {
    auto& rows = script.answers[standardsOfPT1];
    for (int i = 1; i <= 52; ++i)
        rows << Row{u"S-%1"_s.arg(i)};
    const ReportWatch preparation(session);
    ui.expectReport(9, u"ModuleGlobals,GetInUseData"_s);
    EXPECT_EQ(takeStandardsInUse(session, record, u"PT-1"_s, 0), 0);
    EXPECT_EQ(entriesOf(record.RecordStandards), QStringList());
    EXPECT_FALSE(preparation.sawReport());
    ui.expectReport(9, u"ModuleGlobals,GetInUseData"_s);
    const auto standards = standardsInUse(session, u"PT-1"_s);
    EXPECT_FALSE(standards.areComplete);
    EXPECT_EQ(standards.assets.size(), 51);
    EXPECT_EQ(standards.assets.value(0), u"S-1"_s);

    rows.removeLast();
    EXPECT_EQ(takeStandardsInUse(session, record, u"PT-1"_s, 0), 51);
    EXPECT_EQ(entriesOf(record.RecordStandards).last(), u"S-51"_s);
}

TEST_F(PreparedRecord, StandardsInUseThatCannotBeReadAreNoneAndSpoilThePreparation) {
    script.answers.insert(standardsOfPT1, {{u"S-1"_s}, {std::nullopt}});
    const ReportWatch preparation(session);
    ui.expectReport(94, u"ModuleGlobals,GetInUseData"_s);
    EXPECT_EQ(takeStandardsInUse(session, record, u"PT-1"_s, 0), 0);
    EXPECT_EQ(entriesOf(record.RecordStandards), QStringList());
    EXPECT_TRUE(preparation.sawReport());
}

} // namespace kelvane::testing
