#include "testkit/fixtures.h"

#include <QCoreApplication>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

QString path(const QString& program) {
    return QCoreApplication::applicationDirPath() + u'/' + program;
}

/// The output of the compiler package's tool for a program's file.
QString readOutput(const QString& option, const QString& program) {
    QProcess process;
    process.start(u"readelf"_s, {u"-W"_s, option, path(program)});
    EXPECT_TRUE(process.waitForFinished(30000)) << process.errorString().toStdString();
    EXPECT_EQ(process.exitCode(), 0) << program.toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

} // namespace

TEST(Hardening, ProgramsHaveNoFixedPlaceAndTheirTablesBecomeReadOnly) {
    for (const auto& program :
         {u"kelvane"_s, u"kelvane-admin"_s, u"kelvane-records"_s, u"kelvane-torquestar"_s,
          u"kelvane-technician"_s, u"libdpclnk.so"_s, u"hardened_program"_s}) {
        SCOPED_TRACE(program.toStdString());
        EXPECT_TRUE(readOutput(u"--file-header"_s, program).contains(u"DYN ("_s));
        EXPECT_TRUE(readOutput(u"--segments"_s, program).contains(u"GNU_RELRO"_s));
        const auto dynamic = readOutput(u"--dynamic"_s, program);
        EXPECT_TRUE(dynamic.contains(u"BIND_NOW"_s) || dynamic.contains(u"Flags: NOW"_s));
    }
}

TEST(Hardening, ReleasedCodeChecksItsStackAndItsCopies) {
    const auto symbols = readOutput(u"--dyn-syms"_s, u"hardened_program"_s);
    EXPECT_TRUE(symbols.contains(u"__stack_chk_fail"_s));
    EXPECT_TRUE(symbols.contains(u"__strcpy_chk"_s));
}

} // namespace kelvane
