#include "records/picture_file.h"

#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QSaveFile>
#include <QTest>
#include <QTimer>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class PictureFile : public ::testing::Test {
  protected:
    PictureFile() {
        plot.title = u"PT-101: errors"_s;
        PlotSeries series;
        series.points = {{1, 2, {}}, {2, 3, {}}};
        plot.series << series;
    }
    /// Saves under a name, as the user who types it; gives the name that the dialog has proposed.
    QString save(const QString& name, const QString& ending, const QString& proposed = u"PT-101"_s) {
        QString shown;
        QTimer::singleShot(0, &window, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            auto& edit = *dialog->findChild<QLineEdit*>();
            shown = edit.text();
            const auto filters = dialog->nameFilters().filter(ending);
            ASSERT_EQ(filters.size(), 1);
            // As a click on the row of the choice does.
            dialog->selectNameFilter(filters.constFirst());
            Q_EMIT dialog->filterSelected(filters.constFirst());
            edit.setText(name);
            if (name.isEmpty())
                dialog->reject();
            else
                QTest::keyClick(&edit, Qt::Key_Return);
        });
        savePicture(plot, proposed, &window, ui);
        return shown;
    }

    OwnFolder folder;
    ScriptedUserInterface ui;
    Plot plot;
    QWidget window;
};

} // namespace

TEST_F(PictureFile, HasTheFormThatIsChosen) {
    save(folder.path() + u"/scalable"_s, u"*.svg"_s);
    EXPECT_TRUE(folder.read(u"scalable.svg"_s).contains(u"<svg"_s));
    save(folder.path() + u"/dots"_s, u"*.png"_s);
    EXPECT_FALSE(QImage(folder.path() + u"/dots.png"_s).isNull());
    save(folder.path() + u"/document"_s, u"*.pdf"_s);
    EXPECT_TRUE(folder.read(u"document.pdf"_s).startsWith(u"%PDF"_s));
}

TEST_F(PictureFile, IsProposedByANameThatAFileCanHave) {
    EXPECT_EQ(save({}, u"*.svg"_s, u"a/b: \"c\"?"_s), u"a-b- -c--.svg"_s);
}

TEST_F(PictureFile, IsNotThereWhenTheUserGivesUp) {
    save({}, u"*.svg"_s);
    EXPECT_TRUE(QDir(folder.path()).entryList(QDir::Files).isEmpty());
}

// A folder that is gone when the dialog closes: the file can't be made in it, whoever asks for it.
TEST_F(PictureFile, ThatCanNotBeSavedIsTold) {
    const auto gone = folder.path() + u"/gone"_s;
    ASSERT_TRUE(QDir().mkdir(gone));
    const auto path = gone + u"/a.svg"_s;
    QSaveFile other(folder.path() + u"/missing/a.svg"_s);
    ASSERT_FALSE(other.open(QIODevice::WriteOnly));
    ui.expectBox(text(TextId::plotNotSaved).arg(path + u": "_s + other.errorString()),
                 text(TextId::recordsTitle), box::warning);
    QTimer::singleShot(0, &window, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        QObject::connect(dialog, &QDialog::accepted, dialog, [&] { QDir().rmdir(gone); });
        auto& edit = *dialog->findChild<QLineEdit*>();
        edit.setText(path);
        QTest::keyClick(&edit, Qt::Key_Return);
    });
    savePicture(plot, u"a"_s, &window, ui);
}

} // namespace kelvane::testing
