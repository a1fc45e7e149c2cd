#include "records/instrument_list.h"

#include "records/lists.h"

namespace kelvane {

namespace {

constexpr qsizetype blockSize = 500;

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

QString saveInstruments(Session& session, const InstrumentQuery& query, const QList<int>& columns,
                        const ListFile& file) {
    ListWriter writer(file.path);
    if (!writer.write(titles(columns, file.form)))
        return writer.finish();
    InstrumentReader reader(session, query);
    while (!reader.isAtEnd()) {
        QString lines;
        for (const auto& instrument : reader.next(blockSize))
            lines += lineOf(instrument, columns, file.form);
        if (!writer.write(lines))
            return writer.finish();
        session.ui.repaint();
    }
    return reader.hasFailed() ? text(TextId::recordsNotSaved) : writer.finish();
}

} // namespace kelvane
