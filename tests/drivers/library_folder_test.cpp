// Whether a calibrator's link library is there: alike for the Fluke calibrators.

#include "drivers/fluke702/dpclnk_library.h"
#include "drivers/fluke702/logged_dpclnk.h"
#include "drivers/fluke74x/dpclnk3_library.h"
#include "drivers/fluke74x/logged_dpclnk3.h"
#include "testkit/loaded_library.h"
#include "tests/drivers/fluke_names.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// A library's name, a whole one, and one that lacks an operation.
struct LibraryChoice {
    QString name;
    QString whole;
    QString lacking;
    QString lackedOperation;
};

class DpclnkFolder : public LibraryFolderOf<DpclnkLibrary, &DpclnkLibrary::DPCclose> {
  protected:
    DpclnkFolder() : LibraryFolderOf(QStringLiteral(KELVANE_WHOLE_LIBRARY)) {}

    const LibraryChoice choice{u"dpclnk"_s, QStringLiteral(KELVANE_WHOLE_LIBRARY),
                               QStringLiteral(KELVANE_LACKING_LIBRARY), u"STAgetPressure"_s};
};

class Dpclnk3Folder : public LibraryFolderOf<Dpclnk3Library, &Dpclnk3Library::DPC3close> {
  protected:
    Dpclnk3Folder() : LibraryFolderOf(QStringLiteral(KELVANE_WHOLE_LIBRARY3)) {}

    const LibraryChoice choice{u"dpclnk3"_s, QStringLiteral(KELVANE_WHOLE_LIBRARY3),
                               QStringLiteral(KELVANE_LACKING_LIBRARY3), u"STA3getMapped"_s};
};

using LibraryFolders = ::testing::Types<DpclnkFolder, Dpclnk3Folder>;

template <class Folder>
class LibraryFolder : public Folder {};
TYPED_TEST_SUITE(LibraryFolder, LibraryFolders, FlukeNames);

TYPED_TEST(LibraryFolder, WithoutALibraryIsReportedByNameAndFolderAndCallsAreErrors) {
    const auto missing = this->link.missing();
    EXPECT_TRUE(missing.startsWith(
        u"The link library \"%1\" could not be loaded. Please install it in the folder \"%2\" and try again. ("_s
            .arg(this->choice.name, QDir::toNativeSeparators(this->folder.path()))))
        << missing.toStdString();
    EXPECT_EQ(this->errorOfCall(), 53);
}

TYPED_TEST(LibraryFolder, IsSearchedAgainAtEachQueryUntilTheLibraryIsThere) {
    EXPECT_NE(this->link.missing(), QString());
    EXPECT_EQ(this->errorOfCall(), 53);
    this->install(this->choice.whole);
    EXPECT_EQ(this->errorOfCall(), 53) << "not before it is asked";
    EXPECT_EQ(this->link.missing(), QString());
    EXPECT_EQ(this->errorOfCall(), 0);
    QFile::remove(this->place);
    EXPECT_EQ(this->link.missing(), QString()) << "what is loaded stays";
    EXPECT_EQ(this->errorOfCall(), 0);
}

TYPED_TEST(LibraryFolder, WithALibraryThatLacksAnOperationNamesItAndTakesABetterOne) {
    this->install(this->choice.lacking);
    EXPECT_EQ(
        this->link.missing(),
        u"The link library \"%1\" lacks the operation \"%2\". Please install the library that belongs to the calibrator and try again."_s
            .arg(QDir::toNativeSeparators(this->place), this->choice.lackedOperation));
    EXPECT_EQ(this->errorOfCall(), 53) << "nothing is called in half a library";
    this->install(this->choice.whole);
    EXPECT_EQ(this->link.missing(), QString());
    EXPECT_EQ(this->errorOfCall(), 0);
}

TYPED_TEST(LibraryFolder, WithAFileThatIsNoLibraryGivesTheReason) {
    const auto file = QFileInfo(this->place).fileName();
    this->folder.write(file, "this is no library");
    const auto missing = this->link.missing();
    EXPECT_TRUE(
        missing.startsWith(u"The link library \"%1\" could not be loaded."_s.arg(this->choice.name)) &&
        missing.contains(file))
        << missing.toStdString();
    EXPECT_EQ(this->errorOfCall(), 53);
}

class LoggedLibrary : public RecordedSession {
  protected:
    /// The words of the last line about a library, which stands in the folder.
    QString wordsFor(const QString& file, const QString& calibrator, const auto& ask) {
        const auto place = folder.path() + u'/' + QFileInfo(file).fileName();
        EXPECT_TRUE(QFile::copy(file, place));
        settings.setValue(logSection, calibrator, u"1"_s);
        CommunicationLog log(session, calibrator, folder.path());
        ask(LinkLog{log, ports});
        return folder.read(QFileInfo(log.path()).fileName())
            .trimmed()
            .section(u"] "_s, 1)
            .replace(place, u"FILE"_s);
    }
    SerialPorts ports{settings};
};

TEST_F(LoggedLibrary, IsNamedWhenACommandBegins) {
    EXPECT_EQ(wordsFor(QStringLiteral(KELVANE_WHOLE_LIBRARY), u"Fluke 702"_s,
                       [this](const LinkLog& log) {
                           DpclnkLibrary library(folder.path());
                           EXPECT_EQ(loggedDpclnk(library, log)->missing(), QString());
                       }),
              u"library FILE"_s);
    EXPECT_EQ(wordsFor(QStringLiteral(KELVANE_WHOLE_LIBRARY3), u"Fluke 743/744"_s,
                       [this](const LinkLog& log) {
                           Dpclnk3Library library(folder.path());
                           EXPECT_EQ(loggedDpclnk3(library, log)->missing(), QString());
                       }),
              u"library FILE"_s);
}

} // namespace kelvane::testing
