#include "records/form_pass_rate.h"

#include "platform/values/numbers.h"
#include "plots/plot_view.h"
#include "records/pass_rate_plots.h"
#include "records/picture_file.h"
#include "records/reading_table.h"
#include "records/since_field.h"
#include "resources/captions.h"
#include "resources/text_id.h"
#include "ui/controls.h"
#include "ui/date_field.h"
#include "ui/guarded.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTableWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr TextId kindNames[] = {TextId::passRateMonth, TextId::passRateModel, TextId::passRateGroup};
constexpr int columnCount = 3;
/// Pixels that the table takes of the picture at the most; beyond that it scrolls.
constexpr int widestTable = 400;

QStringList ratesTitles(PassRateKind kind) {
    return {text(kindNames[static_cast<int>(kind)]), u"%"_s, text(TextId::historyRecords)};
}

QTableWidget* ratesTable() {
    auto* table = readingTable(u"TableRates"_s, TextId::passRateTip, ratesTitles(PassRateKind::month));
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return table;
}

} // namespace

FormPassRate::FormPassRate(Session& session, QWidget* parent)
    : RecordsPage(session.ui, parent),
      session_(session),
      ComboBy(dropDown(u"ComboBy"_s, text(TextId::passRateBy), TextId::passRateTip, captionsOf(kindNames))),
      DateSince(sinceField(session, TextId::passRateSinceTip)),
      CommandReadAgain(button(u"CommandReadAgain"_s, TextId::recordsReadAgain, TextId::recordsReadAgainTip)),
      LabelState(label(u"LabelState"_s, TextId::historyNotRead)),
      view_(new PlotView),
      TableRates(ratesTable()),
      CommandSavePicture(button(u"CommandSavePicture"_s, TextId::plotSave, TextId::plotSaveTip)) {
    setObjectName(u"FormPassRate"_s);
    view_->setObjectName(u"PlotRates"_s);
    layOut();
    connectGuarded(ComboBy, &QComboBox::currentIndexChanged, this, session_.ui, [this] { showRates(); });
    connectGuarded(DateSince, &DateField::dateChanged, this, session_.ui, [this] { readAgain(); });
    connectGuarded(CommandReadAgain, &QPushButton::clicked, this, session_.ui, [this] { readAgain(); });
    connectGuarded(CommandSavePicture, &QPushButton::clicked, this, session_.ui,
                   [this] { savePicture(view_->plot(), view_->plot().title, this, session_.ui); });
    forget();
}

void FormPassRate::layOut() {
    DateSince->setKeyboardTracking(false);
    LabelState->setWordWrap(true);

    auto* row = new QHBoxLayout;
    row->addWidget(labelFor(ComboBy, u"Label1"_s, TextId::passRateBy));
    row->addWidget(ComboBy);
    row->addWidget(labelFor(DateSince, u"Label2"_s, TextId::recordsSince));
    row->addWidget(DateSince);
    row->addWidget(CommandReadAgain);
    row->addStretch(1);
    row->addWidget(CommandSavePicture);
    auto* sides = new QSplitter(Qt::Horizontal);
    sides->setChildrenCollapsible(false);
    sides->addWidget(view_);
    sides->addWidget(TableRates);
    sides->setStretchFactor(0, 3);
    sides->setStretchFactor(1, 1);
    auto* column = new QVBoxLayout(this);
    column->addLayout(row);
    column->addWidget(LabelState);
    column->addWidget(sides, 1);
    kelvane::setTabOrder({ComboBy, DateSince, CommandReadAgain, CommandSavePicture, view_, TableRates});
}

void FormPassRate::readAgain() {
    isRead_ = false;
    // A day that is typed, but not left yet, counts, too. When it is another one, it reads by itself.
    DateSince->interpretText();
    if (!isRead_ && isVisible())
        read();
}

void FormPassRate::focusTable() {
    TableRates->setFocus();
}

void FormPassRate::forget() {
    isRead_ = false;
    rates_.reset();
    // Without a user nothing is read for it.
    const QSignalBlocker quiet(DateSince);
    DateSince->setDate(usualSince(session_));
    LabelState->hide();
    showRates();
}

void FormPassRate::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!isRead_ && session_.SessionConnected)
        runGuarded(session_.ui, [this] { read(); });
}

/// Rates of another day must not stand below this one: after a failure none are shown.
void FormPassRate::read() {
    const auto since = DateSince->date();
    if (session_.SessionConnected) {
        const BusyPointer busy(session_.ui);
        // Only once: a database that fails is told once.
        isRead_ = true;
        rates_.reset();
        runGuarded(session_.ui, [&] { rates_ = passRatesSince(session_, since); });
    } else if (rates_ && rates_->since != since) {
        rates_.reset();
    }
    LabelState->setText(text(session_.SessionConnected ? TextId::historyNotRead : TextId::connectionLost));
    LabelState->setAccessibleName(LabelState->text());
    LabelState->setVisible(!rates_ || !session_.SessionConnected);
    showRates();
}

void FormPassRate::showRates() {
    const auto kind = static_cast<PassRateKind>(ComboBy->currentIndex());
    auto plot = passRatePlot(rates_.value_or(PassRates()), kind);
    if (rates_ && plot.isEmpty())
        plot.notes.prepend(text(TextId::plotNothing));
    view_->setPlot(plot);
    CommandSavePicture->setEnabled(!plot.isEmpty());
    showTable();
}

void FormPassRate::showTable() {
    const auto kind = static_cast<PassRateKind>(ComboBy->currentIndex());
    const auto named = passRatesBy(rates_.value_or(PassRates()), kind);
    TableRates->setHorizontalHeaderLabels(ratesTitles(kind));
    TableRates->setRowCount(static_cast<int>(named.size()));
    for (int row = 0; row < TableRates->rowCount(); ++row) {
        const auto& [name, rate] = named[row];
        const bool isCounted = rate.counted() > 0;
        const QString cells[columnCount] = {name, isCounted ? fixedDecimals(rate.percent(), 1) : QString(),
                                            passRateText(rate)};
        for (int column = 0; column < columnCount; ++column)
            TableRates->setItem(row, column, new QTableWidgetItem(cells[column]));
    }
    auto* header = TableRates->horizontalHeader();
    header->setStretchLastSection(false);
    TableRates->resizeColumnsToContents();
    const int needed =
        header->length() + TableRates->verticalScrollBar()->sizeHint().width() + 2 * TableRates->frameWidth();
    TableRates->setMinimumWidth(qMin(needed, widestTable));
    header->setStretchLastSection(true);
}

} // namespace kelvane
