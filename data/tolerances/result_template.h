#pragma once

#include <QString>

#include <array>

namespace kelvane {

/// How a value is prepared for its column of the result line.
enum class Preparation {
    none,
    /// Blanks in front up to a length of 3.
    threeWide,
    /// A blank in front unless the value holds a "-", so that the digits stand in one column.
    signColumn,
};

/// A field of the result line. Its tag in the template is its code and a "$".
struct ResultField {
    QStringView code;
    Preparation preparation;
};

/// In the order in which a line is filled.
inline constexpr std::array<ResultField, 12> resultFields = {{
    {u"TN", Preparation::threeWide},
    {u"FN", Preparation::signColumn},
    {u"FVA", Preparation::signColumn},
    {u"FRE", Preparation::signColumn},
    {u"TT", Preparation::none},
    {u"DE", Preparation::none},
    {u"ET", Preparation::threeWide},
    {u"TU", Preparation::none},
    {u"CO", Preparation::none},
    {u"FLL", Preparation::signColumn},
    {u"FUL", Preparation::signColumn},
    {u"TR", Preparation::none},
}};

/// The body line of the result template, and where the fields stand in it, which is read from it once.
class ResultTemplate {
  public:
    ResultTemplate() : ResultTemplate(QString()) {}
    ResultTemplate(const QString& line);

    operator const QString&() const { return line_; }
    bool isEmpty() const { return line_.isEmpty(); }
    void clear() { *this = {}; }

    /// How many characters stand before the first tag of a field; -1 for one without a tag.
    qsizetype columnOf(std::size_t field) const { return columns_[field]; }

  private:
    QString line_;
    std::array<qsizetype, resultFields.size()> columns_;
};

} // namespace kelvane
