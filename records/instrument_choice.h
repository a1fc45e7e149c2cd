#pragma once

#include "data/history/instruments.h"

#include <QComboBox>

namespace kelvane {

/// Chooses which instruments are listed: all of them, what is overdue or due soon, or those of one group,
/// model or description. The choice is kept for the next start of the program.
class InstrumentChoice final : public QWidget {
    Q_OBJECT
  public:
    /// The session has to outlive it.
    explicit InstrumentChoice(Session& session, QWidget* parent = nullptr);

    /// Sets in a filter what is chosen. False when no value is chosen that the choice needs: then it has no
    /// instruments.
    bool setIn(InstrumentFilter& filter) const;
    /// Chooses what was chosen when the program ran before, without telling `chosen`. What the database does
    /// not have any more is forgotten.
    void restore();
    /// Chooses all instruments, without telling `chosen`.
    void forget();

    QComboBox* kinds() const { return ComboShow; }
    QComboBox* values() const { return ComboValue; }

  Q_SIGNALS:
    /// The user has chosen.
    void chosen();

  private:
    void chooseKind();
    bool showKind();
    void store();

    Session& session_;
    /// The row whose instruments are shown.
    int row_ = 0;
    QComboBox* ComboShow;
    QComboBox* ComboValue;
};

} // namespace kelvane
