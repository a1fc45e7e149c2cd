#pragma once

#include <QJsonObject>
#include <QString>

#include <memory>

namespace kelvane {

/// The values that a text's fields are filled with: those of a row over those of its group over those of the
/// report.
class FieldValues {
  public:
    FieldValues();
    ~FieldValues();
    FieldValues(const FieldValues&) = delete;
    FieldValues& operator=(const FieldValues&) = delete;

    /// Lays values over the ones there are.
    void push(const QJsonObject& values);
    /// Takes the uppermost values away.
    void pop();

  private:
    friend class FieldText;
    class Levels;
    std::unique_ptr<Levels> levels_;
};

/// A text with fields in the manner of Mustache: {{name}}, {{#name}}...{{/name}}, {{^name}}...{{/name}}.
/// Since it goes to paper, nothing in a value is escaped. A field without a value prints as nothing, and
/// counts as absent for a section.
class FieldText {
  public:
    FieldText();
    /// Throws `ReportError` with the reason, without a place, when the fields are not well formed.
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
