#include "resources/strings.h"

#include "resources/languages.h"

#include <QDir>
#include <QFile>
#include <QHash>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

using Table = QHash<int, QString>;

QString unescape(QStringView raw) {
    QString plain;
    for (qsizetype i = 0; i < raw.size(); ++i) {
        if (raw[i] == u'\\' && i + 1 < raw.size()) {
            ++i;
            plain += raw[i] == u'n' ? u"\r\n"_s : QString(raw[i]);
        } else {
            plain += raw[i];
        }
    }
    return plain;
}

/// The columns of a line: number and text, with the name between them in the compiled-in table.
enum class Columns { numberAndText, numberNameAndText };

bool readInto(Table& table, const QString& path, Columns columns) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const auto content = QString::fromUtf8(file.readAll());
    for (auto line : QStringView(content).split(u'\n')) {
        if (line.endsWith(u'\r'))
            line.chop(1);
        const auto tab = line.indexOf(u'\t');
        bool isNumber = false;
        const int id = tab < 0 ? 0 : line.left(tab).toInt(&isNumber);
        if (!isNumber)
            continue;
        const auto textFrom = columns == Columns::numberAndText ? tab + 1 : line.indexOf(u'\t', tab + 1) + 1;
        table.insert(id, unescape(line.mid(textFrom)));
    }
    return true;
}

Table ownTable() {
    Table compiledIn;
    readInto(compiledIn, u":/strings.txt"_s, Columns::numberNameAndText);
    return compiledIn;
}

/// The texts as they are shown.
struct Shown {
    QString language = ownLanguage.toString();
    Table texts = ownTable();
};

Shown& shown() {
    static Shown now;
    return now;
}

} // namespace

QString text(TextId id) {
    const auto number = static_cast<int>(id);
    const auto& strings = shown().texts;
    const auto found = strings.constFind(number);
    return found == strings.cend() ? u"#%1"_s.arg(number) : *found;
}

bool overlayStrings(const QString& path) {
    return readInto(shown().texts, path, Columns::numberAndText);
}

QStringList languages() {
    QStringList codes{ownLanguage.toString()};
    const auto tables = QDir(u":/"_s).entryList({u"strings.*.txt"_s}, QDir::Files);
    for (const auto& name : tables)
        codes << name.section(u'.', 1, 1);
    codes.sort();
    return codes;
}

QString shownLanguage() {
    return shown().language;
}

bool showLanguage(const QString& language) {
    if (!languages().contains(language))
        return false;
    Shown chosen{.language = language};
    // A text that the translation lacks is shown as the program has it.
    if (language != ownLanguage)
        readInto(chosen.texts, u":/strings.%1.txt"_s.arg(language), Columns::numberAndText);
    shown() = chosen;
    return true;
}

} // namespace kelvane
