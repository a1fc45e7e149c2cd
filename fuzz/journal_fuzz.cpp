// The journal of results, in any order of its operations and broken off anywhere: what was written whole is
// read, and nothing else.

#include "data/journal/journal.h"
#include "fuzz/input.h"
#include "fuzz/session.h"

#include <QFile>

#include <vector>

using namespace Qt::StringLiterals;
using namespace kelvane;
using namespace kelvane::fuzz;

namespace {

bool operator==(const JournalEntry& left, const JournalEntry& right) {
    const auto texts = [](const JournalEntry& entry) {
        return QStringList{entry.id,     entry.moment,     entry.user,   entry.owner,
                           entry.driver, entry.calibrator, entry.serial, entry.asset,
                           entry.mtag,   entry.date,       entry.time,   entry.why};
    };
    return texts(left) == texts(right) && left.raw == right.raw && left.readings == right.readings &&
           left.prepared == right.prepared && left.lines == right.lines && left.fields == right.fields &&
           left.standards == right.standards && left.begun == right.begun && left.others == right.others;
}

bool areSame(const QList<JournalEntry>& left, const QList<JournalEntry>& right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const JournalEntry& one, const JournalEntry& other) { return one == other; });
}

/// What the journal has to hold, and its operations. Each writes one line.
class Model {
  public:
    explicit Model(const Session& session) : journal(session), session_(session) {}

    void step(Input& input) {
        const auto operation = input.byte() % 6;
        if (operation < 2 || unfinished.isEmpty())
            return add(input);
        const auto place = input.byte() % unfinished.size();
        auto& entry = unfinished[place];
        if (operation == 2) {
            entry.why = input.text();
            journal.explain(entry.id, entry.why);
        } else if (operation == 3) {
            entry.date = input.text();
            entry.time = input.text();
            journal.setDate(entry.id, entry.date, entry.time);
        } else if (operation == 4) {
            entry.begun = true;
            entry.others = {input.text()};
            journal.setBegun(entry.id, entry.date, entry.time, entry.others);
        } else {
            constexpr JournalEnd ends[] = {JournalEnd::done, JournalEnd::refused, JournalEnd::discarded};
            journal.end(entry.id, ends[input.byte() % 3], input.text());
            unfinished.removeAt(place);
        }
    }

    Journal journal;
    QList<JournalEntry> unfinished;

  private:
    void add(Input& input) {
        JournalEntry entry;
        entry.asset = input.text();
        entry.date = u"2026-03-18"_s;
        entry.driver = input.text();
        entry.raw = {{u"reply"_s, input.text()}};
        entry.readings = {input.text(), QString()};
        entry.lines = {input.text()};
        entry.fields = {{u"C2307"_s, input.text()}};
        entry.prepared = input.byte() % 2 == 0;
        entry.begun = input.byte() % 2 == 0;
        entry.id = journal.add(entry);
        entry.moment = formatMoment(session_.clock.moment(), u"YYYY-MM-DD HH:NN:SS");
        entry.user = session_.SessionUser;
        entry.owner = session_.SessionOwner;
        unfinished << entry;
    }

    const Session& session_;
};

/// How many whole lines of `content` stand before `end`; a line is whole without its end, too.
std::size_t wholeLines(const QByteArray& content, qsizetype end) {
    const auto count = content.first(end).count('\n');
    const bool isWhole = end < content.size() && content[end] == '\n' && end > 0 && content[end - 1] != '\n';
    return static_cast<std::size_t>(count + (isWhole ? 1 : 0));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    WorkSession work;
    work.session.SessionDataSource = u"Calibration Data"_s;
    Model model(work.session);
    const auto path = model.journal.path();
    QFile::remove(path);

    Input input(data, size);
    const auto cut = input.number(0, 1 << 20);
    std::vector<QList<JournalEntry>> states{{}};
    constexpr std::size_t maxSteps = 12;
    while (!input.isEmpty() && states.size() <= maxSteps) {
        model.step(input);
        states.push_back(model.unfinished);
        require(areSame(model.journal.unfinished(), model.unfinished), "the journal holds what was written");
    }

    const auto content = readFile(path);
    if (content.isEmpty())
        return 0;
    const auto end = cut % content.size();
    writeFile(path, content.first(end));
    auto expected = states[wholeLines(content, end)];
    require(areSame(model.journal.unfinished(), expected), "a broken off journal reads as far as it goes");
    model.unfinished = expected;
    Input more(data, size);
    model.step(more);
    require(areSame(model.journal.unfinished(), model.unfinished), "a broken off journal is written on");
    return 0;
}
