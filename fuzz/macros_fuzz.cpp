// Test messages with macros of any name: each macro of a text is replaced by itself, whatever stands beside
// it.

#include "data/parameters/prompt_macros.h"
#include "fuzz/input.h"
#include "fuzz/session.h"

#include <QStringList>

using namespace Qt::StringLiterals;
using namespace kelvane;
using namespace kelvane::fuzz;

namespace {

/// Gives each query one row with the same text in every column.
class OneRow final : public RecordSet {
  public:
    explicit OneRow(QString value) : value_(std::move(value)) {}
    bool next() override { return !std::exchange(isRead_, true); }
    std::optional<QString> value(int) override { return value_; }

  private:
    QString value_;
    bool isRead_ = false;
};

class OneRowConnection final : public Connection {
  public:
    explicit OneRowConnection(QString value) : value_(std::move(value)) {}
    void open(const QString&, const QString&, const QString&) override {}
    void close() override {}
    bool isOpen() const override { return true; }
    bool isLost() const override { return false; }
    qint64 execute(const QString&) override { return 0; }
    std::unique_ptr<RecordSet> select(const QString&, Rows) override {
        return std::make_unique<OneRow>(value_);
    }
    void beginTransaction() override {}
    void commitTransaction() override {}
    void rollBackTransaction() override {}
    void lock(const QString&) override {}
    void unlock(const QString&) override {}
    void refuseWriting() override {}

  private:
    QString value_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const auto asset = input.text();
    const auto stored = input.text();
    const auto text = QString::fromUtf8(input.rest());
    WorkSession work([&] { return std::make_unique<OneRowConnection>(stored); });
    auto& session = work.session;
    const auto expanded = [&](const QString& message) {
        return ModuleGlobals::UUTPromptTextPrepare(session, message, asset);
    };

    const auto whole = expanded(text);
    if (!text.contains(u'$'))
        require(whole == text, "a text without macros stays");
    if (session.reportCount != 0)
        return 0; // a stored value that is no number, or a character that there is none of
    const auto parts = text.split(u'$');
    constexpr qsizetype maxParts = 64;
    if (parts.size() > maxParts)
        return 0;
    QString expected;
    for (qsizetype place = 0; place < parts.size(); ++place) {
        const bool isMacro = place % 2 == 1 && place + 1 < parts.size();
        expected += isMacro ? expanded(u'$' + parts[place] + u'$') : parts[place];
    }
    require(whole == expected, "a macro does not depend on what stands beside it");
    return 0;
}
