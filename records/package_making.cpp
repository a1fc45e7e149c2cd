#include "records/package_making.h"

#include "data/guard.h"
#include "platform/values/texts.h"
#include "procedures/task_packages.h"
#include "records/login_dialog.h"
#include "reports/work_window.h"
#include "resources/text_id.h"
#include "ui/guarded.h"

#include <QInputDialog>
#include <QLineEdit>
#include <QScopeGuard>
#include <QSet>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// How many asset numbers a box names.
constexpr qsizetype mostNamed = 20;

QString title() {
    return text(TextId::newPackageTitle);
}

/// The instruments that were selected, as the editor takes them.
struct Members {
    QStringList assets = {};
    /// Why others can't be part of the package, with their asset numbers.
    QList<std::pair<TextId, QStringList>> faults = {};
};

void addFault(Members& members, TextId fault, const QString& asset) {
    const auto shown = withoutBlanksAtEnd(asset);
    const auto same = std::ranges::find(members.faults, fault, &std::pair<TextId, QStringList>::first);
    if (same == members.faults.end())
        members.faults << std::pair(fault, QStringList{shown});
    else
        same->second << shown;
}

/// The editor's routines write numbers into their statements as they stand: one with a quote would end in an
/// error instead of an answer.
std::optional<TextId> faultOf(Session& writer, const QSet<QString>& listed, const QString& asset) {
    if (listed.contains(toUpperCase(asset)))
        return TextId::instrumentAlreadyListed;
    if (asset.contains(u'\''))
        return TextId::instrumentNumberInvalid;
    return faultOfInstrument(writer, {}, asset);
}

/// Nothing when the user gives up, or the database has failed.
std::optional<Members> membersOf(Session& writer, const QStringList& assets, QWidget* window) {
    const ReportWatch watch(writer);
    WorkWindow progress({}, assets.size(), true, window);
    progress.setLabelText(title());
    progress.setWindowModality(Qt::WindowModal);
    Members members;
    QSet<QString> listed;
    for (const auto& asset : assets) {
        progress.setValue(progress.value() + 1);
        if (progress.wasCanceled())
            return {};
        const auto fault = faultOf(writer, listed, asset);
        if (watch.sawReport())
            return {};
        if (fault) {
            addFault(members, *fault, asset);
            continue;
        }
        members.assets << asset;
        listed << toUpperCase(asset);
    }
    return members;
}

QString faultText(const Members& members) {
    QStringList parts;
    for (const auto& [fault, assets] : members.faults) {
        auto named = assets.mid(0, mostNamed).join(u", "_s);
        if (assets.size() > mostNamed)
            named += u", ... ("_s + QString::number(assets.size()) + u')';
        parts << text(fault) + u"\r\n"_s + named;
    }
    return parts.join(u"\r\n\r\n"_s);
}

/// Tells what can't be part of the package. False when nothing is left of it, or the user wants no other one.
bool agreesToMembers(Session& writer, const Members& members) {
    if (members.faults.isEmpty())
        return true;
    const auto faults = faultText(members);
    if (members.assets.isEmpty()) {
        writer.ui.messageBox(faults, title(), box::warning);
        return false;
    }
    const auto question = faults + u"\r\n\r\n"_s + text(TextId::packageMakeOthers).arg(members.assets.size());
    return writer.ui.messageBox(question, title(), box::question) == BoxAnswer::yes;
}

/// `name` stands in the field at first. Empty when the user gives up.
QString typedName(const QString& name, QWidget* window) {
    QInputDialog dialog(window);
    dialog.setObjectName(u"PackageName"_s);
    dialog.setWindowTitle(title());
    dialog.setLabelText(text(TextId::packageMakeName));
    // Only from here on the dialog has its field.
    dialog.setInputMode(QInputDialog::TextInput);
    dialog.setTextValue(name);
    auto* field = dialog.findChild<QLineEdit*>();
    field->setMaxLength(longestPackageName);
    field->setAccessibleName(dialog.labelText());
    return dialog.exec() == QDialog::Accepted ? trimBlanks(dialog.textValue()) : QString();
}

/// Asks until the name is free. Empty when the user gives up, or the database has failed.
QString freeName(Session& writer, QWidget* window) {
    QString name;
    for (;;) {
        name = typedName(name, window);
        if (name.isEmpty())
            return {};
        const auto isTaken = isPackageName(writer, name);
        if (!isTaken)
            return {};
        if (!*isTaken)
            return name;
        writer.ui.messageBox(text(TextId::packageAlreadyExists), title(), box::warning);
    }
}

/// Tells why not, but for an error, which is reported.
bool mayMakePackage(Session& writer, const QString& owner) {
    const auto mayEdit = mayEditPackages(writer);
    if (!mayEdit)
        return false;
    if (*mayEdit && writer.SessionOwner == owner)
        return true;
    writer.ui.messageBox(text(TextId::packageNeedsEditor).arg(owner), title(), box::warning);
    return false;
}

/// What to tell the user; empty when he knows it.
QString madePackage(Session& writer, const QString& owner, const QStringList& assets, QWidget* window) {
    const auto closed = qScopeGuard([&writer] { closeConnection(writer); });
    if (!mayMakePackage(writer, owner))
        return {};
    const auto members = membersOf(writer, assets, window);
    if (!members || !agreesToMembers(writer, *members))
        return {};
    const auto name = freeName(writer, window);
    if (name.isEmpty())
        return {};
    const BusyPointer busy(writer.ui);
    if (savePackage(writer, {.name = name, .assets = members->assets}))
        return {};
    return text(TextId::packageMade).arg(name, QString::number(members->assets.size()));
}

} // namespace

void makePackage(const Session& session, const PackageAccess& access, const QStringList& assets,
                 QWidget* window, const std::function<void(const QString& outcome)>& tell) {
    const Workstation& workstation = session;
    const auto writer = std::make_shared<Session>(workstation, access.connections);
    writer->SessionDataSource = session.SessionDataSource;
    const auto owner = session.SessionOwner;
    auto* dialog = new LoginDialog(
        *writer,
        [writer, logIn = access.logIn](const QString& user, const QString& password) {
            logIn(*writer, user, password);
        },
        LoginDialog::Purpose::editing, window);
    dialog->setNote(text(TextId::packageNeedsEditor).arg(owner));
    const auto make = [writer, owner, assets, window, tell] {
        runGuarded(writer->ui, [&] {
            const auto outcome = madePackage(*writer, owner, assets, window);
            if (!outcome.isEmpty())
                tell(outcome);
        });
    };
    // Behind the end of the dialog, which the next questions would have below them.
    QObject::connect(dialog, &QDialog::accepted, window, make, Qt::QueuedConnection);
    dialog->open();
}

} // namespace kelvane
