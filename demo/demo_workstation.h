#pragma once

#include "app/workstation_program.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/command_titles.h"
#include "testkit/controls.h"
#include "testkit/simulated_operator.h"

namespace kelvane::demo {

using testing::downloadTitle;
using testing::uploadTitle;

inline QString recordTitle() {
    return text(TextId::recordCreation);
}

/// Title and prompt of the dialog that asks for a field of an instrument's record.
inline QString recordQuestion(const QString& asset) {
    return text(TextId::calibrationRecordData) + QStringLiteral(" (%1)").arg(asset);
}
inline QString fieldQuestion(const QString& field) {
    return text(TextId::enterInformationFor) + u' ' + field;
}

/// The workstation and its simulated operator, and the steps that are the same for every calibrator.
class DemoWorkstation {
  public:
    /// A picture of every window that comes up goes into the folder.
    DemoWorkstation(WorkstationProgram& workstation, const QString& pictures);

    /// Carries out one step, in which the expected boxes appear. Throws `Difference` when another box
    /// appeared, or one was missing.
    void step(const QString& description, const std::function<void()>& act);

    /// Takes a picture of the whole window as it is now.
    void takePicture(const QString& name) { takePicture(program.window, name); }
    /// Takes a picture of a window beside it.
    void takePicture(QWidget& widget, const QString& name);

    /// The open screen of that name. Throws `Difference` when there is none.
    QWidget& child(const QString& name);
    /// A shortcut of the main window.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    void openDownloadList(const QString& calibrator);
    /// The question for a standard of an instrument, and the answer.
    void expectStandard(const QString& asset, const QString& standard);
    /// A step: types an entry into the download list's field and presses the button beside it.
    void add(const QString& description, const QString& entry);
    /// Throws `Difference` when the download list holds other rows.
    void expectList(const QStringList& rows);
    void download();
    /// The question which calibrator is meant.
    void expectChoice(const QString& title, const QString& calibrator);
    /// The questions for the record of an instrument.
    void expectRecord(const QString& asset);
    /// The step of the upload command; what comes between the choice and the success is expected already.
    void upload(const QString& description);

    WorkstationProgram& program;
    SimulatedOperator simulatedOperator;

  private:
    QString pictures_;
    int taken_ = 0;
    QStringList reportedErrors_;
};

} // namespace kelvane::demo
