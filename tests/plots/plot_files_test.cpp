#include "plots/plot_files.h"

#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"
#include "tests/platform/full_disk.h"
#include "tests/plots/made_up_plots.h"

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class PlotFiles : public ::testing::Test {
  protected:
    static QStringList files() { return QDir().entryList(QDir::Files | QDir::Hidden); }
    static QByteArray contentOf(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    OwnFolder folder;
};

/// The texts of the text elements of a scalable picture; a mistake of its form fails the test.
QStringList textElements(const QByteArray& picture) {
    QStringList texts;
    QXmlStreamReader reader(picture);
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement() && reader.name() == "text"_L1)
            texts << reader.readElementText().remove(u'\n');
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    return texts;
}

} // namespace

TEST_F(PlotFiles, OfAScalablePictureHoldTheTextsAsTexts) {
    auto plot = errorPlot();
    plot.title = u"Druck <Ω> & mehr"_s;
    plot.notes = {u"a < b & c\u0001\uffff"_s};
    ASSERT_EQ(savePlot(plot, u"plot.svg"_s), QString());
    // Letters of another alphabet are an element of their own.
    const auto texts = textElements(contentOf(u"plot.svg"_s)).join(QString());
    for (const auto& text : {plot.title, plot.x.title, plot.y.title, u"a < b & c"_s, u"as found"_s,
                             u"as left"_s, u"limits"_s, u"-50"_s})
        EXPECT_TRUE(texts.contains(text)) << text.toStdString();
    EXPECT_FALSE(texts.contains(QChar(0xffff)));
    EXPECT_EQ(files(), QStringList(u"plot.svg"_s));
}

TEST_F(PlotFiles, OfAScalablePictureHaveItsSizeAndTitle) {
    const auto plot = errorPlot();
    ASSERT_EQ(savePlot(plot, u"plot.svg"_s), QString());
    QXmlStreamReader reader(contentOf(u"plot.svg"_s));
    ASSERT_TRUE(reader.readNextStartElement());
    EXPECT_EQ(reader.name(), u"svg"_s);
    EXPECT_EQ(reader.attributes().value("width"_L1), u"160mm"_s);
    EXPECT_EQ(reader.attributes().value("height"_L1), u"100mm"_s);
    ASSERT_TRUE(reader.readNextStartElement());
    EXPECT_EQ(reader.name(), u"title"_s);
    EXPECT_EQ(reader.readElementText(), plot.title);
    ASSERT_TRUE(reader.readNextStartElement());
    EXPECT_EQ(reader.name(), u"desc"_s);
    EXPECT_EQ(reader.readElementText(), plot.notes[0]);
}

TEST_F(PlotFiles, OfAnyEndButThoseOfTheOthersAreScalable) {
    for (const auto& path : {u"plot.SVG"_s, u"plot"_s, u"plot.txt"_s}) {
        ASSERT_EQ(savePlot(errorPlot(), path), QString());
        EXPECT_FALSE(textElements(contentOf(path)).isEmpty()) << path.toStdString();
    }
}

TEST_F(PlotFiles, OfAPictureOfDotsHave300ToTheInch) {
    ASSERT_EQ(savePlot(driftPlot(), u"plot.PNG"_s), QString());
    const QImage picture(u"plot.PNG"_s);
    EXPECT_EQ(picture.size(), QSize(1890, 1181));
    EXPECT_EQ(picture.dotsPerMeterX(), 11811);
    int dark = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const auto color = picture.pixelColor(x, y);
            ASSERT_EQ(color.red(), color.blue()) << "a colour at " << x << ' ' << y;
            dark += color.lightness() < 128;
        }
    }
    EXPECT_GT(dark, 5000);
}

TEST_F(PlotFiles, OfADocumentHaveTheTexts) {
    const auto plot = errorPlot();
    ASSERT_EQ(savePlot(plot, u"plot.pdf"_s), QString());
    QProcess reader;
    reader.start(u"pdftotext"_s, {u"-layout"_s, u"plot.pdf"_s, u"-"_s});
    ASSERT_TRUE(reader.waitForFinished()) << reader.errorString().toStdString();
    const auto read = QString::fromUtf8(reader.readAllStandardOutput());
    for (const auto& text : {plot.title, plot.x.title, u"as found"_s, plot.notes[0]})
        EXPECT_TRUE(read.contains(text)) << read.toStdString();
}

TEST_F(PlotFiles, OfAPlotWithoutPointsCanBeSaved) {
    for (const auto& path : {u"plot.svg"_s, u"plot.png"_s, u"plot.pdf"_s}) {
        EXPECT_EQ(savePlot({}, path), QString());
        EXPECT_FALSE(contentOf(path).isEmpty());
    }
}

TEST_F(PlotFiles, InAFolderThatIsMissingAreRefusedWithTheirPath) {
    for (const auto& path : {u"gone/plot.svg"_s, u"gone/plot.png"_s, u"gone/plot.pdf"_s}) {
        const auto reason = path + u": No such file or directory"_s;
        EXPECT_EQ(savePlot(errorPlot(), path), text(TextId::plotNotSaved).arg(reason));
    }
}

TEST_F(PlotFiles, OnAFullDiskLeaveTheOldFile) {
    if (!FullDisk::isPossible)
        GTEST_SKIP() << "no limit of a file's size on this system";
    for (const auto& path : {u"plot.svg"_s, u"plot.png"_s, u"plot.pdf"_s}) {
        folder.write(path, "old");
        QString failure;
        {
            const FullDisk full(2048);
            failure = savePlot(errorPlot(), path);
        }
        const auto start = text(TextId::plotNotSaved).arg(path + u": "_s);
        EXPECT_TRUE(failure.startsWith(start)) << failure.toStdString();
        EXPECT_GT(failure.size(), start.size()) << failure.toStdString();
        EXPECT_EQ(folder.read(path), u"old"_s);
    }
    EXPECT_EQ(files().size(), 3);
}

TEST_F(PlotFiles, AreOfferedWithTheirEnds) {
    QStringList suffixes;
    for (const auto& filter : plotFileFilters()) {
        const auto suffix = plotFileSuffix(filter);
        EXPECT_TRUE(filter.contains(u"(*."_s + suffix + u')')) << filter.toStdString();
        suffixes << suffix;
    }
    EXPECT_EQ(suffixes, QStringList({u"svg"_s, u"png"_s, u"pdf"_s}));
}

} // namespace kelvane::testing
