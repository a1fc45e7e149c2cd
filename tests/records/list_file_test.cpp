#include "records/list_file.h"

#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class FileOfAList : public RecordedSession {
  protected:
    /// Uses the dialog as soon as it is open.
    static void inDialog(const std::function<void(QFileDialog&)>& use) {
        QTimer::singleShot(0, qApp, [use] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            use(*dialog);
        });
    }
    QStringList files() const { return QDir(folder.path()).entryList(QDir::Files); }

    QString path = folder.path() + u"/list.csv"_s;
};

TEST_F(FileOfAList, IsAskedForWithItsForm) {
    inDialog([this](QFileDialog& dialog) {
        EXPECT_EQ(dialog.selectedNameFilter(), text(TextId::recordsCsvPoints));
        EXPECT_TRUE(dialog.selectedFiles().value(0).endsWith(u"/Where Used.csv"_s));
        dialog.selectNameFilter(text(TextId::recordsCsvCommas));
        auto& name = *dialog.findChild<QLineEdit*>();
        name.setText(path);
        QTest::keyClick(&name, Qt::Key_Return);
    });
    const auto file = askListFile(session, nullptr, u"Where Used"_s);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->path, path);
    EXPECT_EQ(file->form.separator, u';');
    inDialog([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.selectedNameFilter(), text(TextId::recordsCsvCommas)) << "as the last time";
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_FALSE(askListFile(session, nullptr, u"Where Used"_s));
}

TEST_F(FileOfAList, HasANameThatAFileCanHave) {
    inDialog([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), u"Where Used .._A_B.csv"_s);
        EXPECT_EQ(dialog.directory(), QDir::home());
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_FALSE(askListFile(session, nullptr, u"Where Used ../A/B"_s));
}

TEST_F(FileOfAList, IsThereWhenItIsFinished) {
    {
        ListWriter writer(path);
        EXPECT_TRUE(writer.write(u"a\r\n"_s));
        EXPECT_TRUE(writer.write(u"\u00b0\r\n"_s));
        EXPECT_FALSE(QFile::exists(path));
        EXPECT_EQ(writer.finish(), text(TextId::communicationLogSaved).arg(path));
    }
    EXPECT_EQ(folder.read(u"list.csv"_s), u"a\r\n\u00b0\r\n"_s);
}

TEST_F(FileOfAList, StaysAsItWasWithoutTheEnd) {
    folder.write(u"list.csv"_s, "before");
    {
        ListWriter writer(path);
        EXPECT_TRUE(writer.write(u"a"_s));
    }
    EXPECT_EQ(folder.read(u"list.csv"_s), u"before"_s);
    EXPECT_EQ(files(), QStringList{u"list.csv"_s});
}

TEST_F(FileOfAList, ThatCanNotBeWrittenSaysWhy) {
    ListWriter writer(folder.path() + u"/none/list.csv"_s);
    EXPECT_FALSE(writer.write(u"a"_s));
    EXPECT_TRUE(writer.finish().startsWith(folder.path() + u"/none/list.csv could not be written: "_s));
}

} // namespace kelvane::testing
