#include "data/records/cal_record.h"
#include "resources/strings.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const auto valuesQuery = u"select val from mt.valfield where fldnum = '2315' order by val asc"_s;

} // namespace

class PromptUser : public RecordedSession {
  protected:
    CalRecord record;
    PromptUser() {
        field.column = u"C2315"_s;
        field.title = u"Place of Calibration"_s;
        field.max_length = 20;
    }
    bool ask() {
        record.CalFieldTable[3] = field;
        const bool answered = ModuleGlobals::PromptUser(session, record, 3, u"A-1"_s);
        EXPECT_TRUE(ui.hasMetAll());
        return answered;
    }
    QString value() const { return std::as_const(record).CalFieldTable[3].value; }
    void answer(const QString& entry, std::function<void(const DialogQuestion&)> check = {}) {
        ui.expectDialog(u"Calibration Record Data (A-1)"_s,
                        u"Please enter information for: Place of Calibration"_s, entry, std::move(check));
    }
    void boxRequired(BoxAnswer answer) {
        ui.expectBox(u"Required field - must provide an entry!"_s, u"Calibration Record Data"_s,
                     box::warningOkCancel, answer);
    }
    CalField field;
};

TEST_F(PromptUser, AsksByTheFieldAndStoresTheAnswer) {
    answer(u"LAB 3"_s, [](const DialogQuestion& question) {
        EXPECT_FALSE(question.required);
        EXPECT_FALSE(question.fromList);
        EXPECT_EQ(question.maxLength, 20);
        EXPECT_EQ(question.fieldType, 0);
        EXPECT_EQ(question.defaultText, QString());
    });
    EXPECT_TRUE(ask());
    EXPECT_EQ(value(), u"LAB 3"_s);
    EXPECT_EQ(script.statements, QStringList()) << "no list, no question to the database";
}

TEST_F(PromptUser, StartsWithTheValueElseWithTheDefaultAsItStands) {
    field.value = u"IN PLACE"_s;
    field.default_text = u"LAB"_s;
    answer(u"x"_s, [](const DialogQuestion& question) { EXPECT_EQ(question.defaultText, u"IN PLACE"_s); });
    ask();
    field.value.clear();
    answer(u"x"_s, [](const DialogQuestion& question) { EXPECT_EQ(question.defaultText, u"LAB"_s); });
    ask();
    field.default_text = u"99/99/99"_s;
    answer(u"x"_s, [](const DialogQuestion& question) { EXPECT_EQ(question.defaultText, u"99/99/99"_s); });
    ask();
}

TEST_F(PromptUser, RequiredAndKindArePassedToTheDialog) {
    field.required = u"Y"_s;
    field.field_type = 2;
    answer(u"12"_s, [](const DialogQuestion& question) {
        EXPECT_TRUE(question.required);
        EXPECT_EQ(question.fieldType, 2);
    });
    EXPECT_TRUE(ask());
    EXPECT_EQ(value(), u"12"_s);
}

TEST_F(PromptUser, OnlyACapitalYIsRequired) {
    for (const auto& mark : {u"N"_s, QString(), u"y"_s}) {
        field.required = mark;
        answer(u"x"_s, [](const DialogQuestion& question) { EXPECT_FALSE(question.required); });
        EXPECT_TRUE(ask());
    }
}

TEST_F(PromptUser, ValueListIsOfferedWithoutNullsAndBlanks) {
    field.has_list = true;
    script.answers[valuesQuery] = {{std::nullopt}, {QString()}, {u"   "_s}, {u"IN PLACE"_s}, {u" LAB"_s}};
    answer(u" LAB"_s, [](const DialogQuestion& question) {
        EXPECT_TRUE(question.fromList);
        EXPECT_EQ(question.choices, (QStringList{u"IN PLACE"_s, u" LAB"_s}));
    });
    EXPECT_TRUE(ask());
    EXPECT_EQ(script.statements, QStringList{valuesQuery});
}

TEST_F(PromptUser, OlderVersionOffersAnEmptyList) {
    session.SessionDbVersion = 5;
    field.has_list = true;
    answer(u"x"_s, [](const DialogQuestion& question) {
        EXPECT_TRUE(question.fromList);
        EXPECT_EQ(question.choices, QStringList());
    });
    EXPECT_TRUE(ask());
    EXPECT_EQ(script.statements, QStringList());
}

TEST_F(PromptUser, ListOfMoreThan2500ValuesIsCutWithoutAReport) {
    field.has_list = true;
    auto& rows = script.answers[valuesQuery];
    for (int i = 0; i < 2502; ++i)
        rows << Row{u"V%1"_s.arg(i)};
    answer(u"V0"_s, [](const DialogQuestion& question) {
        EXPECT_EQ(question.choices.size(), 2500);
        EXPECT_EQ(question.choices.last(), u"V2499"_s);
    });
    EXPECT_TRUE(ask());
}

TEST_F(PromptUser, AnswerIsStoredInTheFormOfItsKind) {
    const struct {
        qint16 type;
        QString format;
        QString entry;
        QString stored;
    } rows[] = {
        {1, u"MM/DD/YYYY"_s, u"3/8/2026"_s, u"03/08/2026"_s},
        {1, u"DD/MM/YYYY"_s, u"3/8/2026"_s, u"03/08/2026"_s},
        {1, u"YYYY/MM/DD"_s, u"8 Mar 2026"_s, u"2026/03/08"_s},
        {1, QString(), u"8 Mar 2026"_s, QString()},
        {1, u"MM/DD/YYYY"_s, QString(), QString()},
        {2, u"MM/DD/YYYY"_s, u"1,000.5"_s, u"1,000.5"_s},
        {3, u"MM/DD/YYYY"_s, u"2:05 PM"_s, u"14:05"_s},
        {3, u"MM/DD/YYYY"_s, u"2:05:59"_s, u"02:05"_s},
        {0, u"MM/DD/YYYY"_s, u"3/8/2026"_s, u"3/8/2026"_s},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.entry.toStdString());
        session.SessionDateFormat = row.format;
        field.field_type = row.type;
        answer(row.entry);
        EXPECT_TRUE(ask());
        EXPECT_EQ(value(), row.stored);
    }
}

TEST_F(PromptUser, EmptyAnswerOfAnOptionalFieldIsAnAnswer) {
    field.value = u"old"_s;
    answer({});
    EXPECT_TRUE(ask());
    EXPECT_EQ(value(), QString());
}

TEST_F(PromptUser, EmptyAnswerOfARequiredFieldAsksAgainUntilItIsCancelled) {
    field.required = u"Y"_s;
    field.value = u"old"_s;
    answer({});
    boxRequired(BoxAnswer::ok);
    answer({});
    boxRequired(BoxAnswer::ok);
    answer(u"new"_s);
    EXPECT_TRUE(ask());
    EXPECT_EQ(value(), u"new"_s);

    answer({});
    boxRequired(BoxAnswer::cancel);
    EXPECT_FALSE(ask());
    EXPECT_EQ(value(), u"old"_s);
}

TEST_F(PromptUser, CancelledDialogAsksOnceMoreInTheWordsOfARequiredFieldEvenForAnOptionalOne) {
    answer(cancelled);
    boxRequired(BoxAnswer::ok);
    answer(u"x"_s);
    EXPECT_TRUE(ask());

    field.value = u"old"_s;
    answer(cancelled);
    boxRequired(BoxAnswer::cancel);
    EXPECT_FALSE(ask());
    EXPECT_EQ(value(), u"old"_s);
}

TEST_F(PromptUser, ListIsReadOnceHoweverOftenItAsks) {
    field.has_list = true;
    script.answers[valuesQuery] = {{u"LAB"_s}};
    answer(cancelled);
    boxRequired(BoxAnswer::ok);
    answer(u"LAB"_s,
           [](const DialogQuestion& question) { EXPECT_EQ(question.choices, QStringList{u"LAB"_s}); });
    EXPECT_TRUE(ask());
    EXPECT_EQ(script.statements, QStringList{valuesQuery});
}

TEST_F(PromptUser, FailuresAreReportedAndCountAsNoAnswer) {
    field.has_list = true;
    script.failures[valuesQuery] = Error{-141, u"Table not found"_s};
    ui.expectReport(-141, u"ModuleGlobals,PromptUser"_s);
    EXPECT_FALSE(ask());

    field.has_list = false;
    field.field_type = 1;
    answer(u"soon"_s);
    ui.expectReport(13, u"ModuleGlobals,PromptUser"_s);
    EXPECT_FALSE(ask());

    ui.expectReport(9, u"ModuleGlobals,PromptUser"_s);
    EXPECT_FALSE(ModuleGlobals::PromptUser(session, record, 101, u"A-1"_s));
}

} // namespace kelvane::testing
