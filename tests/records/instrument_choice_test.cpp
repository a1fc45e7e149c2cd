#include "records/instrument_choice.h"

#include "testkit/screen_operator.h"
#include "tests/records/reading_session.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class ChoiceOfInstruments : public ReadingSession {
  protected:
    void open() {
        choice = std::make_unique<InstrumentChoice>(session);
        choice->restore();
        choice->show();
    }
    InstrumentFilter filter(bool hasInstruments = true) {
        InstrumentFilter chosen;
        EXPECT_EQ(choice->setIn(chosen), hasInstruments);
        return chosen;
    }

    std::unique_ptr<InstrumentChoice> choice;
};

TEST_F(ChoiceOfInstruments, IsAllAtFirst) {
    open();
    EXPECT_EQ(choice->kinds()->currentText(), u"All instruments"_s);
    EXPECT_FALSE(choice->values()->isVisible());
    EXPECT_FALSE(filter().isOverdue || filter().dueWithinDays);
    EXPECT_EQ(settings.writes, QStringList());
}

TEST_F(ChoiceOfInstruments, IsKeptForTheNextTime) {
    open();
    QSignalSpy chosen(choice.get(), &InstrumentChoice::chosen);
    pick(*choice->kinds(), u"Overdue"_s);
    EXPECT_EQ(chosen.size(), 1);
    open();
    EXPECT_EQ(choice->kinds()->currentText(), u"Overdue"_s);
    EXPECT_TRUE(filter().isOverdue);

    pick(*choice->kinds(), u"Of one model"_s);
    pick(*choice->values(), choice->values()->itemText(1));
    const auto model = choice->values()->currentText();
    open();
    EXPECT_EQ(filter().model, model);
    EXPECT_TRUE(choice->values()->isVisible());
    EXPECT_EQ(choice->values()->currentIndex(), 1);

    pick(*choice->kinds(), u"Due within 60 days"_s);
    open();
    EXPECT_EQ(filter().dueWithinDays, 60);
    EXPECT_EQ(filter().model, QString());
}

TEST_F(ChoiceOfInstruments, OfAValueThatHasGoneIsAllAgain) {
    settings.values[u"Records/Show"_s] = u"Description"_s;
    settings.values[u"Records/ShowValue"_s] = u"no such thing"_s;
    open();
    EXPECT_EQ(choice->kinds()->currentIndex(), 0);
    EXPECT_EQ(filter().description, QString());
    settings.values[u"Records/Show"_s] = u"of a later version"_s;
    open();
    EXPECT_EQ(choice->kinds()->currentIndex(), 0);
}

TEST_F(ChoiceOfInstruments, ThatCanNotBeReadIsAll) {
    settings.values[u"Records/Show"_s] = u"Group"_s;
    closeConnection(session);
    ui.expectReport(static_cast<int>(ErrorNumber::connectionClosed),
                    u"FormPredefinedTasks,OptionSegregate-Click"_s);
    open();
    EXPECT_EQ(choice->kinds()->currentIndex(), 0);
}

TEST_F(ChoiceOfInstruments, IsForgottenOnTheScreenAlone) {
    open();
    pick(*choice->kinds(), u"Overdue"_s);
    choice->forget();
    EXPECT_EQ(choice->kinds()->currentIndex(), 0);
    EXPECT_FALSE(filter().isOverdue);
    open();
    EXPECT_TRUE(filter().isOverdue);
}

} // namespace kelvane::testing
