#include "records/instrument_list.h"

#include "records/lists.h"

namespace kelvane {

namespace {

constexpr qsizetype blockSize = 1000;

QList<ListColumn<InstrumentSummary>> chosenColumns(const QList<int>& columns) {
    QList<ListColumn<InstrumentSummary>> chosen;
    for (const int column : columns)
        chosen << instrumentColumns()[static_cast<std::size_t>(column)];
    return chosen;
}

} // namespace

QString saveInstruments(Session& session, const InstrumentQuery& query, const QList<int>& columns,
                        const ListFile& file) {
    const auto chosen = chosenColumns(columns);
    const std::span<const ListColumn<InstrumentSummary>> shown(chosen);
    ListWriter writer(file.path);
    if (!writer.write(csvTitles(shown, file.form)))
        return writer.finish();
    InstrumentReader reader(session, query);
    while (!reader.isAtEnd()) {
        QString lines;
        for (const auto& instrument : reader.next(blockSize))
            lines += csvRow(shown, instrument, file.form);
        if (!writer.write(lines))
            return writer.finish();
        session.ui.repaint();
    }
    return reader.hasFailed() ? text(TextId::recordsNotSaved) : writer.finish();
}

} // namespace kelvane
