#include "tests/source_rules/source_rules.h"

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

struct Module {
    QStringView name;
    int layer;
    bool hasWindows;
};

constexpr Module modules[] = {
    {u"resources", 1, false}, {u"platform", 2, false},   {u"data", 3, false},      {u"drivers", 4, false},
    {u"plots", 4, true},      {u"procedures", 4, false}, {u"reports", 4, true},    {u"ui", 4, true},
    {u"workflow", 5, true},   {u"editors", 5, true},     {u"worksheets", 5, true}, {u"records", 5, true},
    {u"app", 6, true},        {u"admin", 6, false},
};
/// Headers that the build makes from tables.
constexpr QStringView generatedHeaders[] = {u"resources/text_id.h"};
/// Beside the layers: they include from every module and from what stands before them here.
struct Companion {
    QStringView name;
    int order;
};
constexpr Companion companions[] = {
    {u"simulators", 1}, {u"testkit", 2},   {u"demo", 3},  {u"benchmarks", 3},
    {u"fuzz", 3},       {u"endurance", 3}, {u"tests", 4},
};

/// The only parts of Qt that a module without windows may use.
constexpr QStringView coreModules[] = {u"QtCore", u"QtSerialPort"};

const Module* moduleOf(QStringView path) {
    const auto* module = std::ranges::find(modules, path.left(path.indexOf(u'/')), &Module::name);
    return module == std::end(modules) ? nullptr : module;
}

const Companion* companionOf(QStringView path) {
    return std::ranges::find(companions, path.left(path.indexOf(u'/')), &Companion::name);
}

QString folderOf(const QString& path) {
    return path.left(path.lastIndexOf(u'/'));
}

/// The top folder; for drivers, the folder of the one driver.
QString moduleFolderOf(const QString& path) {
    return path.startsWith("drivers/"_L1) ? folderOf(path) : path.left(path.indexOf(u'/'));
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
    for (const auto& module : modules)
        add(module.name);
    for (const auto& companion : companions)
        add(companion.name);
    return graph;
}

/// Between the drivers: each may use its own folder and what stands in drivers/ itself, which uses none.
bool isAnotherDriver(const QString& from, const QString& to) {
    const auto target = folderOf(to);
    return target != "drivers"_L1 && target != folderOf(from);
}

QString companionFault(const QString& from, const QString& to) {
    const auto* own = companionOf(from);
    const auto* other = companionOf(to);
    const bool isAllowed = own == other || other->order < own->order;
    return isAllowed ? QString() : u"includes what comes after it"_s;
}

QString layerFault(const QString& from, const QString& to) {
    const auto* own = moduleOf(from);
    const auto* other = moduleOf(to);
    if (!own)
        return other ? QString() : companionFault(from, to);
    if (!other)
        return u"includes from outside the layers"_s;
    if (own == other)
        return own->name == u"drivers" && isAnotherDriver(from, to) ? u"includes another driver"_s
                                                                    : QString();
    if (other->layer > own->layer)
        return u"includes upwards"_s;
    return other->layer == own->layer ? u"includes another module of its layer"_s : QString();
}

bool isGenerated(const QString& header) {
    return std::ranges::find(generatedHeaders, header) != std::end(generatedHeaders);
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

bool isPosixHeader(const QString& header) {
    static const QRegularExpression posix(
        u"^((sys|net|netinet|arpa)/.+|csignal|"
        "(crypt|dirent|dlfcn|fcntl|fnmatch|ftw|glob|grp|langinfo|netdb|poll|pthread|pty|pwd|regex|sched|"
        "semaphore|signal|spawn|strings|syslog|termios|unistd|utime)\\.h)$"_s);
    return posix.match(header).hasMatch();
}

/// Walks along the includes of a file; each loop is reported once, from the file on where it was entered.
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
        if (const auto at = path_.indexOf(path); at >= 0) {
            faults_ << u"loop: "_s + (path_.mid(at) << path).join(u" > "_s);
            return;
        }
        if (done_.contains(path))
            return;
        path_ << path;
        for (const auto& next : graph_.value(path).own)
            visit(next);
        path_.removeLast();
        done_ << path;
    }

    const IncludeGraph& graph_;
    QStringList path_;
    QSet<QString> done_;
    QStringList faults_;
};

QString headerOf(const QDir& root, const QString& source) {
    const QString own = source.chopped(4) + u".h"_s;
    return root.exists(own) ? own : includesOf(root, source).own.value(0);
}

/// The sources that the build gives to the library with windows, as paths from the root.
QStringList screenSources(const QDir& root) {
    static const QRegularExpression list(u"\\(\\s*kelvane_screens\\s([^)]*)\\)"_s);
    QStringList sources;
    for (const auto& module : modules) {
        const auto lists = contentOf(root, module.name.toString() + u"/CMakeLists.txt"_s);
        for (const auto& match : list.globalMatch(lists)) {
            for (const auto& file : match.captured(1).simplified().split(u' ')) {
                if (file.endsWith(".cpp"_L1))
                    sources << module.name.toString() + u'/' + file;
            }
        }
    }
    return sources;
}

/// The shortest way along the includes from a file to a header, both included; empty when there is none.
QStringList includeWay(const IncludeGraph& graph, const QString& from, const QString& to) {
    QList<QStringList> ways{{from}};
    QSet<QString> seen{from};
    while (!ways.isEmpty()) {
        const auto way = ways.takeFirst();
        if (way.last() == to)
            return way;
        for (const auto& header : graph.value(way.last()).own) {
            if (!seen.contains(header))
                ways << (way + QStringList{header});
            seen << header;
        }
    }
    return {};
}

/// The SQL that stands in the text of a file.
QStringList statementsIn(const QString& content) {
    static const QRegularExpression literal(uR"re("(?:[^"\\\n]|\\.)*")re"_s);
    static const QRegularExpression words(
        u"\\b(select|insert into|update|delete from|order by)\\s|\\bmt\\.\\w|\\bfrom mt\\b|\\bwhere\\b|"
        "\\bnow\\(\\*\\)|;commit\\b"_s,
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression parts(u"\\b(Sql|SqlWords|sql(Text|Name|Number|Condition))\\b"_s);
    QStringList found;
    for (const auto& match : literal.globalMatch(content)) {
        if (words.match(match.captured()).hasMatch())
            found << match.captured();
    }
    for (const auto& match : parts.globalMatch(content))
        found << match.captured();
    return found;
}

bool usesConnection(const QString& content) {
    static const QRegularExpression connection(u"\\b[sS]haredConnection\\b"_s);
    return connection.match(content).hasMatch();
}

} // namespace

QStringList includeFaults(const QDir& root) {
    QStringList faults;
    const auto graph = readTree(root);
    for (auto it = graph.cbegin(); it != graph.cend(); ++it) {
        const auto& file = it.key();
        for (const auto& header : it->own) {
            const bool isFile = graph.contains(header) || isGenerated(header);
            const auto fault =
                isFile ? layerFault(file, header) : u"includes what is no file from the root"_s;
            if (!fault.isEmpty())
                faults << file + u": "_s + fault + u": "_s + header;
        }
        const auto* module = moduleOf(file);
        for (const auto& header : it->system) {
            if (module && !module->hasWindows && !isCoreHeader(header))
                faults << file + u": includes windows: "_s + header;
        }
    }
    return faults + LoopSearch(graph).faults();
}

QStringList posixFaults(const QDir& root) {
    QStringList faults;
    const auto graph = readTree(root);
    for (auto it = graph.cbegin(); it != graph.cend(); ++it) {
        const auto& file = it.key();
        const auto folder = QStringView(file).left(file.indexOf(u'/'));
        if (folder == u"tests" || folder == u"testkit" || file.endsWith("_posix.cpp"_L1))
            continue;
        for (const auto& header : it->system) {
            if (isPosixHeader(header))
                faults << file + u": includes what only POSIX has: "_s + header;
        }
    }
    return faults;
}

QStringList sourcesWithoutTest(const QDir& root) {
    QStringList tested;
    QSet<QString> called;
    for (const auto& path : filesIn(root, u"tests") + filesIn(root, u"testkit")) {
        tested << includesOf(root, path).own;
        called << QFileInfo(path).baseName();
    }
    QStringList untested;
    for (const auto& module : modules) {
        for (const auto& path : filesIn(root, module.name)) {
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
        // What a tested file uses of its own module is a part of it.
        for (const auto& part : parts) {
            if (moduleFolderOf(part) == moduleFolderOf(header))
                tested << part;
        }
    }
    return untested;
}

QStringList numberedTexts(const QDir& root) {
    static const QRegularExpression number(uR"(\bTextId\s*[{(]\s*\d+|static_cast<TextId>)"_s);
    QStringList faults;
    for (const auto& module : modules) {
        for (const auto& path : filesIn(root, module.name)) {
            const auto content = contentOf(root, path);
            for (const auto& match : number.globalMatch(content))
                faults << path + u": "_s + match.captured();
        }
    }
    return faults;
}

QStringList statementsInModulesWithWindows(const QDir& root) {
    QStringList faults;
    for (const auto& module : modules) {
        if (!module.hasWindows)
            continue;
        for (const auto& path : filesIn(root, module.name)) {
            for (const auto& statement : statementsIn(contentOf(root, path)))
                faults << path + u": "_s + statement;
        }
    }
    return faults;
}

QStringList databaseInScreens(const QDir& root) {
    const auto graph = readTree(root);
    QStringList faults;
    const auto sources = screenSources(root);
    const auto isOfCore = [&](const QString& header) {
        const QString source = header.chopped(2) + u".cpp"_s;
        return graph.contains(source) && !sources.contains(source);
    };
    for (const auto& source : sources) {
        if (const auto way = includeWay(graph, source, u"platform/database/sql.h"_s); !way.isEmpty())
            faults << way.join(u" > "_s);
        auto own = graph.value(source).own;
        own.removeIf(
            [&](const QString& header) { return folderOf(header) != folderOf(source) || isOfCore(header); });
        for (const auto& file : QStringList{source} + own) {
            if (usesConnection(contentOf(root, file)))
                faults << file + u": uses the shared connection"_s;
        }
    }
    faults.removeDuplicates();
    return faults;
}

} // namespace kelvane::testing
