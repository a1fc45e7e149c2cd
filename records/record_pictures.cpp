#include "records/record_pictures.h"

#include "plots/plot_view.h"
#include "records/picture_file.h"
#include "records/record_plots.h"
#include "resources/text_id.h"
#include "ui/controls.h"
#include "ui/guarded.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// The first row of the choice; the points follow.
constexpr int errorsRow = 0;

} // namespace

RecordPictures::RecordPictures(Session& session, const QString& asset)
    : session_(session),
      asset_(asset),
      ComboPicture(dropDown(u"ComboPicture"_s, text(TextId::plotChoice), TextId::picturesTip)),
      view_(new PlotView),
      CommandMethod(button(u"CommandMethod"_s, TextId::plotMethodCommand, TextId::plotMethod)),
      CommandSavePicture(button(u"CommandSavePicture"_s, TextId::plotSave, TextId::plotSaveTip)) {
    setObjectName(u"RecordPictures"_s);
    view_->setObjectName(u"PlotErrors"_s);
    layOut();
    connectGuarded(ComboPicture, &QComboBox::currentIndexChanged, this, session_.ui,
                   [this] { showPicture(); });
    connectGuarded(CommandMethod, &QPushButton::clicked, this, session_.ui, [this] { showMethod(); });
    connectGuarded(CommandSavePicture, &QPushButton::clicked, this, session_.ui,
                   [this] { savePicture(view_->plot(), view_->plot().title, this, session_.ui); });
}

void RecordPictures::layOut() {
    keepWidth(ComboPicture);
    ComboPicture->setMinimumContentsLength(30);
    auto* row = new QHBoxLayout;
    row->addWidget(labelFor(ComboPicture, u"LabelPicture"_s, TextId::plotChoice));
    row->addWidget(ComboPicture);
    row->addStretch(1);
    row->addWidget(CommandMethod);
    row->addWidget(CommandSavePicture);
    auto* column = new QVBoxLayout(this);
    column->addLayout(row);
    column->addWidget(view_, 1);
    kelvane::setTabOrder({ComboPicture, CommandMethod, CommandSavePicture, view_});
}

void RecordPictures::setRecords(const QList<CalibrationRecord>& records) {
    records_ = records;
    chosen_.clear();
    areRead_ = false;
    if (isVisible())
        readPoints();
}

void RecordPictures::setChosen(const QList<qsizetype>& chosen) {
    chosen_ = chosen;
    if (areRead_)
        showPicture();
}

void RecordPictures::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!areRead_)
        runGuarded(session_.ui, [this] { readPoints(); });
}

/// The choice stays where the records still have its point.
void RecordPictures::readPoints() {
    const BusyPointer busy(session_.ui);
    points_ = pointHistoryOf(session_, records_);
    areRead_ = true;
    {
        const QSignalBlocker quiet(ComboPicture);
        const auto before = ComboPicture->currentText();
        ComboPicture->clear();
        ComboPicture->addItem(text(TextId::plotErrors));
        for (const auto& point : std::as_const(points_.points))
            ComboPicture->addItem(text(TextId::plotDrift).arg(pointName(point)));
        ComboPicture->setCurrentIndex(qMax(errorsRow, ComboPicture->findText(before)));
    }
    showPicture();
}

void RecordPictures::showPicture() {
    const int row = ComboPicture->currentIndex();
    if (row > errorsRow) {
        view_->setPlot(driftPlot(asset_, records_, points_, row - 1, session_.clock.moment().date));
    } else {
        QList<CalibrationRecord> shown;
        for (const auto record : std::as_const(chosen_))
            shown << records_[record];
        view_->setPlot(errorPlot(session_, asset_, shown));
    }
    CommandSavePicture->setEnabled(!view_->plot().isEmpty());
}

void RecordPictures::showMethod() {
    session_.ui.messageBox(text(TextId::plotMethodText), text(TextId::plotMethod), box::information);
}

} // namespace kelvane
