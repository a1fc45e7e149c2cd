#pragma once

#include "reports/report_data.h"
#include "reports/report_layout.h"
#include "testkit/fixtures.h"

#include <QRectF>

namespace kelvane::testing {

/// A layout file of that content in the current folder, read.
ReportLayout layoutOf(const QByteArray& content);
/// Why a layout file of that content can't be read; empty when it can.
QString mistakeIn(const QByteArray& content);
/// The layout that comes with the program.
QString shippedLayout();

ReportData reportOf(const QList<QJsonObject>& groups);

/// The report as a PDF in the current folder, on that paper: its path.
QString pdfOf(const ReportLayout& layout, const ReportData& data,
              QPageSize::PageSizeId paper = QPageSize::A4);

/// What a program writes to its standard output; a program that fails or is missing fails the test.
QByteArray outputOf(const QString& program, const QStringList& arguments);

/// The texts of the pages of a PDF, as a reader program finds them.
QStringList pageTexts(const QString& pdf);

/// A word of a PDF, with its place on its page in millimetres.
struct PdfWord {
    qsizetype page = 0;
    QRectF place;
    QString text;
};
QList<PdfWord> wordsOf(const QString& pdf);

/// Where there is ink on each page of a PDF, in millimetres.
QList<QRectF> inkOf(const QString& pdf);

/// What a barcode reader finds on the pages of a PDF, a line each: its kind, a colon and the text.
QStringList barcodesIn(const QString& pdf);

} // namespace kelvane::testing
