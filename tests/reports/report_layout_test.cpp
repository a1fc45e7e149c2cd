#include "reports/report_layout.h"

#include "reports/report.h"
#include "tests/reports/report_tools.h"

using namespace Qt::StringLiterals;

namespace kelvane {

using testing::layoutOf;
using testing::mistakeIn;

namespace {

class Layout : public ::testing::Test {
  protected:
    testing::OwnFolder folder;
};

} // namespace

TEST_F(Layout, WithoutAnythingHasMarginsAndTheWidthThatA4AndLetterShare) {
    const auto layout = layoutOf("{}");
    EXPECT_EQ(layout.margins, QMarginsF(12, 12, 12, 12));
    EXPECT_NEAR(layout.width, 210 - 24, 0.1);
    EXPECT_FALSE(layout.paper);
    EXPECT_TRUE(layout.tables.isEmpty());
}

TEST_F(Layout, NamesItsPaper) {
    const auto layout = layoutOf(R"({"paper": "Letter", "orientation": "landscape",
                                     "margins": {"left": 10, "top": 11, "right": 12, "bottom": 13}})");
    EXPECT_NEAR(layout.width, 279.4 - 22, 0.1);
    const auto pages = pageLayout(layout);
    EXPECT_EQ(pages.pageSize().id(), QPageSize::Letter);
    EXPECT_EQ(pages.orientation(), QPageLayout::Landscape);
    EXPECT_EQ(pages.margins(QPageLayout::Millimeter), QMarginsF(10, 11, 12, 13));
}

TEST_F(Layout, WithoutAPaperTakesThatOfTheMachine) {
    const auto size = pageLayout(layoutOf("{}")).pageSize().id();
    const auto isAmerican = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
    EXPECT_EQ(size, isAmerican ? QPageSize::Letter : QPageSize::A4);
}

TEST_F(Layout, WithABandOrAListOfBandsIsTakenAlike) {
    const auto layout =
        layoutOf(R"({"groupHeader": {"height": 5}, "summary": [{"height": 6}, {"height": 7}]})");
    ASSERT_EQ(layout.groupHeader.size(), 1);
    ASSERT_EQ(layout.summary.size(), 2);
    EXPECT_EQ(layout.summary[1].height, 7);
}

TEST_F(Layout, ThatIsWrongIsRefusedWithTheLine) {
    struct Mistake {
        QByteArray content;
        QString text;
    };
    const QList<Mistake> mistakes{
        {"[]", u"line 1: \"test.rpt\" must be an object in braces."_s},
        {"{\n\"colour\": 1}", u"line 2: \"colour\" is not known here; known are \"paper\", \"orientation\", "
                              "\"margins\", \"width\", \"font\", \"fonts\", \"pageHeader\", \"groupHeader\", "
                              "\"tables\", \"summary\", \"signature\", \"pageFooter\"."_s},
        {"{\n\n\"paper\": \"A5\"}", u"line 3: \"paper\" can't be \"A5\"; known are \"A4\", \"Letter\"."_s},
        {"{\"paper\":\n4}", u"line 2: \"paper\" must be a text."_s},
        {"{\n\"orientation\": \"upright\"}",
         u"line 2: \"orientation\" can't be \"upright\"; known are \"portrait\", \"landscape\"."_s},
        {"{\"margins\":\n{\"left\": -1}}", u"line 2: \"left\" must be from 0 to 100."_s},
        {"{\"margins\":\n{\"inner\": 1}}",
         u"line 2: \"inner\" is not known here; known are \"left\", \"top\", \"right\", \"bottom\"."_s},
        {"{\"margins\": 12}", u"line 1: \"margins\" must be an object in braces."_s},
        {"{\n\"width\": \"186\"}", u"line 2: \"width\" must be a number."_s},
        {"{\n\"width\": 190}",
         u"line 2: The report is 190 mm wide, but the paper has 186 mm between its margins."_s},
        {"{\n\"width\": 1e999}", u"line 2: "_s},
        {"{\"paper\": \"A4\",\n\"margins\": {\"left\": 100, \"right\": 105}}",
         u"line 2: \"right\" must be "_s},
        {"{\"orientation\": \"landscape\",\n\"margins\": {\"top\": 86, \"bottom\": 85}}",
         u"line 2: The paper has 39 mm between its upper and its lower margin, but a report needs 40."_s},
        {"{\"font\": {\n\"size\": 2}}", u"line 2: \"size\" must be from 3 to 100."_s},
        {"{\"font\": {\n\"bold\": 1}}", u"line 2: \"bold\" must be true or false."_s},
        {"{\"fonts\": {\"a\": {\n\"weight\": 1}}}", u"line 2: \"weight\" is not known here; known are "_s},
        {"{\"fonts\":\n[]}", u"line 2: \"fonts\" must be an object in braces."_s},
        {"{\"tables\":\n{}}", u"line 2: \"tables\" must be a list in square brackets."_s},
        {"{\"tables\": [\n{}]}", u"line 2: \"rows\" is missing."_s},
        {"{\"tables\": [\n{\"rows\": \"points\"}]}", u"line 2: \"row\" is missing."_s},
        {"{\"tables\": [{\"rows\": \"points\", \"row\": {},\n\"emptyRows\": 1.5}]}",
         u"line 2: \"emptyRows\" must be a whole number."_s},
        {"{\"tables\": [{\"rows\": \"points\", \"row\": {},\n\"emptyRows\": 101}]}",
         u"line 2: \"emptyRows\" must be from 0 to 100."_s},
        {"{\"summary\":\n3}", u"line 2: \"summary\" must be an object in braces."_s},
        {"{\"signature\":\n[]}", u"line 2: \"signature\" must be an object in braces."_s},
    };
    for (const auto& mistake : mistakes) {
        const auto found = mistakeIn(mistake.content);
        EXPECT_TRUE(found.startsWith(u"test.rpt, "_s + mistake.text)) << mistake.content.toStdString() << '\n'
                                                                      << found.toStdString();
    }
}

} // namespace kelvane
