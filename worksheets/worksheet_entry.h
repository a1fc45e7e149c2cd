#pragma once

#include "data/records/cal_record.h"

#include <QStringList>

namespace kelvane {

class Routine;

/// What the routines of the worksheet entry need of the screen that shows it.
class WorksheetEntryScreen {
  public:
    virtual ~WorksheetEntryScreen() = default;
    /// The text of `TextCalAsset`.
    virtual QString asset() const = 0;
    virtual void showAsset(const QString& asset) = 0;
    /// Empties `ListViewData`.
    virtual void clearFields() = 0;
    virtual void addField(const QString& title, const QString& value) = 0;
    /// The title in a row of `ListViewData`, from 0; empty for a row that is not there.
    virtual QString fieldTitle(int row) const = 0;
    virtual void showValue(int row, const QString& value) = 0;
    /// The rows of `ListStandards`.
    virtual QStringList standards() const = 0;
    virtual void addStandard(const QString& asset) = 0;
    /// Empties `TextCalAsset` and puts the focus into it; from now on only another record can be begun.
    virtual void endRecord() = 0;
    /// What was entered stands in the journal, and there is no record of it, or a part of one.
    virtual void offerUnfinishedResult() = 0;
};

/// The routines of `FormWorkEntry`: they take the fields of a calibration record and its standards from a
/// paper worksheet, instrument after instrument, and have the record made.
class WorksheetEntry {
  public:
    WorksheetEntry(Session& session, WorksheetEntryScreen& screen);

    /// Asks for an instrument, its fields and the standards. When the operator gives a field up it begins
    /// again with the instrument; when he gives that up, the screen is empty. Reported as
    /// "FormWorkEntry,StartDataEntry".
    void startDataEntry();
    /// Asks for standards until an empty answer, as long as none is listed.
    void addStandards();
    /// Asks for the field in a row of `ListViewData` once more.
    void changeField(int row);
    /// `CommandSave`: writes what has been entered into the journal and has the record made, and ends it on
    /// the screen. After an error of the preparation it stays in the journal without a record.
    void save();

  private:
    /// Notes an error report of a step of the preparation.
    class Step;
    enum class Walk { finished, again };

    Walk enterInstrument(Routine& routine);
    /// Nothing when the operator gave up.
    std::optional<QString> askInstrument();
    void cancelEntry();
    void takeInstrument(const QString& asset);
    bool askWorksheetFields(Routine& routine);
    bool walkFields();
    bool prompt(int row);
    void addFieldRow(int row);
    void checkStandard(const QString& standard);
    void makeRecord();

    Session& session_;
    WorksheetEntryScreen& screen_;
    CalRecord record_;
    /// The instrument's key.
    QString mtag_;
    bool failed_ = false;
    bool isDictionaryRead_ = false;
};

} // namespace kelvane
