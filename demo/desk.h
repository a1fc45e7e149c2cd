#pragma once

#include "app/workstation_program.h"
#include "demo/person.h"

namespace kelvane::demo {

inline const QString downloadTitle = QStringLiteral("Download Procedures To Calibrator");
inline const QString uploadTitle = QStringLiteral("Upload Test Results From Calibrator");
inline const QString recordTitle = QStringLiteral("Calibration Record Creation");

/// The entry for the question of which calibrator to use, put under that caption.
Person::OnDialog choice(const QString& caption, const QString& calibrator);
/// The entries for what the making of a record asks for, after that choice.
Person::OnDialog recordEntries(const QString& calibrator);

/// The workstation and the person who sits before it, and what they do with every calibrator.
struct Desk {
    Desk(WorkstationProgram& workstation, const QString& pictures)
        : program(workstation), person(workstation.window, pictures) {}

    /// The open screen of that name. Throws `Difference` when there is none.
    QWidget& child(const QString& name);
    /// A shortcut of the main window.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    void openDownloadList(const QString& calibrator);
    /// Types an entry into the download list's field and presses the button beside it.
    void add(const QString& entry);
    /// Throws `Difference` when the download list holds other rows.
    void expectList(const QStringList& rows);
    void download();
    /// `boxes` come before that of the success.
    void upload(const QString& told, const QString& calibrator, QList<Person::Box> boxes = {});

    WorkstationProgram& program;
    Person person;
};

} // namespace kelvane::demo
