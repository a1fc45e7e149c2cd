#include "drivers/link_library.h"

#include "platform/error.h"
#include "platform/system.h"
#include "testkit/fixtures.h"

#include <QDir>

#include <iostream>

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

TEST_F(FoundLibrary, ThatCanNotBeLoadedIsNotReplacedByTheSimulators) {
    const QDir simulators(folder.path() + u"/simulators"_s);
    ASSERT_TRUE(QDir().mkpath(simulators.path()));
    ASSERT_TRUE(QFile::copy(QStringLiteral(KELVANE_WHOLE_LIBRARY), simulators.filePath(u"libbroken.so"_s)));
    const auto missing = [&] { return LinkLibrary(u"broken"_s, folder.path(), simulators.path()).missing(); };
    EXPECT_EQ(missing(), QString()) << "nobody else has one";
    folder.write(u"libbroken.so"_s, "this is no library");
    EXPECT_TRUE(missing().contains(folder.path() + u"/libbroken.so: "_s)) << missing().toStdString();
    ASSERT_TRUE(QFile::remove(folder.path() + u"/libbroken.so"_s));
    ASSERT_TRUE(QFile::link(u"/no such library"_s, folder.path() + u"/libbroken.so"_s));
    EXPECT_NE(missing(), QString()) << "a link that leads nowhere";
}

TEST_F(FoundLibrary, OfTheSystemThatCanNotBeLoadedIsNotReplacedByTheSimulators) {
    ASSERT_TRUE(QFile::copy(QStringLiteral(KELVANE_WHOLE_LIBRARY), folder.path() + u"/libsystem_s.so"_s));
    const OwnFolder system;
    const auto path = qgetenv("LD_LIBRARY_PATH");
    qputenv("LD_LIBRARY_PATH", QFile::encodeName(system.path()));
    QFile whole(QStringLiteral(KELVANE_WHOLE_LIBRARY));
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    auto otherProcessor = whole.readAll();
    otherProcessor[4] = 1; // for 32 bits
    // Only a program that starts looks there.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    for (const auto& broken : {QByteArray("this is no library"), otherProcessor}) {
        system.write(u"libsystem_s.so"_s, broken);
        EXPECT_EXIT(
            {
                LinkLibrary library(u"system_s"_s, u"/nowhere"_s, folder.path());
                std::cerr << library.missing().toStdString() << std::endl;
                std::_Exit(7);
            },
            ::testing::ExitedWithCode(7), "could not be loaded.*libsystem_s.so: (file too short|wrong ELF)");
    }
    qputenv("LD_LIBRARY_PATH", path);
}

TEST_F(FoundLibrary, IsInstalledWhereverASiteMayPutItThoughTheSystemDoesNotKnowIt) {
    EXPECT_TRUE(isLibraryInstalled(u"libcrypt.so"_s));
    EXPECT_FALSE(isLibraryInstalled(u"libsite_s.so"_s));
    folder.write(u"libsite_s.so"_s, "this is no library");
    EXPECT_FALSE(isLibraryInstalled(u"libsite_s.so"_s));
    EXPECT_TRUE(isLibraryInstalled(u"libsite_s.so"_s, {u"/nowhere"_s, folder.path()}));
}

TEST_F(FoundLibrary, SaysItsFileOnceItIsLoaded) {
    ASSERT_TRUE(QFile::copy(QStringLiteral(KELVANE_WHOLE_LIBRARY), folder.path() + u"/libsimulated.so"_s));
    LinkLibrary library(u"simulated"_s, u"/nowhere"_s, folder.path());
    EXPECT_EQ(library.file(), QString());
    EXPECT_EQ(library.missing(), QString());
    EXPECT_EQ(library.file(), folder.path() + u"/libsimulated.so"_s);
    LinkLibrary ofSystem(u"crypt"_s, u"/nowhere"_s);
    EXPECT_EQ(ofSystem.missing(), QString());
    EXPECT_EQ(ofSystem.file(), u"libcrypt.so"_s);
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
