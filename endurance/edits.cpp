#include "endurance/edits.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::endure {

Edits::Edits(const QStringList& folders) {
    for (const auto& folder : folders)
        read(folder);
}

QString Edits::lineOf(int number, bool removes, const QString& subject) {
    return u"%1 %2 %3"_s.arg(QString::number(number), removes ? u"remove"_s : u"save"_s, subject);
}

/// An edit that was not saved ends with its act; one whose process was killed may still reach the database.
void Edits::read(const QString& folder) {
    QList<Edit> open;
    QStringList subjects;
    const auto keep = [&] {
        for (qsizetype which = 0; which < open.size(); ++which)
            edits_[subjects[which]] << open[which];
        open.clear();
        subjects.clear();
    };
    for (const auto& line : ActLog::read(folder)) {
        if (line.kind == u"edit") {
            open << Edit{.number = line.text.section(u' ', 0, 0).toInt(),
                         .removes = line.text.section(u' ', 1, 1) == u"remove",
                         .begin = line.moment};
            subjects << line.text.section(u' ', 2);
        } else if (line.kind == u"edited") {
            for (auto& edit : open) {
                if (edit.number == line.text.section(u' ', 0, 0).toInt()) {
                    edit.isSaved = true;
                    edit.end = line.moment;
                }
            }
        } else if (line.kind == u"end" || line.kind == u"start") {
            for (auto& edit : open) {
                if (line.kind == u"end" && !edit.isSaved)
                    edit.end = line.moment;
            }
            keep();
        }
    }
    keep();
}

template <class Matches>
std::optional<int> Edits::lostBehind(const QString& subject, Matches matches) const {
    const auto edits = edits_.value(subject);
    qint64 end = 0;
    for (const auto& edit : edits) {
        if (matches(edit))
            end = std::max(end, edit.end);
    }
    std::optional<int> lost;
    qint64 begin = end;
    for (const auto& edit : edits) {
        if (edit.isSaved && !matches(edit) && edit.begin > begin) {
            lost = edit.number;
            begin = edit.begin;
        }
    }
    return lost;
}

std::optional<int> Edits::lostEdit(const QString& subject, std::optional<int> stored) const {
    return lostBehind(subject, [&](const Edit& edit) {
        return stored ? !edit.removes && edit.number == *stored : edit.removes;
    });
}

std::optional<int> Edits::lostEditOfEmpty(const QString& subject) const {
    return lostBehind(subject, [](const Edit& edit) { return !edit.removes && !edit.isSaved; });
}

QList<int> Edits::saved(const QString& subject) const {
    QList<int> numbers;
    for (const auto& edit : edits_.value(subject)) {
        if (edit.isSaved)
            numbers << edit.number;
    }
    return numbers;
}

} // namespace kelvane::endure
