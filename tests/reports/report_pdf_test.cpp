#include "reports/report_pdf.h"

#include "reports/report_error.h"
#include "testkit/sheets.h"
#include "tests/platform/full_disk.h"
#include "tests/reports/report_tools.h"

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

class ReportPdf : public ::testing::Test {
  protected:
    QString failureAt(const QString& path) const {
        try {
            writePdf(report, pageLayout(report.layout()), u"Sheets"_s, path);
        } catch (const ReportError& error) {
            return error.text();
        }
        return {};
    }
    static QStringList files() { return QDir().entryList(QDir::Files | QDir::Hidden); }

    testing::OwnFolder folder;
    const Report report{readLayout(testing::shippedLayout()),
                        testing::reportOf({testing::sheetOf(u"PT-1"_s, 3), testing::sheetOf(u"PT-2"_s, 3)})};
};

} // namespace

TEST_F(ReportPdf, HasItsTitleAndTheLayoutsPaper) {
    ASSERT_EQ(failureAt(u"sheets.pdf"_s), QString());
    const auto info = QString::fromUtf8(testing::outputOf(u"pdfinfo"_s, {u"sheets.pdf"_s}));
    EXPECT_TRUE(info.contains(QRegularExpression(u"Title: +Sheets\n"_s))) << info.toStdString();
    EXPECT_TRUE(info.contains(QRegularExpression(u"Pages: +2\n"_s))) << info.toStdString();
    EXPECT_EQ(files(), QStringList(u"sheets.pdf"_s));
}

TEST_F(ReportPdf, IntoAFolderThatIsMissingIsRefusedWithItsPath) {
    const auto path = QDir().absoluteFilePath(u"gone/sheets.pdf"_s);
    EXPECT_EQ(failureAt(path), path + u" can't be written: No such file or directory"_s);
    EXPECT_EQ(failureAt(QDir().absolutePath()).startsWith(QDir().absolutePath() + u" can't be written: "_s),
              true);
}

TEST_F(ReportPdf, OnAFullDiskLeavesTheOldFile) {
    if (!testing::FullDisk::isPossible)
        GTEST_SKIP() << "no limit of a file's size on this system";
    EXPECT_EQ(failureAt(u"sheets.pdf"_s), QString());
    const auto size = QFileInfo(u"sheets.pdf"_s).size();
    folder.write(u"sheets.pdf"_s, "old");
    // Up to the last byte of all.
    for (const auto space : {4096U, static_cast<unsigned>(size) - 1}) {
        QString failure;
        {
            const testing::FullDisk full(space);
            failure = failureAt(u"sheets.pdf"_s);
        }
        EXPECT_TRUE(failure.startsWith(u"sheets.pdf can't be written: "_s)) << failure.toStdString();
        EXPECT_GT(failure.size(), 30);
        EXPECT_EQ(folder.read(u"sheets.pdf"_s), u"old"_s);
        EXPECT_EQ(files(), QStringList(u"sheets.pdf"_s));
    }
}

TEST_F(ReportPdf, ThatIsEndedEarlyLeavesNoFile) {
    QList<qsizetype> groups;
    const auto isWritten =
        writePdf(report, pageLayout(report.layout()), u"Sheets"_s, u"sheets.pdf"_s, [&](qsizetype group) {
            groups << group;
            return group == 0;
        });
    EXPECT_FALSE(isWritten);
    EXPECT_EQ(groups, (QList<qsizetype>{0, 1}));
    EXPECT_EQ(files(), QStringList());
}

} // namespace kelvane
