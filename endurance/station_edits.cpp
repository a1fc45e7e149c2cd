// What a station edits. All parts of an edit carry its number.

#include "data/parameters/cal_params.h"
#include "endurance/station.h"
#include "procedures/cal_param_saving.h"
#include "procedures/strategies.h"
#include "procedures/task_packages.h"
#include "procedures/test_messages.h"

using namespace Qt::StringLiterals;

namespace kelvane::endure {

void Station::editStrategy() {
    const int edit = nextEdit();
    Strategy strategy{editedName(below(editedCount)), {}};
    for (int part = 0; part < partCount(edit); ++part)
        strategy.points << QString::number(edit + part / 8.0, 'f', 3);
    if (!saveStrategy(session_, strategy))
        log_.write(u"edited"_s, u"%1 strategy"_s.arg(edit));
}

void Station::editMessage() {
    const int edit = nextEdit();
    const auto name = editedName(below(editedCount));
    const auto list = loadMessages(session_, name);
    if (!list)
        return;
    if (list->names.contains(name) && below(4) == 0) {
        deleteMessage(session_, name);
        return;
    }
    if (!list->names.contains(name) && !createMessage(session_, name))
        return;
    const auto text = QStringList(partCount(edit) * 20, QString::number(edit)).join(u' ');
    if (!saveMessage(session_, {name, text}))
        log_.write(u"edited"_s, u"%1 message"_s.arg(edit));
}

void Station::editParameters() {
    const int edit = nextEdit();
    const auto asset = editedInstruments().at(below(static_cast<int>(editedInstruments().size())));
    bool isSaved = false;
    loadCalParams(session_, asset, [&](const StoredCalParams& stored) {
        CalParamEntries entries(stored.record);
        const auto number = QString::number(edit);
        for (const auto member : {&CalParamRecord::neg_units, &CalParamRecord::pos_units,
                                  &CalParamRecord::neg_span_pct, &CalParamRecord::pos_span_pct})
            entries[member] = number;
        MessageLists displayed;
        const auto messages = stored.displayed.pre + stored.available.pre;
        displayed.pre = messages.first(std::min<qsizetype>(messages.size(), partCount(edit)));
        isSaved = !storeCalParams(session_, asset, entries, displayed);
    });
    if (isSaved)
        log_.write(u"edited"_s, u"%1 parameters"_s.arg(edit));
}

void Station::editPackage() {
    const int edit = nextEdit();
    const auto name = editedName(below(editedCount));
    if (below(5) == 0) {
        removePackage(session_, name);
        return;
    }
    TaskPackage package{.name = name};
    package.notes = QString::number(edit);
    package.assets = instruments().first(partCount(edit));
    if (!savePackage(session_, package))
        log_.write(u"edited"_s, u"%1 package"_s.arg(edit));
}

} // namespace kelvane::endure
