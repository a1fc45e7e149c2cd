#include "plots/plot_files.h"

#include "platform/whole_file.h"
#include "plots/plot_letters.h"
#include "plots/plot_painter.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr QSizeF sizeInMillimetres{160, 100};
constexpr double millimetresPerInch = 25.4;
constexpr int dotsPerInch = 300;
/// Of what has no dots: a hundredth of a millimetre.
constexpr int unitsPerInch = 2540;
constexpr double letterSize = 8; // points

QSize sizeAt(int resolution) {
    return (sizeInMillimetres / millimetresPerInch * resolution).toSize();
}

bool paintOn(QPaintDevice& device, const Plot& plot, const QSizeF& size) {
    PlotLooks looks;
    // A scalable picture names its letters. This is the one name that every program knows.
    looks.font.setFamily(u"sans-serif"_s);
    looks.font.setPointSizeF(letterSize);
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    paintPlot(painter, {QPointF(), size}, plot, looks);
    return painter.end();
}

/// The title and the sentences, for programs that read a picture aloud or look for it. The toolkit would
/// write them as they are, whatever characters they have.
QByteArray describedIn(const Plot& plot) {
    const auto title = plotLine(plot.title).toHtmlEscaped();
    const auto description = plotLine(plot.notes.join(u' ')).toHtmlEscaped();
    return u"\n<title>%1</title>\n<desc>%2</desc>"_s.arg(title, description).toUtf8();
}

bool paintScalable(QBuffer& file, const Plot& plot) {
    const auto size = sizeAt(unitsPerInch);
    QSvgGenerator picture;
    picture.setOutputDevice(&file);
    picture.setResolution(unitsPerInch);
    picture.setSize(size);
    picture.setViewBox(QRect(QPoint(), size));
    picture.setTitle({});
    picture.setDescription({});
    if (!paintOn(picture, plot, size))
        return false;
    auto& content = file.buffer();
    content.insert(content.indexOf('>', content.indexOf("<svg")) + 1, describedIn(plot));
    return true;
}

bool paintDots(QBuffer& file, const Plot& plot) {
    QImage picture(sizeAt(dotsPerInch), QImage::Format_RGB32);
    const auto dotsPerMetre = qRound(dotsPerInch / millimetresPerInch * 1000);
    picture.setDotsPerMeterX(dotsPerMetre);
    picture.setDotsPerMeterY(dotsPerMetre);
    return paintOn(picture, plot, picture.size()) && picture.save(&file, "PNG");
}

bool paintDocument(QBuffer& file, const Plot& plot) {
    QPdfWriter document(&file);
    document.setResolution(unitsPerInch);
    document.setPageLayout({QPageSize(sizeInMillimetres, QPageSize::Millimeter), QPageLayout::Portrait, {}});
    document.setTitle(plotLine(plot.title));
    document.setCreator(text(TextId::applicationName));
    return paintOn(document, plot, sizeAt(unitsPerInch));
}

struct Form {
    QStringView suffix;
    TextId filter;
    bool (*paint)(QBuffer& file, const Plot& plot);
};

constexpr Form forms[] = {
    {u"svg", TextId::plotSvg, paintScalable},
    {u"png", TextId::plotPng, paintDots},
    {u"pdf", TextId::plotPdf, paintDocument},
};

const Form& formOf(const QString& path) {
    const auto suffix = QFileInfo(path).suffix().toLower();
    const auto* found = std::ranges::find(forms, suffix, &Form::suffix);
    return found == std::end(forms) ? forms[0] : *found;
}

} // namespace

QString savePlot(const Plot& plot, const QString& path) {
    // In memory first: not every writer of the toolkit says when a file does not take what it writes.
    QBuffer painted;
    painted.open(QIODevice::WriteOnly);
    const auto fault =
        formOf(path).paint(painted, plot) ? writeWholeFile(path, painted.data()) : painted.errorString();
    if (fault.isEmpty())
        return {};
    return text(TextId::plotNotSaved).arg(QDir::toNativeSeparators(path) + u": "_s + fault);
}

QStringList plotFileFilters() {
    QStringList filters;
    for (const auto& form : forms)
        filters << text(form.filter);
    return filters;
}

QString plotFileSuffix(const QString& filter) {
    const auto* found =
        std::ranges::find_if(forms, [&](const Form& form) { return text(form.filter) == filter; });
    return (found == std::end(forms) ? forms[0] : *found).suffix.toString();
}

} // namespace kelvane
