#include "testkit/fixtures.h"
#include "tests/docs/pages.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

struct Message {
    int number = 0;
    /// Without line breaks, with three dots in the place of values.
    QString text;
};

const QList<Message>& messages() {
    static const auto list = [] {
        QFile file(u":/strings.txt"_s);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        static const QRegularExpression value(u"%\\d"_s);
        QList<Message> read;
        const auto lines = QString::fromUtf8(file.readAll()).split(u'\n');
        for (const auto& line : lines) {
            if (line.isEmpty() || line.startsWith(u'#'))
                continue;
            auto text = line.section(u'\t', 2).replace(u"\\n"_s, u" "_s).replace(value, u"..."_s);
            read << Message{line.section(u'\t', 0, 0).toInt(), text.simplified()};
        }
        return read;
    }();
    return list;
}

/// The messages that the page explains: the first cells of its tables, apart where several stand in one.
QStringList explained() {
    static const QString page = u"docs/messages.md"_s;
    QStringList found;
    const auto lines = textOfPage(page).split(u'\n');
    for (const auto& line : lines) {
        const auto cell = line.section(u'|', 1, 1).trimmed();
        if (!line.startsWith(u"| "_s) || cell == u"Message"_s)
            continue;
        const auto parts = cell.split(u"<br>"_s);
        for (const auto& part : parts)
            found << part.trimmed();
    }
    return found;
}

/// True when `text` is the message, or begins as it does up to the three dots at its end.
bool isMessage(const QString& text, const Message& message) {
    if (text == message.text)
        return true;
    return text.endsWith(u"..."_s) && text.size() > 3 && message.text.startsWith(text.chopped(3).trimmed());
}

bool isExplained(const Message& message) {
    static const auto page = explained();
    return std::ranges::any_of(page, [&](const QString& text) { return isMessage(text, message); });
}

/// Numbers of texts that are messages, whatever they end in. Those that are a part of another one, or can't
/// be met any more, are left out.
struct Range {
    int first;
    int last;
};
constexpr Range complaints[] = {{1051, 1058}, {1064, 1064}, {1066, 1068}, {1080, 1088}, {1100, 1101},
                                {2000, 2017}, {2024, 2025}, {2050, 2053}, {2070, 2072}, {2140, 2146},
                                {2219, 2220}, {2400, 2401}, {2405, 2405}, {2420, 2422}};

bool isComplaint(const Message& message) {
    return message.text.endsWith(u'!') || std::ranges::any_of(complaints, [&](const Range& range) {
               return message.number >= range.first && message.number <= range.last;
           });
}

} // namespace

TEST(MessagesPage, ExplainsOnlyMessagesOfTheProgram) {
    const auto page = explained();
    EXPECT_GT(page.size(), 150);
    for (const auto& text : page) {
        EXPECT_TRUE(std::ranges::any_of(messages(), [&](const Message& message) {
            return isMessage(text, message);
        })) << text.toStdString();
    }
}

TEST(MessagesPage, ExplainsEachComplaintOfTheProgram) {
    int count = 0;
    for (const auto& message : messages()) {
        if (!isComplaint(message))
            continue;
        EXPECT_TRUE(isExplained(message)) << message.number << ' ' << message.text.toStdString();
        ++count;
    }
    EXPECT_GT(count, 150);
}

/// The screens, menu entries and columns that the pages name stand in italics, a comma between menu levels.
TEST(PageNames, OfScreensAndMenuEntriesAreThoseOfTheProgram) {
    static const QRegularExpression name(u"(?<!\\*)\\*([A-Z][^*]+)\\*(?!\\*)"_s);
    int count = 0;
    for (const auto& page : {u"README.md"_s, u"docs/technicians-guide.md"_s, u"docs/messages.md"_s}) {
        for (const auto& match : name.globalMatch(textOfPage(page))) {
            const auto parts = match.captured(1).simplified().split(u", "_s);
            for (const auto& part : parts) {
                EXPECT_TRUE(std::ranges::any_of(messages(),
                                                [&](const Message& message) { return message.text == part; }))
                    << page.toStdString() << ": " << part.toStdString();
                ++count;
            }
        }
    }
    EXPECT_GT(count, 10);
}

} // namespace kelvane::testing
