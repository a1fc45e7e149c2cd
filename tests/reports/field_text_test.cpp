#include "reports/field_text.h"

#include "reports/report_error.h"
#include "tests/reports/report_tools.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

class Fields : public ::testing::Test {
  protected:
    Fields() {
        values.setGroup({{u"asset"_s, u"PT-7"_s},
                         {u"serial"_s, u"S-1"_s},
                         {u"empty"_s, QString()},
                         {u"none"_s, QJsonValue()},
                         {u"number"_s, 4.5},
                         {u"odd"_s, u"<b> & \"it's\" {{asset}}"_s},
                         {u"standards"_s, QJsonArray{QJsonObject{{u"asset"_s, u"A"_s}, {u"serial"_s, u"1"_s}},
                                                     QJsonObject{{u"asset"_s, u"B"_s}}}},
                         {u"noStandards"_s, QJsonArray()}});
        values.setPage(u"2"_s, u"3"_s);
    }
    QString filled(const QString& pattern) { return FieldText(pattern).filled(values); }

    FieldValues values{{{u"title"_s, u"Worksheet"_s}, {u"asset"_s, u"none"_s}}};
};

} // namespace

TEST_F(Fields, AreFilledFromTheGroupOverTheReport) {
    EXPECT_EQ(filled(u"{{title}}: {{asset}}, {{number}}"_s), u"Worksheet: PT-7, 4.5"_s);
}

TEST_F(Fields, WithoutAValuePrintAsNothing) {
    EXPECT_EQ(filled(u"[{{unknown}}{{empty}}{{none}}{{standards}}]"_s), u"[]"_s);
}

TEST_F(Fields, AreNotEscapedAndNotFilledTwice) {
    EXPECT_EQ(filled(u"{{odd}}"_s), u"<b> & \"it's\" {{asset}}"_s);
    EXPECT_EQ(filled(u"{{{odd}}}"_s), filled(u"{{&odd}}"_s));
}

TEST_F(Fields, OfASectionShowOnlyWithAValue) {
    EXPECT_EQ(filled(u"{{#serial}}S/N {{serial}}{{/serial}}{{^serial}}none{{/serial}}"_s), u"S/N S-1"_s);
    EXPECT_EQ(filled(u"{{#empty}}S/N{{/empty}}{{^empty}}none{{/empty}}"_s), u"none"_s);
    EXPECT_EQ(filled(u"{{#unknown}}S/N{{/unknown}}{{^unknown}}none{{/unknown}}"_s), u"none"_s);
}

TEST_F(Fields, OfASectionOverAListAreThoseOfItsRow) {
    EXPECT_EQ(filled(u"{{#standards}}{{asset}}({{serial}}){{/standards}}"_s), u"A(1)B()"_s);
    EXPECT_EQ(filled(u"{{#noStandards}}x{{/noStandards}}{{^noStandards}}none{{/noStandards}}"_s), u"none"_s);
}

TEST_F(Fields, OfARowAreItsOwn) {
    values.setRow({{u"asset"_s, u"STD-1"_s}});
    EXPECT_EQ(filled(u"{{asset}}{{serial}}{{title}}"_s), u"STD-1"_s);
    EXPECT_EQ(filled(u"{{group.serial}} {{report.title}} {{page}}/{{pages}}"_s), u"S-1 Worksheet 2/3"_s);
    values.clearRow();
    EXPECT_EQ(filled(u"{{asset}} {{group.asset}} {{report.asset}}"_s), u"PT-7 PT-7 none"_s);
}

TEST_F(Fields, OfANewGroupReplaceThoseOfTheOld) {
    values.setRow({{u"asset"_s, u"STD-1"_s}});
    values.setGroup({{u"model"_s, u"M"_s}});
    EXPECT_EQ(filled(u"{{asset}} {{serial}}{{model}}"_s), u"none M"_s);
}

TEST_F(Fields, TellWhetherThereAreAnyAndWhetherTheyNamePages) {
    EXPECT_TRUE(FieldText(u"Page { }"_s).isPlain());
    EXPECT_FALSE(FieldText(u"{{asset}}"_s).isPlain());
    EXPECT_TRUE(FieldText(u"Page {{page}}"_s).namesPages());
    EXPECT_TRUE(FieldText(u"of {{ pages }}"_s).namesPages());
    EXPECT_FALSE(FieldText(u"pages {{asset}} page"_s).namesPages());
}

TEST_F(Fields, ThatAreNotWellFormedAreRefused) {
    for (const auto& pattern :
         {u"{{"_s, u"{{asset"_s, u"{{#a}}"_s, u"{{/a}}"_s, u"{{#a}}{{/b}}"_s, u"{{#a}}{{#b}}{{/a}}{{/b}}"_s,
          u"{{=a=}}"_s, u"{{=<% %>=}}<%pages%>"_s, u"{{ =| |= }}"_s, u"{{> other}}"_s, u"{{{asset}}"_s}) {
        EXPECT_THROW(FieldText{pattern}, ReportError) << pattern.toStdString();
    }
}

TEST_F(Fields, InPartsWithinEachOtherAreRefusedBeyondALimit) {
    const auto nested = [](qsizetype depth) {
        return u"{{#serial}}"_s.repeated(depth) + u"{{asset}}"_s + u"{{/serial}}"_s.repeated(depth);
    };
    EXPECT_EQ(filled(nested(32)), u"PT-7"_s);
    EXPECT_EQ(filled(u"{{#serial}}{{/serial}}"_s.repeated(40) + nested(1)), u"PT-7"_s);
    EXPECT_THROW(FieldText{nested(33)}, ReportError);
    EXPECT_THROW(FieldText{nested(40'000)}, ReportError);
}

} // namespace kelvane
