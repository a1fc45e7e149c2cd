#include "drivers/link_library.h"

#include "platform/error.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class FoundLibrary : public ::testing::Test {
  protected:
    OwnFolder folder;
};

TEST_F(FoundLibrary, IsTheSystemsWhenTheFolderHasNone) {
    LinkLibrary library(u"crypt"_s, folder.path());
    library.need("crypt");
    EXPECT_EQ(library.missing(), QString());
    EXPECT_NE(library.operation(0), nullptr);
}

TEST_F(FoundLibrary, IsTheFoldersBeforeTheSystems) {
    ASSERT_TRUE(QFile::copy(QStringLiteral(KELVANE_WHOLE_LIBRARY), folder.path() + u"/libcrypt.so"_s));
    LinkLibrary library(u"crypt"_s, folder.path());
    const LinkOperation<> close(library, "DPCclose");
    EXPECT_EQ(library.missing(), QString());
    EXPECT_EQ(close(), 0);
}

TEST_F(FoundLibrary, IsTheSimulatorsWhenNobodyElseHasOne) {
    ASSERT_TRUE(QFile::copy(QStringLiteral(KELVANE_WHOLE_LIBRARY), folder.path() + u"/libsimulated.so"_s));
    LinkLibrary library(u"simulated"_s, u"/nowhere"_s, folder.path());
    const LinkOperation<> close(library, "DPCclose");
    EXPECT_EQ(library.missing(), QString());
    EXPECT_EQ(close(), 0);
}

TEST_F(FoundLibrary, IsTheSystemsBeforeTheSimulators) {
    ASSERT_TRUE(QFile::copy(QStringLiteral(KELVANE_WHOLE_LIBRARY), folder.path() + u"/libcrypt.so"_s));
    LinkLibrary library(u"crypt"_s, u"/nowhere"_s, folder.path());
    library.need("crypt");
    EXPECT_EQ(library.missing(), QString());
}

TEST_F(FoundLibrary, NamesTheFirstOperationThatItLacks) {
    LinkLibrary library(u"crypt"_s, folder.path());
    library.need("crypt");
    library.need("DPCopen");
    library.need("DPCclose");
    EXPECT_TRUE(library.missing().contains(u"lacks the operation \"DPCopen\""_s))
        << library.missing().toStdString();
}

TEST_F(FoundLibrary, OfAnyNameIsAMessageWhenItIsNotThere) {
    for (const auto& name : {QString(), u"no such library"_s, u"../x"_s, u"%1 %2"_s, u"бібліотека"_s}) {
        LinkLibrary library(name, folder.path());
        EXPECT_TRUE(
            library.missing().startsWith(u"The link library \""_s + name + u"\" could not be loaded"_s))
            << library.missing().toStdString();
    }
}

TEST(LinkOperations, WithoutTheirLibraryAreErrors) {
    LinkLibrary library(u"none"_s, u"/"_s);
    const LinkOperation<int> operation(library, "one");
    EXPECT_THROW(operation(1), Error);
}

TEST(TextsIn, AreBytesOfTheCalibratorsAlphabetWithAZeroBehindThem) {
    EXPECT_STREQ(TextIn(u"é€Ж"_s), "\xE9\x80?");
    EXPECT_STREQ(TextIn(QString()), "");
}

TEST(TextsOut, TakeTheBufferWithinItsLength) {
    QString text(4, u' ');
    {
        TextOut out(text);
        char* bytes = out;
        EXPECT_EQ(QByteArray(bytes, 5), QByteArray("    \0", 5));
        std::fill_n(bytes, 200, '\x80');
    }
    EXPECT_EQ(text, u"€€€€"_s);
    QString none;
    {
        TextOut out(none);
        *static_cast<char*>(out) = 'x';
    }
    EXPECT_EQ(none, QString());
}

} // namespace kelvane::testing
