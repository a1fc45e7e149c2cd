#pragma once

#include "platform/values/csv.h"
#include "platform/whole_file.h"
#include "platform/workstation.h"

#include <optional>

class QWidget;

namespace kelvane {

/// Where a list is saved, and in which form.
struct ListFile {
    QString path = {};
    CsvForm form = {};
};

/// Asks for the file of a list, whose name is `name` at first, and for its form, which is kept for the next
/// time. Nothing when the user gives up.
std::optional<ListFile> askListFile(const Workstation& workstation, QWidget* parent, const QString& name);

/// The file of a list, which is replaced as a whole or stays as it was.
class ListWriter {
  public:
    explicit ListWriter(const QString& path);

    /// Writes lines behind those that were written. False when that failed.
    bool write(const QString& lines);
    /// Puts the file into its place. Gives what to tell the user: that it is saved, or why it is not.
    QString finish();

  private:
    WholeFile file_;
    bool isGood_;
};

} // namespace kelvane
