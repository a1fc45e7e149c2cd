#include "app/records_list.h"

#include "data/history/asset_number.h"
#include "platform/whole_file.h"
#include "records/lists.h"

#include <cstdio>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr qsizetype blockSize = 1000;

/// The number as it is stored; nothing after an error.
std::optional<QString> requiredAsset(Session& session, const QString& asset) {
    const auto stored = storedAssetNumber(session, asset);
    if (stored.isAbsent())
        throw ProgramAnswer{u"there is no asset %1"_s.arg(asset), 1};
    return stored.found;
}

template <class Row>
std::optional<QByteArray> bytesOf(std::span<const ListColumn<Row>> columns,
                                  const std::optional<QList<Row>>& rows, const CsvForm& form) {
    return rows ? std::optional(csvOf(columns, *rows, form).toUtf8()) : std::nullopt;
}

std::optional<QByteArray> dueInstruments(Session& session, const RecordsRequest& request) {
    InstrumentQuery query{.order = InstrumentOrder::due};
    if (request.list == RecordsRequest::List::due)
        query.filter.dueWithinDays = request.days;
    query.filter.isOverdue = request.list == RecordsRequest::List::overdue;
    InstrumentReader reader(session, query);
    auto csv = csvTitles(instrumentColumns(), request.form).toUtf8();
    while (!reader.isAtEnd()) {
        const auto block = reader.next(blockSize);
        for (const auto& instrument : block)
            csv += csvRow(instrumentColumns(), instrument, request.form).toUtf8();
    }
    return reader.hasFailed() ? std::nullopt : std::optional(csv);
}

std::optional<QByteArray> uses(Session& session, const RecordsRequest& request) {
    const auto standard = requiredAsset(session, request.asset);
    if (!standard)
        return {};
    return bytesOf(standardUseColumns(), usesOfStandard(session, *standard, request.since), request.form);
}

std::optional<QByteArray> history(Session& session, const RecordsRequest& request) {
    const auto asset = requiredAsset(session, request.asset);
    if (!asset)
        return {};
    return bytesOf(calibrationColumns(), calibrationsOf(session, *asset), request.form);
}

struct ListMaker {
    RecordsRequest::List list;
    std::optional<QByteArray> (*make)(Session& session, const RecordsRequest& request);
};

constexpr ListMaker listMakers[] = {
    {RecordsRequest::List::due, dueInstruments},
    {RecordsRequest::List::overdue, dueInstruments},
    {RecordsRequest::List::used, uses},
    {RecordsRequest::List::history, history},
};

} // namespace

std::optional<QByteArray> listAsCsv(Session& session, const RecordsRequest& request) {
    const auto* maker = std::ranges::find(listMakers, request.list, &ListMaker::list);
    return maker->make(session, request);
}

void writeList(const RecordsRequest& request, const QByteArray& list) {
    if (request.file.isEmpty()) {
        const auto length = static_cast<std::size_t>(list.size());
        if (std::fwrite(list.constData(), 1, length, stdout) != length || std::fflush(stdout) != 0)
            throw ProgramAnswer{u"the output can't be written"_s, 1};
        return;
    }
    if (const auto fault = writeWholeFile(request.file, list); !fault.isEmpty())
        throw ProgramAnswer{u"%1 can't be written: %2"_s.arg(request.file, fault), 1};
}

} // namespace kelvane
