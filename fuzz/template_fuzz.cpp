// A result template of any content, and a line filled by it: each field stands where a plain reading of the
// rules puts it.

#include "data/start_up.h"
#include "data/tolerances/result_lines.h"
#include "fuzz/input.h"
#include "fuzz/session.h"

#include <algorithm>
#include <array>
#include <string>

using namespace Qt::StringLiterals;
using namespace kelvane;
using namespace kelvane::fuzz;

namespace {

using Characters = std::u32string;

Characters charactersOf(const QString& text) {
    const auto codes = text.toUcs4();
    return {codes.begin(), codes.end()};
}

Characters padded(Characters value, Preparation preparation) {
    if (preparation == Preparation::threeWide && value.size() < 3)
        value.insert(0, 3 - value.size(), U' ');
    if (preparation == Preparation::signColumn && value.find(U'-') == Characters::npos)
        value.insert(0, 1, U' ');
    return value;
}

/// The text that a field's value is replaced by.
Characters substituted(const Session& session, QStringView code, const Characters& value) {
    auto text = value;
    for (int index = 0; index <= session.SubstTable.last; ++index) {
        const auto& row = session.SubstTable[index];
        if (row.code.isEmpty())
            break;
        const auto from = charactersOf(row.from);
        if (row.code == code && value.find(from) != Characters::npos)
            text = value.substr(0, value.size() - from.size()) + charactersOf(row.to);
    }
    return text;
}

using Values = std::array<QString, resultFields.size()>;

Characters expectedLine(const Session& session, const Values& values) {
    const auto body = charactersOf(session.ResultTemplateLine);
    Characters line(120, U' ');
    for (std::size_t field = 0; field < values.size(); ++field) {
        const auto column = body.find(charactersOf(resultFields[field].code.toString() + u'$'));
        if (column == Characters::npos)
            continue;
        const auto value = padded(charactersOf(values[field]), resultFields[field].preparation);
        const auto begin = std::min(column, line.size());
        line.replace(begin, std::min(value.size(), line.size() - begin),
                     substituted(session, resultFields[field].code, value));
    }
    return line;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    WorkSession work;
    auto& session = work.session;
    Input input(data, size);
    writeFile(u"rslt_db.frm"_s, input.field());
    ModuleGlobals::StartupFunctions(session, {});
    require(session.ResultTemplateLine.isEmpty() || !QString(session.ResultTemplateLine).contains(u'\n'),
            "the body is one line");

    Values values;
    for (auto& value : values)
        value = input.text();
    const auto expected = expectedLine(session, values);
    const auto reports = session.reportCount;
    const auto line =
        ModuleGlobals::ResultLine(session, values[0], values[1], values[2], values[3], values[4], values[5],
                                  values[6], values[7], values[8], values[9], values[10], values[11]);
    require(session.reportCount == reports, "no value is too much for a line");
    require(charactersOf(line) == expected, "each field stands in its columns");
    return 0;
}
