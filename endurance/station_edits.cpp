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
    Strategy strategy{editedName(below(editedCount)), {}};
    const int edit = beginEdit(u"strategy "_s + strategy.name);
    for (int part = 0; part < partCount(edit); ++part)
        strategy.points << QString::number(edit + part / 8.0, 'f', 3);
    endEdit(edit, !saveStrategy(session_, strategy));
}

void Station::editMessage() {
    const auto name = editedName(below(editedCount));
    const auto subject = u"message "_s + name;
    const auto list = loadMessages(session_, name);
    if (!list)
        return;
    if (list->names.contains(name) && below(4) == 0) {
        const int removal = beginEdit(subject, true);
        endEdit(removal, deleteMessage(session_, name));
        return;
    }
    const int edit = beginEdit(subject);
    if (!list->names.contains(name) && !createMessage(session_, name))
        return;
    const auto text = QStringList(partCount(edit) * 20, QString::number(edit)).join(u' ');
    endEdit(edit, !saveMessage(session_, {name, text}));
}

void Station::editParameters() {
    const auto asset = editedInstruments().at(below(static_cast<int>(editedInstruments().size())));
    loadCalParams(session_, asset, [&](const StoredCalParams& stored) {
        CalParamEntries entries(stored.record);
        const int edit = beginEdit(u"parameters "_s + asset);
        const auto number = QString::number(edit);
        for (const auto member : {&CalParamRecord::neg_units, &CalParamRecord::pos_units,
                                  &CalParamRecord::neg_span_pct, &CalParamRecord::pos_span_pct})
            entries[member] = number;
        MessageLists displayed;
        const auto messages = stored.displayed.pre + stored.available.pre;
        displayed.pre = messages.first(std::min<qsizetype>(messages.size(), partCount(edit)));
        endEdit(edit, !storeCalParams(session_, asset, entries, displayed));
    });
}

void Station::editPackage() {
    const auto name = editedName(below(editedCount));
    const bool removes = below(5) == 0;
    const int edit = beginEdit(u"package "_s + name, removes);
    if (removes)
        return endEdit(edit, removePackage(session_, name));
    TaskPackage package{.name = name};
    package.notes = QString::number(edit);
    package.assets = instruments().first(partCount(edit));
    endEdit(edit, !savePackage(session_, package));
}

} // namespace kelvane::endure
