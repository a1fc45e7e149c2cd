// A layout of any content: it is refused with its name and a reason, or it can be painted.

#include "fuzz/input.h"
#include "reports/report.h"
#include "reports/report_error.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QJsonArray>
#include <QPdfWriter>

using namespace Qt::StringLiterals;
using namespace kelvane;
using namespace kelvane::fuzz;

namespace {

/// What texts are measured and painted with needs an application.
void ensureApplication() {
    if (QCoreApplication::instance())
        return;
    static int count = 1;
    static char name[] = "fuzz_layout";
    static char* arguments[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication application(count, arguments);
}

ReportData someData() {
    ReportData data;
    data.values = {{u"task"_s, u"A7 PUMP"_s}, {u"page"_s, u"no page"_s}};
    QJsonArray points;
    for (const auto& point : {u"0"_s, u"12.5 \u00b0C"_s, QString(300, u'W')})
        points << QJsonObject{{u"point"_s, point}, {u"note"_s, u"a note of several words"_s}};
    data.add({{u"asset"_s, u"PT-103"_s}, {u"serial"_s, QString()}, {u"points"_s, points}});
    return data;
}

void paint(const ReportLayout& layout) {
    QBuffer pages;
    pages.open(QIODevice::WriteOnly);
    QPdfWriter device(&pages);
    device.setPageLayout(pageLayout(layout));
    try {
        require(Report(layout, someData()).paint(device), "nobody ends the painting");
    } catch (const ReportError&) {
        fail("a layout that was read can be painted");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ensureApplication();
    static const auto path = workFolder() + u"/kvwrksht.rpt"_s;
    writeFile(path, Input(data, size).rest());
    std::optional<ReportLayout> layout;
    try {
        layout = readLayout(path);
    } catch (const ReportError& error) {
        require(error.text().contains(u"kvwrksht.rpt"), "a refusal names the file");
    }
    if (!layout)
        return 0;
    require(layout->width >= 10 && layout->width <= 1000, "the width is one of a paper");
    require(layout->margins.left() >= 0 && layout->margins.top() >= 0, "no margin lies outside the paper");
    paint(*layout);
    return 0;
}
