#include "endurance/act_log.h"

using namespace Qt::StringLiterals;

namespace kelvane::endure {

ActLog::ActLog(const QString& folder) : file_(path(folder)) {
    if (!file_.open(QIODevice::Append | QIODevice::Unbuffered))
        qFatal("%s can't be written", qPrintable(file_.fileName()));
}

void ActLog::write(const QString& kind, const QString& text) {
    auto line = text;
    line.replace(u'\t', u' ').replace(u"\r\n"_s, u" / "_s).replace(u'\n', u" / "_s);
    const auto moment = QString::number(QDateTime::currentMSecsSinceEpoch());
    file_.write((QStringList{moment, kind, line}.join(u'\t') + u'\n').toUtf8());
}

QString ActLog::path(const QString& folder) {
    return folder + u"/acts.log"_s;
}

QList<ActLine> ActLog::read(const QString& folder) {
    QList<ActLine> lines;
    QFile file(path(folder));
    if (!file.open(QIODevice::ReadOnly))
        return lines;
    for (const auto& line : file.readAll().split('\n')) {
        const auto parts = QString::fromUtf8(line).split(u'\t');
        if (parts.size() == 3)
            lines << ActLine{parts[0].toLongLong(), parts[1], parts[2]};
    }
    return lines;
}

} // namespace kelvane::endure
