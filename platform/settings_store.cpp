#include "platform/settings_store.h"

#include "platform/file_error.h"
#include "platform/whole_file.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QStandardPaths>
#include <QStringDecoder>
#include <QStringList>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

// QSettings would do, but for three things: it takes a file that was cut short by a full disk for written, it
// waits without limit for its lock, and it drops the comments of a user who wrote into the file.

namespace kelvane {

namespace {

constexpr int lockMilliseconds = 2000;

QStringView trim(QStringView text) {
    const auto isSpace = [](QChar c) { return c == u' ' || c == u'\t' || c == u'\r'; };
    while (!text.isEmpty() && isSpace(text.front()))
        text = text.mid(1);
    while (!text.isEmpty() && isSpace(text.back()))
        text.chop(1);
    return text;
}

/// Writes what would not come back from a line of the file as "%" and two hexadecimal digits: control
/// characters, the blanks at both ends, the "%" itself, and the characters of `special`.
QString encode(QStringView text, QStringView special) {
    QString result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const auto c = text[i];
        const bool atAnEnd = i == 0 || i + 1 == text.size();
        if (c < u' ' || c == u'\x7f' || c == u'%' || (c == u' ' && atAnEnd) || special.contains(c))
            result += u'%' + QString::number(c.unicode(), 16).rightJustified(2, u'0').toUpper();
        else
            result += c;
    }
    return result;
}

bool isHexDigit(QChar c) {
    const auto lower = c.toLower();
    return (c >= u'0' && c <= u'9') || (lower >= u'a' && lower <= u'f');
}

QString decode(QStringView text) {
    QString result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const auto digits = text.mid(i + 1, 2);
        const bool isCode = text[i] == u'%' && digits.size() == 2 && std::ranges::all_of(digits, isHexDigit);
        result += isCode ? QChar(digits.toUShort(nullptr, 16)) : text[i];
        if (isCode)
            i += 2;
    }
    return result;
}

QString encodeName(QStringView name) {
    return encode(name, u"=[];#");
}

enum class LineKind { other, section, setting, damaged };

struct Line {
    LineKind kind = LineKind::other;
    QString name = {};
    QStringView value = {};
};

Line readLine(QStringView raw) {
    const auto line = trim(raw);
    if (line.contains(QChar(0)))
        return {LineKind::damaged};
    if (line.isEmpty() || line.startsWith(u';') || line.startsWith(u'#'))
        return {};
    if (line.startsWith(u'['))
        return line.endsWith(u']') ? Line{LineKind::section, decode(trim(line.mid(1).chopped(1)))}
                                   : Line{LineKind::damaged};
    const auto equals = line.indexOf(u'=');
    if (equals < 0)
        return {LineKind::damaged};
    return {LineKind::setting, decode(trim(line.left(equals))), trim(line.mid(equals + 1))};
}

/// The lines of the file, none when there is no file; nothing when one of them is none that a settings file
/// can have: it was cut off or overwritten.
std::optional<QStringList> readFile(const QString& path) {
    QFile file(path);
    if (!file.exists())
        return QStringList();
    if (!file.open(QIODevice::ReadOnly))
        throw FileError(ErrorNumber::pathFileAccess, path, file.errorString());
    const auto bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw FileError(ErrorNumber::pathFileAccess, path, file.errorString());
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString content = decoder(bytes);
    if (decoder.hasError())
        return {};
    auto lines = content.split(u'\n');
    for (const auto& line : lines) {
        if (readLine(line).kind == LineKind::damaged)
            return {};
    }
    if (lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

/// Where a setting stands among the lines, or where it would have to be inserted; -1 without its section.
struct Place {
    qsizetype at = -1;
    bool found = false;
};

Place placeOf(const QStringList& lines, const QString& section, const QString& key) {
    // Settings before the first section belong to the one without a name.
    bool inSection = section.isEmpty();
    Place place{inSection ? 0 : -1};
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const auto line = readLine(lines[i]);
        if (line.kind == LineKind::section)
            inSection = line.name == section;
        if (!inSection || line.kind == LineKind::other)
            continue;
        if (line.kind == LineKind::setting && line.name == key)
            return {i, true};
        place.at = i + 1;
    }
    return place;
}

void putAside(const QString& path) {
    const QString kept = path + u".damaged"_s;
    QFile::remove(kept);
    if (QFile file(path); !file.rename(kept))
        throw FileError(ErrorNumber::pathFileAccess, path, file.errorString());
}

void writeFile(const QString& path, const QStringList& lines) {
    const auto bytes = (lines.join(u'\n') + u'\n').toUtf8();
    if (const auto fault = writeWholeFile(path, bytes); !fault.isEmpty())
        throw FileError(ErrorNumber::pathFileAccess, path, fault);
}

} // namespace

IniSettingsStore::IniSettingsStore(QString path) : path_(std::move(path)) {}

QString IniSettingsStore::value(const QString& section, const QString& key) const {
    const auto lines = readFile(path_);
    if (!lines)
        return {};
    const auto place = placeOf(*lines, section, key);
    return place.found ? decode(readLine(lines->at(place.at)).value) : QString();
}

void IniSettingsStore::setValue(const QString& section, const QString& key, const QString& value) {
    QDir().mkpath(QFileInfo(path_).absolutePath());
    // Another program of the same user must not write between our reading and our writing.
    QLockFile lock(path_ + u".lock"_s);
    if (!lock.tryLock(lockMilliseconds)) {
        const bool isTaken = lock.error() == QLockFile::LockFailedError;
        throw FileError(ErrorNumber::pathFileAccess, path_,
                        text(isTaken ? TextId::fileLockedByProgram : TextId::folderNotWritable));
    }

    const auto stored = readFile(path_);
    if (!stored)
        putAside(path_);
    auto lines = stored.value_or(QStringList());
    const QString setting = encodeName(key) + u'=' + encode(value, {});
    if (const auto place = placeOf(lines, section, key); place.found) {
        lines[place.at] = setting;
    } else if (place.at >= 0) {
        lines.insert(place.at, setting);
    } else {
        if (!lines.isEmpty())
            lines << QString();
        lines << u'[' + encodeName(section) + u']' << setting;
    }
    writeFile(path_, lines);
}

QString IniSettingsStore::defaultPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/KELVANE.ini"_s;
}

} // namespace kelvane
