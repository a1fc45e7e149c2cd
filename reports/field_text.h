#pragma once

#include <QJsonObject>
#include <QString>

#include <memory>

namespace kelvane {

/// The values that fields are filled with: those of the group over those of the report. In a row, and in a
/// section over a list, only the row's own are found by their bare name, so that a row without a serial
/// number does not show that of its group; "group.name" and "report.name" are found everywhere.
class FieldValues {
  public:
    explicit FieldValues(const QJsonObject& report);
    ~FieldValues();
    FieldValues(const FieldValues&) = delete;
    FieldValues& operator=(const FieldValues&) = delete;

    /// Begins a group; there is no row.
    void setGroup(const QJsonObject& values);
    /// The values "page" and "pages", which are found everywhere.
    void setPage(const QString& page, const QString& pages);
    void setRow(const QJsonObject& values);
    void clearRow();

  private:
    friend class FieldText;
    class Context;
    std::unique_ptr<Context> context_;
};

/// A text with fields in the manner of Mustache: {{name}}, {{#name}}...{{/name}}, {{^name}}...{{/name}}.
/// Since it goes to paper, nothing in a value is escaped. A field without a value prints as nothing, and
/// counts as absent for a section.
class FieldText {
  public:
    FieldText();
    /// Throws `ReportError` with the reason, without a place, when the fields are not well formed, take
    /// another text in, change the braces, or have too many parts within each other.
    explicit FieldText(const QString& pattern);

    /// The text with its fields filled in.
    QString filled(FieldValues& values) const;
    /// True when the text has no fields at all.
    bool isPlain() const;
    /// True when the text names the page or the number of pages.
    bool namesPages() const;

  private:
    struct Pattern;
    std::shared_ptr<Pattern> pattern_;
};

} // namespace kelvane
