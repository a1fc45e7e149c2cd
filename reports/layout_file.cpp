#include "reports/layout_file.h"

#include "reports/report_error.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStringDecoder>

#include <json/reader.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane {

struct LayoutNode::File {
    QString path;
    QByteArray content;
    Json::Value root;
};

namespace {

constexpr qint64 maxSize = 1024 * 1024;
/// No layout needs brackets deeper within each other.
constexpr int maxDepth = 32;

QString quoted(const QStringList& names) {
    return u'"' + names.join(u"\", \""_s) + u'"';
}

ReportError fileMistake(const QString& path, const QString& reason) {
    return ReportError(
        text(TextId::fileProblem).arg(QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath()), reason));
}

ReportError lineMistake(const QString& path, qsizetype line, const QString& reason) {
    return ReportError(
        text(TextId::layoutLineMistake).arg(QFileInfo(path).fileName(), QString::number(line), reason));
}

QByteArray contentOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw fileMistake(path, file.errorString());
    auto content = file.read(maxSize + 1);
    if (file.error() != QFileDevice::NoError)
        throw fileMistake(path, file.errorString());
    if (content.size() > maxSize)
        throw fileMistake(path, text(TextId::layoutTooLarge).arg(maxSize));
    if (content.startsWith("\xEF\xBB\xBF"))
        content.remove(0, 3);
    if (content.trimmed().isEmpty())
        throw fileMistake(path, text(TextId::layoutEmpty));
    return content;
}

void expectUtf8(const QString& path, const QByteArray& content) {
    qsizetype line = 0;
    for (const auto& bytes : content.split('\n')) {
        ++line;
        QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        const QString decoded = decoder(bytes);
        if (decoder.hasError())
            throw lineMistake(path, line, text(TextId::layoutNotUtf8));
    }
}

/// The first of the reader's messages: "* Line 3, Column 5", and the reason on the next line.
ReportError syntaxMistake(const QString& path, const std::string& messages) {
    static const QRegularExpression pattern(uR"(Line (\d+), Column \d+\n\s*([^\n]*))"_s);
    const auto first = pattern.match(QString::fromStdString(messages));
    return lineMistake(path, std::max(first.captured(1).toLongLong(), 1LL), first.captured(2));
}

Json::Value parsed(const QString& path, const QByteArray& content) {
    Json::CharReaderBuilder builder;
    builder["collectComments"] = false;
    builder["allowTrailingCommas"] = false;
    builder["rejectDupKeys"] = true;
    builder["failIfExtra"] = true;
    builder["stackLimit"] = maxDepth;
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    Json::Value root;
    std::string messages;
    try {
        if (!reader->parse(content.constBegin(), content.constEnd(), &root, &messages))
            throw syntaxMistake(path, messages);
    } catch (const Json::Exception&) { // the only thing that the reader throws for
        throw fileMistake(path, text(TextId::layoutTooDeep).arg(maxDepth));
    }
    return root;
}

} // namespace

LayoutNode::LayoutNode(std::shared_ptr<const File> file, const Json::Value& value, QString name)
    : file_(std::move(file)), value_(&value), name_(std::move(name)) {}

void LayoutNode::fail(const QString& reason) const {
    const auto line = file_->content.left(value_->getOffsetStart()).count('\n') + 1;
    throw lineMistake(file_->path, line, reason);
}

void LayoutNode::failUnknown(const QString& chosen, const QStringList& known) const {
    fail(kelvane::text(TextId::layoutUnknownChoice).arg(name_, chosen, quoted(known)));
}

void LayoutNode::expectKeys(const QStringList& known) const {
    for (const auto& key : names()) {
        if (!known.contains(key))
            at(key).fail(kelvane::text(TextId::layoutUnknownKey).arg(key, quoted(known)));
    }
}

bool LayoutNode::has(const QString& key) const {
    return value_->isMember(key.toStdString());
}

LayoutNode LayoutNode::at(const QString& key) const {
    if (!has(key))
        fail(kelvane::text(TextId::layoutMissingKey).arg(key));
    return {file_, (*value_)[key.toStdString()], key};
}

std::optional<LayoutNode> LayoutNode::find(const QString& key) const {
    return has(key) ? std::optional(at(key)) : std::nullopt;
}

QStringList LayoutNode::names() const {
    if (!value_->isObject())
        fail(kelvane::text(TextId::layoutWrongKind).arg(name_, kelvane::text(TextId::layoutKindObject)));
    QStringList keys;
    for (const auto& key : value_->getMemberNames())
        keys << QString::fromStdString(key);
    return keys;
}

QList<LayoutNode> LayoutNode::elements() const {
    if (!value_->isArray())
        fail(kelvane::text(TextId::layoutWrongKind).arg(name_, kelvane::text(TextId::layoutKindList)));
    QList<LayoutNode> elements;
    for (const auto& element : *value_)
        elements << LayoutNode(file_, element, name_);
    return elements;
}

double LayoutNode::number(double least, double most) const {
    if (!value_->isNumeric())
        fail(kelvane::text(TextId::layoutWrongKind).arg(name_, kelvane::text(TextId::layoutKindNumber)));
    const auto number = value_->asDouble();
    if (!(number >= least && number <= most))
        fail(kelvane::text(TextId::layoutOutOfRange)
                 .arg(name_, QString::number(least), QString::number(most)));
    return number;
}

int LayoutNode::wholeNumber(int least, int most) const {
    const auto whole = number(least, most);
    if (whole != std::floor(whole))
        fail(kelvane::text(TextId::layoutWrongKind).arg(name_, kelvane::text(TextId::layoutKindWhole)));
    return static_cast<int>(whole);
}

QString LayoutNode::text() const {
    if (!value_->isString())
        fail(kelvane::text(TextId::layoutWrongKind).arg(name_, kelvane::text(TextId::layoutKindText)));
    return QString::fromStdString(value_->asString());
}

bool LayoutNode::flag() const {
    if (!value_->isBool())
        fail(kelvane::text(TextId::layoutWrongKind).arg(name_, kelvane::text(TextId::layoutKindFlag)));
    return value_->asBool();
}

QString LayoutNode::folder() const {
    return QFileInfo(file_->path).absolutePath();
}

LayoutNode readLayoutFile(const QString& path) {
    const auto file = std::make_shared<LayoutNode::File>();
    file->path = path;
    file->content = contentOf(path);
    expectUtf8(path, file->content);
    file->root = parsed(path, file->content);
    return {file, file->root, QFileInfo(path).fileName()};
}

} // namespace kelvane
