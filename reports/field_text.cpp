#include "reports/field_text.h"

#include "reports/report_error.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QJsonArray>
#include <QRegularExpression>

#include <kainjow/mustache.hpp>

#include <algorithm>
#include <functional>
#include <optional>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

namespace mustache = kainjow::mustache;

mustache::data dataOf(const QJsonObject& values);

/// An empty text is false, so that a section shows only what has a value.
mustache::data dataOf(const QJsonValue& value) {
    if (value.isObject())
        return dataOf(value.toObject());
    if (value.isArray()) {
        mustache::data list(mustache::data::type::list);
        for (const auto& element : value.toArray())
            list.push_back(dataOf(element));
        return list;
    }
    if (value.isBool())
        return {value.toBool()};
    const auto text = value.toVariant().toString();
    return text.isEmpty() ? mustache::data(false) : mustache::data(text.toStdString());
}

mustache::data dataOf(const QJsonObject& values) {
    mustache::data object;
    for (auto value = values.begin(); value != values.end(); ++value)
        object[value.key().toStdString()] = dataOf(value.value());
    return object;
}

const mustache::data* find(const mustache::data& level, const std::string& name) {
    const auto* value = &level;
    std::string::size_type start = 0;
    while (value != nullptr) {
        const auto dot = name.find('.', start);
        value = value->get(name.substr(start, dot == std::string::npos ? dot : dot - start));
        if (dot == std::string::npos)
            break;
        start = dot + 1;
    }
    return value;
}

/// Each level takes a piece of the stack.
constexpr int maxNesting = 32;

/// A value that is read as a pattern of its own could do anything: there are no partials.
const QRegularExpression& partialTag() {
    static const QRegularExpression tag(uR"(\{\{\s*>)"_s);
    return tag;
}

/// Between other delimiters nobody would find what is looked for here.
const QRegularExpression& delimiterTag() {
    static const QRegularExpression tag(uR"(\{\{\s*=)"_s);
    return tag;
}

bool isNestedTooDeeply(const QString& pattern) {
    static const QRegularExpression sectionTag(uR"(\{\{\s*([#^/]))"_s);
    int depth = 0;
    for (auto tags = sectionTag.globalMatch(pattern); tags.hasNext() && depth <= maxNesting;)
        depth += tags.next().captured(1) == u'/' ? -1 : 1;
    return depth > maxNesting;
}

const QRegularExpression& pageTag() {
    static const QRegularExpression tag(uR"(\{\{[^}]*\bpages?\b)"_s);
    return tag;
}

} // namespace

class FieldValues::Context final : public mustache::basic_context<std::string> {
  public:
    mustache::data report;
    mustache::data group;
    mustache::data page;
    std::optional<mustache::data> row;

    void push(const mustache::data* section) override { sections_.push_back(section); }
    void pop() override { sections_.pop_back(); }

    const mustache::data* get(const std::string& name) const override {
        if (name == ".")
            return sections_.empty() ? nullptr : sections_.back();
        for (auto section = sections_.rbegin(); section != sections_.rend(); ++section) {
            if ((*section)->is_object())
                return firstOf({find(**section, name), everywhere(name)});
        }
        if (row)
            return firstOf({find(*row, name), everywhere(name)});
        return firstOf({everywhere(name), find(group, name), find(report, name)});
    }

    const mustache::data* get_partial(const std::string&) const override { return nullptr; }

  private:
    static const mustache::data* firstOf(std::initializer_list<const mustache::data*> values) {
        const auto* const value = std::ranges::find_if(values, std::identity{});
        return value == values.end() ? nullptr : *value;
    }

    const mustache::data* everywhere(const std::string& name) const {
        constexpr std::string_view ofGroup = "group.";
        constexpr std::string_view ofReport = "report.";
        if (name.starts_with(ofGroup))
            return find(group, name.substr(ofGroup.size()));
        if (name.starts_with(ofReport))
            return find(report, name.substr(ofReport.size()));
        return page.get(name);
    }

    std::vector<const mustache::data*> sections_;
};

struct FieldText::Pattern {
    QString text;
    bool plain = true;
    bool namesPages = false;
    mustache::mustache fields;
};

FieldValues::FieldValues(const QJsonObject& report) : context_(std::make_unique<Context>()) {
    context_->report = dataOf(report);
}

FieldValues::~FieldValues() = default;

void FieldValues::setGroup(const QJsonObject& values) {
    context_->group = dataOf(values);
    clearRow();
}

void FieldValues::setPage(const QString& page, const QString& pages) {
    context_->page = dataOf(QJsonObject{{u"page"_s, page}, {u"pages"_s, pages}});
}

void FieldValues::setRow(const QJsonObject& values) {
    context_->row = dataOf(values);
}

void FieldValues::clearRow() {
    context_->row.reset();
}

FieldText::FieldText() : FieldText(QString()) {}

FieldText::FieldText(const QString& pattern) {
    if (partialTag().match(pattern).hasMatch())
        throw ReportError(text(TextId::layoutPartial));
    if (delimiterTag().match(pattern).hasMatch())
        throw ReportError(text(TextId::layoutDelimiters));
    if (isNestedTooDeeply(pattern))
        throw ReportError(text(TextId::layoutPartsTooDeep).arg(maxNesting));
    mustache::mustache fields(pattern.toStdString());
    if (!fields.is_valid())
        throw ReportError(QString::fromStdString(fields.error_message()));
    fields.set_custom_escape([](const std::string& value) { return value; });
    pattern_ = std::make_shared<Pattern>(Pattern{.text = pattern,
                                                 .plain = !pattern.contains(u"{{"_s),
                                                 .namesPages = pageTag().match(pattern).hasMatch(),
                                                 .fields = std::move(fields)});
}

QString FieldText::filled(FieldValues& values) const {
    if (pattern_->plain)
        return pattern_->text;
    return QString::fromStdString(pattern_->fields.render(*values.context_));
}

bool FieldText::isPlain() const {
    return pattern_->plain;
}

bool FieldText::namesPages() const {
    return pattern_->namesPages;
}

} // namespace kelvane
