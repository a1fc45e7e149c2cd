#include "tests/house/house_rules.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QLibraryInfo>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

struct Room {
    QStringView name;
    int floor;
    bool hasWindows;
};

constexpr Room rooms[] = {
    {u"resources", 1, false}, {u"platform", 2, false},  {u"data", 3, false},
    {u"drivers", 4, false},   {u"ui", 4, true},         {u"workflow", 5, true},
    {u"editors", 5, true},    {u"worksheets", 5, true}, {u"app", 6, true},
};
/// Beside the house: they may look into every room, no room looks into them.
constexpr QStringView outside[] = {u"tests", u"simulators", u"demo", u"benchmarks", u"fuzz"};

/// The only parts of Qt that a room without windows may use.
constexpr QStringView coreModules[] = {u"QtCore", u"QtSerialPort"};

const Room* roomOf(QStringView path) {
    const auto folder = path.left(path.indexOf(u'/'));
    const auto* room =
        std::find_if(std::begin(rooms), std::end(rooms), [&](const Room& one) { return one.name == folder; });
    return room == std::end(rooms) ? nullptr : room;
}

QString folderOf(const QString& path) {
    return path.left(path.lastIndexOf(u'/'));
}

/// The sources and headers of one top folder, as paths from the root, sorted.
QStringList filesIn(const QDir& root, QStringView folder) {
    QStringList files;
    QDirIterator each(root.filePath(folder.toString()), {u"*.h"_s, u"*.cpp"_s}, QDir::Files,
                      QDirIterator::Subdirectories);
    while (each.hasNext())
        files << root.relativeFilePath(each.next());
    files.sort();
    return files;
}

QString contentOf(const QDir& root, const QString& path) {
    QFile file(root.filePath(path));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

struct Includes {
    QStringList own;    // "..."
    QStringList system; // <...>
};

Includes includesOf(const QDir& root, const QString& path) {
    static const QRegularExpression line(uR"re(^[ \t]*#[ \t]*include[ \t]*(?:"([^"]+)"|<([^>]+)>))re"_s,
                                         QRegularExpression::MultilineOption);
    Includes includes;
    const auto content = contentOf(root, path);
    for (const auto& match : line.globalMatch(content)) {
        if (match.hasCaptured(1))
            includes.own << match.captured(1);
        if (match.hasCaptured(2))
            includes.system << match.captured(2);
    }
    return includes;
}

using IncludeGraph = QMap<QString, Includes>;

IncludeGraph readTree(const QDir& root) {
    IncludeGraph graph;
    const auto add = [&](QStringView folder) {
        for (const auto& path : filesIn(root, folder))
            graph.insert(path, includesOf(root, path));
    };
    for (const auto& room : rooms)
        add(room.name);
    for (const auto& folder : outside)
        add(folder);
    return graph;
}

/// Between the drivers: each may use its own folder and what stands in drivers/ itself, which uses none.
bool isAnotherDriver(const QString& from, const QString& to) {
    const auto target = folderOf(to);
    return target != "drivers"_L1 && target != folderOf(from);
}

QString floorFault(const QString& from, const QString& to) {
    const auto* own = roomOf(from);
    const auto* other = roomOf(to);
    if (!own)
        return {};
    if (!other)
        return u"includes from outside the house"_s;
    if (own == other)
        return own->name == u"drivers" && isAnotherDriver(from, to) ? u"includes another driver"_s
                                                                    : QString();
    if (other->floor > own->floor)
        return u"includes upwards"_s;
    return other->floor == own->floor ? u"includes another room of its floor"_s : QString();
}

bool isCoreHeader(const QString& header) {
    if (!header.startsWith(u'Q'))
        return true;
    const QDir qt(QLibraryInfo::path(QLibraryInfo::HeadersPath));
    return std::any_of(std::begin(coreModules), std::end(coreModules), [&](QStringView module) {
        const QString folder = module.toString() + u'/';
        return header == module || header.startsWith(folder) || qt.exists(folder + header);
    });
}

/// Walks along the includes of a file; each loop is told once, from the file on where it was entered.
class LoopSearch {
  public:
    explicit LoopSearch(const IncludeGraph& graph) : graph_(graph) {}

    QStringList faults() {
        for (auto it = graph_.cbegin(); it != graph_.cend(); ++it)
            visit(it.key());
        return faults_;
    }

  private:
    void visit(const QString& path) {
        if (const auto at = road_.indexOf(path); at >= 0) {
            faults_ << u"loop: "_s + (road_.mid(at) << path).join(u" > "_s);
            return;
        }
        if (done_.contains(path))
            return;
        road_ << path;
        for (const auto& next : graph_.value(path).own)
            visit(next);
        road_.removeLast();
        done_ << path;
    }

    const IncludeGraph& graph_;
    QStringList road_;
    QSet<QString> done_;
    QStringList faults_;
};

QString headerOf(const QDir& root, const QString& source) {
    const QString own = source.chopped(4) + u".h"_s;
    return root.exists(own) ? own : includesOf(root, source).own.value(0);
}

} // namespace

QStringList includeFaults(const QDir& root) {
    QStringList faults;
    const auto graph = readTree(root);
    for (auto it = graph.cbegin(); it != graph.cend(); ++it) {
        const auto& file = it.key();
        for (const auto& header : it->own) {
            const auto fault = graph.contains(header) ? floorFault(file, header)
                                                      : u"includes what is no file from the root"_s;
            if (!fault.isEmpty())
                faults << file + u": "_s + fault + u": "_s + header;
        }
        const auto* room = roomOf(file);
        for (const auto& header : it->system) {
            if (room && !room->hasWindows && !isCoreHeader(header))
                faults << file + u": includes windows: "_s + header;
        }
    }
    return faults + LoopSearch(graph).faults();
}

QStringList sourcesWithoutTest(const QDir& root) {
    QStringList tested;
    QSet<QString> called;
    for (const auto& path : filesIn(root, u"tests")) {
        tested << includesOf(root, path).own;
        called << QFileInfo(path).baseName();
    }
    QStringList untested;
    for (const auto& room : rooms) {
        for (const auto& path : filesIn(root, room.name)) {
            if (!path.endsWith(".cpp"_L1) || path.endsWith("/main.cpp"_L1))
                continue;
            untested << path;
            if (called.contains(QFileInfo(path).baseName() + u"_test"_s))
                tested << headerOf(root, path);
        }
    }
    QSet<QString> seen;
    while (!tested.isEmpty()) {
        const auto header = tested.takeLast();
        if (seen.contains(header))
            continue;
        seen << header;
        QStringList parts = includesOf(root, header).own;
        for (const auto& source : QStringList(untested)) {
            if (headerOf(root, source) == header) {
                untested.removeOne(source);
                parts << includesOf(root, source).own;
            }
        }
        // What a tested file uses of its own folder is a part of it.
        for (const auto& part : parts) {
            if (folderOf(part) == folderOf(header))
                tested << part;
        }
    }
    return untested;
}

QStringList unknownTexts(const QDir& root) {
    static const QRegularExpression entry(u"^(\\d+)\\t"_s, QRegularExpression::MultilineOption);
    static const QRegularExpression use(u"\\btext\\((\\d+)\\)"_s);
    QSet<QString> known;
    const auto table = contentOf(root, u"resources/strings.txt"_s);
    for (const auto& match : entry.globalMatch(table))
        known << match.captured(1);
    QStringList unknown;
    for (const auto& room : rooms) {
        for (const auto& path : filesIn(root, room.name)) {
            const auto content = contentOf(root, path);
            for (const auto& match : use.globalMatch(content)) {
                if (!known.contains(match.captured(1)))
                    unknown << path + u": "_s + match.captured(1);
            }
        }
    }
    return unknown;
}

} // namespace kelvane::testing
