#include "reports/field_text.h"

#include "reports/report_error.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QJsonArray>
#include <QRegularExpression>

#include <kainjow/mustache.hpp>

#include <deque>

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

/// A value that is read as a pattern of its own could do anything: there are no partials.
const QRegularExpression& partialTag() {
    static const QRegularExpression tag(uR"(\{\{\s*>)"_s);
    return tag;
}

const QRegularExpression& pageTag() {
    static const QRegularExpression tag(uR"(\{\{[^}]*\bpages?\b)"_s);
    return tag;
}

} // namespace

/// The values of each level, the uppermost last.
class FieldValues::Levels final : public mustache::basic_context<std::string> {
  public:
    void push(mustache::data&& values) {
        own_.push_back(std::move(values));
        push(&own_.back());
    }
    void popOwn() {
        pop();
        own_.pop_back();
    }

    void push(const mustache::data* values) override { levels_.push_back(values); }
    void pop() override { levels_.pop_back(); }

    const mustache::data* get(const std::string& name) const override {
        if (name == ".")
            return levels_.empty() ? nullptr : levels_.back();
        for (auto level = levels_.rbegin(); level != levels_.rend(); ++level) {
            if (const auto* value = find(**level, name))
                return value;
        }
        return nullptr;
    }

    const mustache::data* get_partial(const std::string&) const override { return nullptr; }

  private:
    /// A deque keeps its elements in their places.
    std::deque<mustache::data> own_;
    std::vector<const mustache::data*> levels_;
};

struct FieldText::Pattern {
    QString text;
    bool plain = true;
    bool namesPages = false;
    mustache::mustache fields;
};

FieldValues::FieldValues() : levels_(std::make_unique<Levels>()) {}

FieldValues::~FieldValues() = default;

void FieldValues::push(const QJsonObject& values) {
    levels_->push(dataOf(values));
}

void FieldValues::pop() {
    levels_->popOwn();
}

FieldText::FieldText() : FieldText(QString()) {}

FieldText::FieldText(const QString& pattern) {
    if (partialTag().match(pattern).hasMatch())
        throw ReportError(text(TextId::layoutPartial));
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
    return QString::fromStdString(pattern_->fields.render(*values.levels_));
}

bool FieldText::isPlain() const {
    return pattern_->plain;
}

bool FieldText::namesPages() const {
    return pattern_->namesPages;
}

} // namespace kelvane
