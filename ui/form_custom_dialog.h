#pragma once

#include "resources/strings.h"
#include "ui/child_window.h"

#include <functional>
#include <optional>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace kelvane {

/// The one-field question. It returns its answer once, through the function that its constructor takes, and
/// unloads. Closing its frame cancels.
class FormCustomDialog final : public ChildWindow {
    Q_OBJECT
  public:
    using Answered = std::function<void(const QString& answer)>;

    FormCustomDialog(Session& session, const DialogQuestion& question, Answered answered);

  private:
    void layOut();
    void takeText(const DialogQuestion& question);
    void takeList(const DialogQuestion& question);
    void CommandCustomDialogOK_Click();
    void CommandCustomDialogCancel_Click();
    bool askToCancel();
    bool mayClose() override { return askToCancel(); }
    QWidget* entryControl() const;
    void stayOpen(TextId message);
    void answer(const QString& result);

    QLabel* LabelCustomDialog;
    QLineEdit* TextCustomDialog;
    QComboBox* ComboCustomDialog;
    QPushButton* CommandCustomDialogOK;
    QPushButton* CommandCustomDialogCancel;
    QLabel* LabelAlways;
    QLabel* LabelDataFormat;
    Answered answered_;
};

/// What is wrong with an entry of that data format (1 date, 2 number, 3 date or time, others free); nothing
/// when it may stand.
std::optional<TextId> faultOfEntry(const QString& entry, int dataFormat, const QString& sessionDateFormat);

/// The row that a default text selects: the first one that begins with it, in capitals; the first row for an
/// empty default; -1 for none.
int rowOfDefault(const QStringList& rows, const QString& defaultText);

} // namespace kelvane
