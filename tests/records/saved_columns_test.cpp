#include "records/saved_columns.h"

#include "testkit/fixtures.h"

#include <QHeaderView>
#include <QStandardItemModel>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class SavedColumns : public RecordedSession {
  protected:
    SavedColumns() { table.setModel(&model); }

    QHeaderView& header() { return *table.horizontalHeader(); }
    bool restore(const QString& stored) {
        settings.values.insert(u"Records/Instruments"_s, stored);
        return restoreColumns(session, u"Instruments"_s, columns, header());
    }

    QList<SavedColumn> columns{{u"Asset"_s}, {u"Model"_s}, {u"Serial"_s, false}, {u"Due"_s}};
    QStandardItemModel model{1, 4};
    QTableView table;
};

TEST_F(SavedColumns, AreAtFirstThoseThatAreMeantToBe) {
    EXPECT_FALSE(restore({}));
    EXPECT_EQ(shownColumns(header()), (QList<int>{0, 1, 3}));
}

TEST_F(SavedColumns, ComeBackInOrderWidthAndChoice) {
    restore({});
    header().moveSection(3, 0);
    header().setSectionHidden(1, true);
    header().setSectionHidden(2, false);
    header().resizeSection(0, 234);
    storeColumns(session, u"Instruments"_s, columns, header(), true);

    QTableView again;
    again.setModel(&model);
    EXPECT_TRUE(restoreColumns(session, u"Instruments"_s, columns, *again.horizontalHeader()));
    EXPECT_EQ(shownColumns(*again.horizontalHeader()), (QList<int>{3, 0, 2}));
    EXPECT_EQ(again.columnWidth(0), 234);
}

TEST_F(SavedColumns, ComeBackWithoutWidthsThatNobodyHasSet) {
    restore({});
    header().moveSection(3, 0);
    header().resizeSection(0, 234);
    storeColumns(session, u"Instruments"_s, columns, header(), false);
    EXPECT_EQ(settings.values.value(u"Records/Instruments"_s), u"Due,Asset,Model,-Serial"_s);

    QTableView again;
    again.setModel(&model);
    EXPECT_FALSE(restoreColumns(session, u"Instruments"_s, columns, *again.horizontalHeader()));
    EXPECT_EQ(shownColumns(*again.horizontalHeader()), (QList<int>{3, 0, 1}));
    EXPECT_NE(again.columnWidth(0), 234);
}

TEST_F(SavedColumns, AreStoredOnlyWhenTheyHaveChanged) {
    restore({});
    storeColumns(session, u"Instruments"_s, columns, header(), true);
    EXPECT_EQ(settings.writes.size(), 1);
    storeColumns(session, u"Instruments"_s, columns, header(), true);
    EXPECT_EQ(settings.writes.size(), 1);
}

TEST_F(SavedColumns, OfSettingsThatWereEditedByHandStayUsable) {
    struct Case {
        QString stored;
        QList<int> shown;
    };
    for (const auto& test : {Case{u"Due=100,Asset=90"_s, {3, 0, 1}},
                             {u"Other=100,Model=90,Model=80"_s, {1, 0, 3}},
                             {u"-Asset=1,-Model=1,-Serial=1,-Due=1"_s, {0}},
                             {u"nonsense"_s, {0, 1, 3}},
                             {u"Asset=,Due=x,Model=-1"_s, {0, 1, 3}},
                             {u"=,=;-"_s, {0, 1, 3}}}) {
        QTableView fresh;
        fresh.setModel(&model);
        settings.values.insert(u"Records/Instruments"_s, test.stored);
        restoreColumns(session, u"Instruments"_s, columns, *fresh.horizontalHeader());
        EXPECT_EQ(shownColumns(*fresh.horizontalHeader()), test.shown) << test.stored.toStdString();
    }
    restore(u"Asset=99999,Model=0"_s);
    EXPECT_EQ(table.columnWidth(0), 2000);
    EXPECT_GE(table.columnWidth(1), 20);
}

} // namespace kelvane::testing
