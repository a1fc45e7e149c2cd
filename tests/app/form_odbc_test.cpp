#include "testkit/program_fixture.h"

#include <QComboBox>
#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class FormODBCTest : public ProgramTest {
  protected:
    QComboBox& open() {
        start();
        choose(u"mnuODBC"_s);
        return list();
    }
    QComboBox& list() { return control<QComboBox>(child(u"FormODBC"_s), u"ComboDatasource"_s); }
    QString storedSource() { return settings.values.value(u"Workstation/ODBC"_s); }
};

TEST_F(FormODBCTest, ListsTheDataSourcesInTheOrderOfTheDriverManager) {
    dataSources = {u"Zeta"_s, u"Alpha"_s, u"Calibration Data"_s};
    const auto& sources = open();
    EXPECT_EQ(sources.count(), 3);
    EXPECT_EQ(sources.itemText(0), u"Zeta"_s);
    EXPECT_EQ(sources.itemText(1), u"Alpha"_s);
    EXPECT_EQ(child(u"FormODBC"_s).windowTitle(), u"Database Connection"_s);
    EXPECT_EQ(child(u"FormODBC"_s).pos(), QPoint(7, 5));
    EXPECT_EQ(control<QLabel>(child(u"FormODBC"_s), u"Label1"_s).text(), u"ODBC DataSource"_s);
    EXPECT_EQ(sources.toolTip(), u"Select an ODBC datasource from this list"_s);
    EXPECT_TRUE(sources.hasFocus());
}

TEST_F(FormODBCTest, WithoutASettingTheCalibrationDataIsSelectedAndStored) {
    EXPECT_EQ(open().currentText(), u"Calibration Data"_s);
    EXPECT_EQ(storedSource(), u"Calibration Data"_s);
}

TEST_F(FormODBCTest, TheSettingIsFoundInAnyCaseAndTakesTheSpellingOfTheDriverManager) {
    dataSources = {u"Other"_s, u"Site B"_s, u"SITE B"_s};
    settings.values.insert(u"Workstation/ODBC"_s, u"site b"_s);
    EXPECT_EQ(open().currentIndex(), 1);
    EXPECT_EQ(storedSource(), u"Site B"_s);
}

TEST_F(FormODBCTest, ASettingThatMatchesNoneStaysAndNothingIsSelected) {
    settings.values.insert(u"Workstation/ODBC"_s, u"Gone"_s);
    EXPECT_EQ(open().currentIndex(), -1);
    EXPECT_EQ(storedSource(), u"Gone"_s);
}

TEST_F(FormODBCTest, WithoutADriverManagerTheListStaysEmpty) {
    dataSources.clear();
    EXPECT_EQ(open().count(), 0);
    EXPECT_EQ(storedSource(), QString());
}

TEST_F(FormODBCTest, AChoiceIsStoredAtOnceAndClosingStoresOnlyThePosition) {
    auto& sources = open();
    QTest::keyClick(&sources, Qt::Key_Down);
    EXPECT_EQ(storedSource(), u"Site B"_s);
    settings.writes.clear();
    child(u"FormODBC"_s).close();
    EXPECT_EQ(settings.writes, (QStringList{u"Left/FormODBC=105"_s, u"Top/FormODBC=75"_s}));
}

TEST_F(FormODBCTest, ChosenBeforeTheLoginItIsTheSourceOfTheNextConnection) {
    answerLogin(u"jdoe"_s, u"MT"_s, u"4"_s);
    auto& sources = open();
    QTest::keyClick(&sources, Qt::Key_Down);
    typeLogin(u"jdoe"_s, u"secret"_s);
    EXPECT_EQ(script.opened.value(0), u"DSN=Site B"_s);
    EXPECT_EQ(session.SessionDataSource, u"Site B"_s);
}

TEST_F(FormODBCTest, ShownAgainItIsTheSameWindow) {
    open();
    choose(u"mnuODBC"_s);
    EXPECT_EQ(openChildren().count(u"FormODBC"_s), 1);
}

} // namespace kelvane::testing
