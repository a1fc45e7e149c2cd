#include "records/instrument_list.h"

#include "records/instrument_model.h"
#include "resources/text_id.h"

#include <QDir>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr qsizetype blockSize = 1000;
constexpr CsvForm tabs{u'\t', u'.'};

const ListColumn<InstrumentSummary>& listColumn(int column) {
    return instrumentColumns()[static_cast<std::size_t>(column)];
}

QString titles(const QList<int>& columns, const CsvForm& form) {
    QStringList cells;
    for (const int column : columns)
        cells << csvCell(text(listColumn(column).title), CsvCell::text, form);
    return csvLine(cells, form);
}

QString lineOf(const InstrumentSummary& instrument, const QList<int>& columns, const CsvForm& form) {
    QStringList cells;
    for (const int column : columns)
        cells << csvCell(listColumn(column).value(instrument), listColumn(column).kind, form);
    return csvLine(cells, form);
}

} // namespace

QString copiedInstruments(InstrumentModel& model, const QList<int>& rows, const QList<int>& columns) {
    auto copied = titles(columns, tabs);
    for (const int row : rows) {
        QStringList cells;
        const auto instrument = model.instrument(row);
        for (const int column : columns)
            cells << csvCell(InstrumentModel::shownText(instrument, column), CsvCell::text, tabs);
        copied += csvLine(cells, tabs);
    }
    return copied;
}

QString saveInstruments(Session& session, const InstrumentQuery& query, const QList<int>& columns,
                        const QString& path, const CsvForm& form) {
    const auto shownPath = QDir::toNativeSeparators(path);
    QSaveFile file(path);
    const auto notWritten = [&] {
        return text(TextId::communicationLogNotSaved).arg(shownPath, file.errorString());
    };
    if (!file.open(QIODevice::WriteOnly) || file.write(titles(columns, form).toUtf8()) < 0)
        return notWritten();
    InstrumentReader reader(session, query);
    while (!reader.isAtEnd()) {
        QString lines;
        for (const auto& instrument : reader.next(blockSize))
            lines += lineOf(instrument, columns, form);
        if (file.write(lines.toUtf8()) < 0)
            return notWritten();
        session.ui.repaint();
    }
    if (reader.hasFailed())
        return text(TextId::recordsNotSaved);
    return file.commit() ? text(TextId::communicationLogSaved).arg(shownPath) : notWritten();
}

} // namespace kelvane
