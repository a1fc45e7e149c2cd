#include "testkit/fixtures.h"
#include "tests/source_rules/document_rules.h"

using namespace Qt::StringLiterals;

namespace kelvane {

using testing::missingFiles;
using testing::missingHeadings;

TEST(DocumentRules, EveryFileThatADocumentNamesIsThere) {
    const QDir sources(QStringLiteral(KELVANE_SOURCES));
    ASSERT_TRUE(sources.exists(u"docs/where-to-change.md"_s));
    ASSERT_TRUE(sources.exists(u"CONTRIBUTING.md"_s));
    const auto missing = missingFiles(sources);
    EXPECT_TRUE(missing.isEmpty()) << missing.join(u'\n').toStdString();
}

TEST(DocumentRules, EachLinkToAHeadingFindsIt) {
    const auto missing = missingHeadings(QDir(QStringLiteral(KELVANE_SOURCES)));
    EXPECT_TRUE(missing.isEmpty()) << missing.join(u'\n').toStdString();
}

TEST(DocumentRules, AHeadingThatIsNotThereIsNamedWithItsLink) {
    const testing::OwnFolder folder;
    const QDir root(folder.path());
    ASSERT_TRUE(root.mkpath(u"docs"_s));
    folder.write(u"docs/page.md"_s,
                 "# What a page can't say\n\n[here](#what-a-page-cant-say), [gone](#gone)\n");
    folder.write(u"README.md"_s,
                 "[there](docs/page.md#what-a-page-cant-say), [gone](docs/page.md#what-a-page)\n");
    EXPECT_EQ(missingHeadings(root),
              (QStringList{u"README.md: docs/page.md#what-a-page"_s, u"docs/page.md: #gone"_s}));
}

TEST(DocumentRules, AFileThatIsNotThereIsNamedWithItsDocument) {
    const testing::OwnFolder folder;
    const QDir root(folder.path());
    for (const auto& path : {u"docs/pictures"_s, u"ui"_s})
        ASSERT_TRUE(root.mkpath(path));
    folder.write(u"ui/form.h"_s, {});
    folder.write(u"docs/pictures/form.png"_s, {});
    folder.write(u"docs/other.md"_s,
                 "`ui/form.h`, `ui/gone.h`, ![a form](pictures/form.png), [gone](pictures/gone.png)\n");
    folder.write(u"README.md"_s,
                 "`ui/`, `gone/`, `gone/form.cpp`, `build/x/y`, `a/b <c>`, [it](docs/other.md#it), "
                 "[site](https://example.org/x), [gone](other.md), `docs/pictures/`\n");
    EXPECT_EQ(missingFiles(root),
              (QStringList{u"README.md: gone/form.cpp"_s, u"README.md: other.md"_s,
                           u"docs/other.md: ui/gone.h"_s, u"docs/other.md: pictures/gone.png"_s}));
}

} // namespace kelvane
