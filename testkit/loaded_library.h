#pragma once

#include "platform/error.h"
#include "testkit/fixtures.h"

#include <QDir>
#include <QLibrary>

namespace kelvane::testing {

/// How a recording library writes texts.
enum Manners { proper, wholeLengthAndZero, noZero, farTooLong, silent };

/// The program's side of a library that records what it was called with.
template <class Library>
class LoadedLibrary : public ::testing::Test {
  protected:
    /// `file` is the library, `name` its name without what the system adds.
    LoadedLibrary(const QString& file, const QString& name)
        : link(QFileInfo(file).path()), recordedCalls_(QDir(QFileInfo(file).path()).filePath(name)) {
        EXPECT_EQ(link.missing(), QString());
        EXPECT_TRUE(recordedCalls_.load()) << recordedCalls_.errorString().toStdString();
        behave(proper);
        answer(0);
        recordedCalls();
    }

    /// The calls since the last look, in Windows-1252.
    QByteArray recordedCalls() {
        return reinterpret_cast<const char* (*)()>(recordedCalls_.resolve("recordedCalls"))();
    }
    void answer(qint16 status) {
        reinterpret_cast<void (*)(qint16)>(recordedCalls_.resolve("answer"))(status);
    }
    void behave(int manners) { reinterpret_cast<void (*)(int)>(recordedCalls_.resolve("behave"))(manners); }

    Library link;

  private:
    QLibrary recordedCalls_;
};

/// A folder in which a library stands or is missing. `close` closes the link, and so needs the library.
template <class Library, qint16 (Library::*close)()>
class LibraryFolderOf : public ::testing::Test {
  protected:
    /// `file` is the library that can be put into the folder.
    explicit LibraryFolderOf(const QString& file)
        : place(QDir(folder.path()).filePath(QFileInfo(file).fileName())), link(folder.path()) {}

    /// The number of the error that a call gives; 0 when it succeeds.
    double errorOfCall() {
        try {
            (link.*close)();
            return 0;
        } catch (const Error& error) {
            return error.number;
        }
    }
    /// Puts a file into the folder under the library's name, in place of the one that is there.
    void install(const QString& from) {
        QFile::remove(place);
        ASSERT_TRUE(QFile::copy(from, place));
    }

    OwnFolder folder;
    const QString place;
    Library link;
};

} // namespace kelvane::testing
