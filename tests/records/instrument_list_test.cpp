#include "records/instrument_list.h"

#include "resources/text_id.h"
#include "testkit/shown_in.h"
#include "tests/records/made_up_instruments.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class InstrumentLists : public MadeUpSession {
  protected:
    QString save(const QList<int>& columns = {0, 1}) {
        return saveInstruments(session, {}, columns, {path, {u';', u','}});
    }

    QString path = folder.path() + u"/list.csv"_s;
};

TEST_F(InstrumentLists, AreSavedToTheirEndWhateverWasSeen) {
    inventory.instruments = 1234;
    EXPECT_EQ(save(), u"Saved: "_s + path);
    const auto saved = folder.read(u"list.csv"_s);
    EXPECT_TRUE(saved.startsWith(u"Asset;Description\r\nI-00000;\r\n"_s));
    EXPECT_TRUE(saved.endsWith(u"I-01233;\r\n"_s));
    EXPECT_EQ(saved.count(u'\n'), 1235);
}

TEST_F(InstrumentLists, HaveTheTitlesOfTheLanguage) {
    const ShownIn german(u"de"_s);
    EXPECT_EQ(save(), text(TextId::communicationLogSaved).arg(path));
    EXPECT_EQ(folder.read(u"list.csv"_s), u"Inventarnummer;Bezeichnung\r\n"_s);
}

TEST_F(InstrumentLists, ThatFailHalfWayLeaveTheFileAsItWas) {
    folder.write(u"list.csv"_s, "before");
    inventory.instruments = 1234;
    inventory.failAt = 700;
    ui.expectReport(10054, u"History,instruments"_s);
    EXPECT_EQ(save(), text(TextId::recordsNotSaved));
    EXPECT_EQ(folder.read(u"list.csv"_s), u"before"_s);
}

TEST_F(InstrumentLists, ThatCanNotBeWrittenSayWhy) {
    path = folder.path() + u"/none/list.csv"_s;
    EXPECT_TRUE(save().startsWith(path + u" could not be written: "_s));
}

} // namespace kelvane::testing
