#include "plots/plot_files.h"

#include "plots/plot_painter.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
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

bool writeScalable(QIODevice& file, const Plot& plot) {
    const auto size = sizeAt(unitsPerInch);
    QSvgGenerator picture;
    picture.setOutputDevice(&file);
    picture.setResolution(unitsPerInch);
    picture.setSize(size);
    picture.setViewBox(QRect(QPoint(), size));
    picture.setTitle(plot.title);
    picture.setDescription(plot.notes.join(u'\n'));
    return paintOn(picture, plot, size);
}

bool writeDots(QIODevice& file, const Plot& plot) {
    QImage picture(sizeAt(dotsPerInch), QImage::Format_RGB32);
    picture.fill(Qt::white);
    const auto dotsPerMetre = qRound(dotsPerInch / millimetresPerInch * 1000);
    picture.setDotsPerMeterX(dotsPerMetre);
    picture.setDotsPerMeterY(dotsPerMetre);
    return paintOn(picture, plot, picture.size()) && picture.save(&file, "PNG");
}

bool writeDocument(QIODevice& file, const Plot& plot) {
    QPdfWriter document(&file);
    document.setResolution(unitsPerInch);
    document.setPageLayout({QPageSize(sizeInMillimetres, QPageSize::Millimeter), QPageLayout::Portrait, {}});
    document.setTitle(plot.title);
    document.setCreator(text(TextId::applicationName));
    return paintOn(document, plot, sizeAt(unitsPerInch));
}

struct Form {
    QStringView suffix;
    TextId filter;
    bool (*write)(QIODevice& file, const Plot& plot);
};

constexpr Form forms[] = {
    {u"svg", TextId::plotSvg, writeScalable},
    {u"png", TextId::plotPng, writeDots},
    {u"pdf", TextId::plotPdf, writeDocument},
};

const Form& formOf(const QString& path) {
    const auto suffix = QFileInfo(path).suffix().toLower();
    const auto* found = std::ranges::find(forms, suffix, &Form::suffix);
    return found == std::end(forms) ? forms[0] : *found;
}

} // namespace

QString savePlot(const Plot& plot, const QString& path) {
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && formOf(path).write(file, plot) && file.commit())
        return {};
    return text(TextId::plotNotSaved).arg(QDir::toNativeSeparators(path) + u": "_s + file.errorString());
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
