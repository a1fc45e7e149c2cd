#pragma once

#include "testkit/program_screen.h"
#include "tests/editors/questions.h"
#include "ui/list_rows.h"
#include "ui/text_box.h"

#include <QLineEdit>

namespace kelvane::testing {

inline const QString packagesTitle = QStringLiteral("Predefined Task Packages");
inline const QString unknownInstrument = QStringLiteral("Must enter a valid instrument number!");
inline const QString selectTasks =
    QStringLiteral("select taskname from mt.hvm_kv_task_packages where tptype = 'PDEF'");
inline const QString selectSegregates = QStringLiteral("select distinct(i4240) from mt.segregate");
inline const QString selectDescriptions = QStringLiteral("select distinct(i4204) from MT.inventory");
inline const QString selectModels = QStringLiteral("select distinct(i4203) from MT.inventory");

/// A package as a row of the database; nothing is null.
struct StoredPackage {
    QString name;
    std::optional<QString> letter = {};
    std::optional<QString> value = {};
    std::optional<QString> notes = {};
    QStringList assets = {};
};

/// The editor of predefined task packages, on a workstation whose database has the package "LIST" of the
/// instruments, until `setPackages` says otherwise. are configured instruments.
class PackageScreen : public ProgramScreen {
  protected:
    PackageScreen();
    void setPackages(const QList<StoredPackage>& packages);
    void configure(const QString& asset);
    static QString selectPackage(const QString& name);
    static QString selectAssets(const QString& tag);
    static QString selectTaken(const QString& name);
    static QStringList deletes(const QString& name);
    /// `values` goes from the letter to the description.
    static QString insertPackage(const QString& name, const QString& tag, const QString& values,
                                 const QString& notes);
    static QString insertAsset(const QString& tag, const QString& asset);

    QComboBox& names() { return controlNamed<QComboBox>(QStringLiteral("ComboTPName")); }
    QComboBox& value() { return controlNamed<QComboBox>(QStringLiteral("ComboSelectList")); }
    QListWidget& assets() { return controlNamed<QListWidget>(QStringLiteral("ListAssets")); }
    QLineEdit& entry() { return controlNamed<QLineEdit>(QStringLiteral("TextListEnter")); }
    TextBox& notes() { return controlNamed<TextBox>(QStringLiteral("TextNotes")); }
    TextBox& sql() { return controlNamed<TextBox>(QStringLiteral("TextSQL")); }
    /// Turns an option on, by its name without "Option".
    void option(const QString& name);
    QString optionOn();
    void typeValue(const QString& text);
    void add(const QString& asset);
    QStringList rows() { return rowsOf(assets()); }
    QStringList choices() { return choicesOf(value()); }
    QStringList tasks() { return choicesOf(names()); }
    /// Which of the five buttons of the packages are enabled: "AddTP", "RemoveTP", "Save", "Cancel",
    /// "Remove".
    QStringList enabled();
    void expectName(const QString& name);
    void cancelDialog();
    /// Makes a new package of that name, which is not taken.
    void create(const QString& name);
    /// The tag in the last insert of a package, which has to be a new one of 30 digits and capitals.
    QString newTag();
    /// The statements without those of the sweep at a save and of the look-ups of instruments.
    QStringList ownStatements();
};

/// Chooses a row in the opened list: one choice, whatever rows lie between.
void chooseRow(QComboBox& list, const QString& text);

} // namespace kelvane::testing
