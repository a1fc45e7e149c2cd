#include "records/certificate_plot.h"

#include "platform/values/texts.h"
#include "plots/plot_painter.h"
#include "records/record_plots.h"
#include "reports/design_unit.h"
#include "resources/strings.h"
#include "resources/text_id.h"

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr double letterPoints = 7;

QString seriesName(const CalibrationRecord& record) {
    if (record.run == CalibrationRun::asLeft)
        return text(TextId::plotAsLeft);
    return record.run == CalibrationRun::asFound ? text(TextId::plotAsFound) : dateText(record.date);
}

} // namespace

Plot certificatePlot(Session& session, const CertifiedCalibration& calibration) {
    QList<CalibrationRecord> records;
    for (const auto& record : {calibration.asFound, calibration.asLeft}) {
        if (record)
            records << *record;
    }
    auto plot = errorPlot(session, withoutBlanksAtEnd(calibration.instrument.asset), records);
    // The certificate has a title of its own for it.
    plot.title.clear();
    for (qsizetype number = 0; number < plot.series.size(); ++number)
        plot.series[number].name = seriesName(records.at(number));
    return plot;
}

ReportDrawing plotDrawing(Plot plot) {
    return [plot = std::move(plot)](QPainter& painter, const QRectF& place) {
        PlotLooks looks{.font = QFont(u"DejaVu Sans"_s)};
        looks.font.setPixelSize(unitsOfPoints(letterPoints));
        looks.font.setHintingPreference(QFont::PreferNoHinting);
        paintPlot(painter, place, plot, looks);
    };
}

} // namespace kelvane
