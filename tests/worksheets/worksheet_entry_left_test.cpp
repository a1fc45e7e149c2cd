// What stays in the journal without a record, and is offered to the operator then.
#include "data/journal/journal.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/overheard_connection.h"
#include "tests/worksheets/entry_fixture.h"
#include "worksheets/worksheet_entry.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// A worksheet that asks for the date alone.
class WorksheetLeftWithoutRecord : public EntryFixture {
  protected:
    WorksheetLeftWithoutRecord() {
        setDictionary({{.column = u"C2301"_s,
                        .title = u"Date"_s,
                        .required = u"Y"_s,
                        .defaultText = u"99/99/99"_s,
                        .isDate = true}},
                      {u"2301"_s});
    }
    void enter() {
        ask.instrument(u"PT-1"_s);
        ask.field(u"PT-1"_s, u"Date"_s, u"03/18/2026"_s);
        ask.noMoreStandards();
        start();
    }
    /// Nothing can be written into the journal any more.
    void blockJournal() const {
        const auto path = Journal(session).path();
        ASSERT_TRUE(QFile::rename(path, u"aside"_s));
        ASSERT_TRUE(QDir().mkdir(path));
    }
    void expectOffered() {
        EXPECT_FALSE(hasRecord());
        EXPECT_EQ(screen.offered, 1);
        EXPECT_EQ(screen.ended, 1);
    }
};

TEST_F(WorksheetLeftWithoutRecord, GivenUpAfterAReportOfItsQuestionsIsOffered) {
    enter();
    ask.field(u"PT-1"_s, u"Date"_s, u"no date"_s);
    ui.expectReport(13, u"ModuleGlobals,PromptUser"_s);
    ui.expectBox(text(TextId::requiredDataRetryAdvised), u"Calibration Record Creation"_s,
                 box::warningRetryCancel, BoxAnswer::cancel);
    ui.expectBox(u"Unable to create calibration record because required information was not provided."_s,
                 u"Calibration Record Creation"_s, box::stop);
    save();
    EXPECT_EQ(Journal(session).unfinished().size(), 1);
    expectOffered();
}

TEST_F(WorksheetLeftWithoutRecord, WhoseRefusalTheJournalDoesNotTakeIsOffered) {
    enter();
    ask.cancelledField(u"PT-1"_s, u"Date"_s);
    ui.expectBox(text(TextId::requiredDataRetryAdvised), u"Calibration Record Creation"_s,
                 box::warningRetryCancel, BoxAnswer::cancel);
    ui.onBox = [this] {
        ui.onBox = {};
        blockJournal();
    };
    ui.expectReport(75, u"Journal,Change"_s);
    ui.expectBox(u"Unable to create calibration record because required information was not provided."_s,
                 u"Calibration Record Creation"_s, box::stop);
    save();
    expectOffered();
}

TEST_F(WorksheetLeftWithoutRecord, WhoseBeginningTheJournalDoesNotTakeIsNotBegun) {
    enter();
    ask.field(u"PT-1"_s, u"Date"_s, u"03/18/2026"_s, [this](const DialogQuestion&) { blockJournal(); });
    ui.expectReport(75, u"ModuleGlobals,CreateCalRecord"_s);
    ui.expectReport(75, u"Journal,Change"_s);
    save();
    expectOffered();
}

TEST_F(WorksheetLeftWithoutRecord, WithAStandardWhoseNameHasAQuoteIsOffered) {
    ask.instrument(u"PT-1"_s);
    ask.field(u"PT-1"_s, u"Date"_s, u"03/18/2026"_s);
    ask.standard(u"O'Neil"_s);
    ui.expectReport(1, u"ModuleGlobals,CheckAsset"_s);
    ask.warning(u"Standard does not exist!"_s, standardsTitle);
    ask.noMoreStandards();
    start();
    EXPECT_EQ(screen.listed, QStringList{u"O'Neil"_s});
    save();
    const auto left = Journal(session).unfinished();
    ASSERT_EQ(left.size(), 1);
    EXPECT_EQ(left[0].standards, QStringList{u"O'Neil"_s});
    expectOffered();
}

TEST_F(WorksheetLeftWithoutRecord, WhoseOwnQueryFailedWhereNothingCanBeReportedIsOffered) {
    int queries = 0;
    sharedConnection(session);
    session.SharedConnection = std::make_unique<OverheardConnection>(
        std::move(session.SharedConnection), [&queries](const QString& statement) {
            // The dictionary asks for the same before.
            if (statement == worksheetQuery && ++queries == 2)
                throw serverError();
        });
    ASSERT_TRUE(QDir().mkdir(u"errors.log"_s));
    ask.instrument(u"PT-1"_s);
    EXPECT_THROW(entry.startDataEntry(), Error);
    ASSERT_TRUE(QDir().rmdir(u"errors.log"_s));
    save();
    expectOffered();
}

TEST_F(WorksheetLeftWithoutRecord, WhoseDictionaryFailedWhereNothingCanBeReportedKeepsNoneOfItsValues) {
    enter();
    script.failures[typeQuery(u"C2301"_s)] = serverError();
    ASSERT_TRUE(QDir().mkdir(u"errors.log"_s));
    ask.instrument(u"PT-1"_s);
    EXPECT_THROW(entry.startDataEntry(), Error);
    ASSERT_TRUE(QDir().rmdir(u"errors.log"_s));
    save();
    const auto left = Journal(session).unfinished();
    ASSERT_EQ(left.size(), 1);
    EXPECT_FALSE(left[0].raw["dictionaryRead"_L1].toBool());
    expectOffered();
}

} // namespace kelvane::testing
