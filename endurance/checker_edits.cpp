// What the checker finds in that which all stations edit.

#include "endurance/checker.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace kelvane::endure {

void Checker::expectNoneLost(const QString& subject, std::optional<int> lost) {
    expect(!lost, u"the edit %1 of the %2, which was saved, is lost"_s.arg(lost.value_or(0)).arg(subject));
}

void Checker::checkLastEdit(const QString& subject, std::optional<int> stored) {
    expectNoneLost(subject, edits_.lostEdit(subject, stored));
}

void Checker::checkStrategies() {
    for (int which = 0; which < editedCount; ++which) {
        const auto name = editedName(which);
        QList<double> points;
        for (const auto& row : rows(u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = '%1' "
                                    "order by test_point_seq"_s.arg(name),
                                    1))
            points << row[0].toDouble();
        QList<double> wanted;
        const int edit = points.isEmpty() ? 0 : static_cast<int>(points.first());
        for (int part = 0; part < (points.isEmpty() ? 0 : partCount(edit)); ++part)
            wanted << edit + part / 8.0;
        QStringList shown;
        for (const double point : std::as_const(points))
            shown << QString::number(point);
        expect(points == wanted, u"the strategy %1 has the points %2"_s.arg(name, shown.join(u' ')));
        checkLastEdit(u"strategy "_s + name, points.isEmpty() ? std::nullopt : std::optional(edit));
    }
}

void Checker::checkMessages() {
    for (int which = 0; which < editedCount; ++which) {
        const auto name = editedName(which);
        const auto found = rows(u"select prompt from mt.hvm_kv_prompts where pname = '%1'"_s.arg(name), 1);
        const auto subject = u"message "_s + name;
        expect(found.size() <= 1, u"the message %1 stands there twice"_s.arg(name));
        if (found.isEmpty())
            checkLastEdit(subject, {});
        for (const auto& row : found) {
            if (row[0].isEmpty()) {
                expectNoneLost(subject, edits_.lostEditOfEmpty(subject));
                continue;
            }
            const auto words = row[0].split(u' ');
            const auto edit = words.first();
            expect(words == QStringList(partCount(edit.toInt()) * 20, edit),
                   u"the message %1 is broken off or mixed: %2"_s.arg(name, row[0]));
            checkLastEdit(subject, edit.toInt());
        }
    }
}

void Checker::checkPackages() {
    for (int which = 0; which < editedCount; ++which) {
        const auto name = editedName(which);
        const auto found = rows(
            u"select tptag,notes from mt.hvm_kv_task_packages where taskname = '%1' and tptype = 'PDEF'"_s
                .arg(name),
            2);
        expect(found.size() <= 1, u"the package %1 stands there %2 times"_s.arg(name).arg(found.size()));
        checkLastEdit(u"package "_s + name,
                      found.isEmpty() ? std::nullopt : std::optional(found[0][1].toInt()));
        for (const auto& row : found) {
            const auto members =
                rows(u"select distinct(mtag) from mt.hvm_kv_task_assets where tptag = '%1'"_s.arg(row[0]), 1);
            const auto all =
                rows(u"select mtag from mt.hvm_kv_task_assets where tptag = '%1'"_s.arg(row[0]), 1);
            const int wanted = partCount(row[1].toInt());
            expect(members.size() == wanted && all.size() == wanted,
                   u"the package %1 has %2 members of %3"_s.arg(name).arg(all.size()).arg(wanted));
        }
    }
    const auto strays = rows(u"select tptag from mt.hvm_kv_task_assets where tptag not in (select tptag from "
                             "mt.hvm_kv_task_packages)"_s,
                             1);
    expect(strays.isEmpty(), u"%1 members have no package"_s.arg(strays.size()));
}

void Checker::checkParameters() {
    for (const auto& asset : editedInstruments()) {
        const auto key = assets_.key(asset);
        const auto found =
            rows(u"select neg_units,pos_units,neg_span_pct,pos_span_pct from mt.hvm_kv_tag_config "
                 "where mtag = '%1'"_s.arg(key),
                 4);
        expect(found.size() == 1, u"%1 has %2 rows of parameters"_s.arg(asset).arg(found.size()));
        for (const auto& row : found)
            expect(row.count(row[0]) == row.size(),
                   u"the parameters of %1 are mixed: %2"_s.arg(asset, row.join(u' ')));
        const auto messages =
            rows(u"select prompt_seq from mt.hvm_kv_proc_prompts where prompt_type = 'PRE' and "
                 "mtag = '%1'"_s.arg(key),
                 1);
        if (!found.isEmpty())
            checkLastEdit(u"parameters "_s + asset, wholeOf(found[0][0]));
        const bool isEdited = !found.isEmpty() && wholeOf(found[0][0]) > 0;
        expect(!isEdited || messages.size() <= partCount(wholeOf(found[0][0])),
               u"%1 displays %2 messages"_s.arg(asset).arg(messages.size()));
        expect(QSet<Row>(messages.begin(), messages.end()).size() == messages.size(),
               u"the messages of %1 stand there twice"_s.arg(asset));
    }
}

} // namespace kelvane::endure
