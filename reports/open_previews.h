#pragma once

#include <QList>
#include <QPointer>

#include <memory>

namespace kelvane {

class ReportPreview;

/// The previews that a part of the program has opened. Each deletes itself when the user closes it; those
/// that are still open go with this list.
class OpenPreviews {
  public:
    OpenPreviews();
    ~OpenPreviews();
    OpenPreviews(const OpenPreviews&) = delete;
    OpenPreviews& operator=(const OpenPreviews&) = delete;

    /// Takes one that has opened.
    void add(std::unique_ptr<ReportPreview> preview);
    /// Takes all that are open away.
    void close();

  private:
    QList<QPointer<ReportPreview>> previews_;
};

} // namespace kelvane
