#pragma once

#include <QString>

#include <utility>

namespace kelvane {

/// Why a report can't be made, in words for its user, with the file and the line where there is one.
class ReportError {
  public:
    explicit ReportError(QString text) : text_(std::move(text)) {}
    const QString& text() const { return text_; }

  private:
    QString text_;
};

} // namespace kelvane
