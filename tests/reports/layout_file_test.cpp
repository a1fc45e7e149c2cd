#include "reports/layout_file.h"

#include "reports/report_error.h"
#include "tests/reports/report_tools.h"

using namespace Qt::StringLiterals;

namespace kelvane {

using testing::mistakeIn;

namespace {

class LayoutFile : public ::testing::Test {
  protected:
    QString mistakeOf(const QString& path) const {
        try {
            readLayout(path);
        } catch (const ReportError& error) {
            return error.text();
        }
        return {};
    }

    /// How a mistake of a whole file begins.
    static QString naming(const QString& name) {
        return u"The file \""_s + QDir().absoluteFilePath(name) + u"\": "_s;
    }

    testing::OwnFolder folder;
};

} // namespace

TEST_F(LayoutFile, MayHaveCommentsAndAByteOrderMark) {
    EXPECT_EQ(mistakeIn("// a comment\n{ /* another */ }\n"), QString());
    EXPECT_EQ(mistakeIn("\xEF\xBB\xBF{}"), QString());
}

TEST_F(LayoutFile, ThatIsMissingIsNamedWithItsFolder) {
    EXPECT_EQ(mistakeOf(u"gone.rpt"_s), naming(u"gone.rpt"_s) + u"No such file or directory"_s);
}

TEST_F(LayoutFile, ThatIsAFolderIsNamed) {
    QDir().mkdir(u"folder.rpt"_s);
    EXPECT_TRUE(mistakeOf(u"folder.rpt"_s).startsWith(naming(u"folder.rpt"_s)));
}

TEST_F(LayoutFile, WithoutContentIsRefused) {
    const auto place = naming(u"test.rpt"_s);
    EXPECT_EQ(mistakeIn(""), place + u"The file is empty."_s);
    EXPECT_EQ(mistakeIn(" \n\t\n  "), place + u"The file is empty."_s);
}

TEST_F(LayoutFile, OfMoreThanAMegabyteIsRefused) {
    EXPECT_EQ(mistakeIn("{}" + QByteArray(1024 * 1024, ' ')),
              naming(u"test.rpt"_s) + u"A layout has at most 1048576 bytes."_s);
    EXPECT_EQ(mistakeIn("{}" + QByteArray(1024 * 1024 - 2, ' ')), QString());
}

TEST_F(LayoutFile, ThatIsNoUtf8IsRefusedWithTheLine) {
    EXPECT_EQ(mistakeIn("{\n  \"font\": {\"family\": \"\xE4\"}\n}"),
              u"test.rpt, line 2: This is not UTF-8 text."_s);
}

TEST_F(LayoutFile, ThatIsNestedTooDeeplyIsRefused) {
    EXPECT_EQ(mistakeIn(QByteArray(100'000, '[')),
              naming(u"test.rpt"_s) + u"There are more than 32 brackets within each other."_s);
}

TEST_F(LayoutFile, WithAnErrorOfSyntaxIsRefusedWithTheLine) {
    const QList<std::pair<QByteArray, QString>> mistakes{
        {"{\n\n  \"width\" 186\n}", u"line 3: Missing ':' after object member name"_s},
        {"{\n  \"width\": 186\n  \"tables\": []\n}", u"line 3: Missing ',' or '}' in object declaration"_s},
        {"{\n  \"tables\": [\n", u"line 3: "_s},
        {"{}\nmore", u"line 2: Extra non-whitespace after JSON value."_s},
        {"hello", u"line 1: "_s},
        {"{\"width\": 1,\n\"width\": 2}", u"line 2: Duplicate key: 'width'"_s},
        {"{\n\"width\": NaN}", u"line 2: "_s},
        {QByteArray("{\n\0}", 4), u"line 2: "_s},
    };
    for (const auto& [content, mistake] : mistakes) {
        const auto found = mistakeIn(content);
        EXPECT_TRUE(found.startsWith(u"test.rpt, "_s + mistake))
            << content.toStdString() << found.toStdString();
        EXPECT_GT(found.size(), 18) << content.toStdString();
    }
}

} // namespace kelvane
