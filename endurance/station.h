#pragma once

#include "app/menu.h"
#include "drivers/fluke702/dpclnk_library.h"
#include "endurance/marks.h"
#include "endurance/measured_connection.h"
#include "endurance/station_operator.h"
#include "testkit/faulty_connection.h"
#include "workflow/calibrators.h"

#include <QHash>

#include <random>

namespace kelvane::endure {

struct StationOptions {
    /// The station's own folder: journal, settings, the calibrator's memory, log.
    QString folder;
    QString dataSource;
    int station = 0;
    quint64 seed = 0;
    qint64 until = 0; ///< milliseconds since the epoch
    /// Statements fail now and then, and the calibrator answers wrongly.
    bool withFaults = false;
};

/// One workstation process: its session, its calibrator, and what is done with them at random.
class Station {
  public:
    explicit Station(const StationOptions& options);
    ~Station();
    Station(const Station&) = delete;
    Station& operator=(const Station&) = delete;

    /// Acts until the time has come. The process's exit code.
    int run();
    /// Does what is left: an upload that was not finished, results without a record; then one download more,
    /// so that the registry holds what the calibrator does.
    int finish();

  private:
    /// Which faults are planned for an act: for each of its steps by itself; or of any kind; or of those that
    /// statements in a transaction can have, where an answer that gets lost takes the connection with it.
    enum class Faults { bySteps, any, ofTransaction };
    struct Act {
        const char* name;
        int weight;
        int leastLevel;
        Faults faults;
        void (Station::*work)();
    };
    static const Act acts[];

    int below(int limit) { return static_cast<int>(generator_() % static_cast<quint64>(limit)); }
    const Act& chooseAct();
    void carryOut(const Act& act);
    void planFault(const QString& step, Faults faults = Faults::any);
    void endStep();
    bool ensureLogin();
    void logOut();
    QString user() const;

    // Acts.
    void calibrate();
    void finishResults();
    void logInAgain();
    void editStrategy();
    void editMessage();
    void editParameters();
    void editPackage();
    void leaveRecordSetOpen();
    void enterWorksheet();

    std::optional<QString> answerMoment(const DialogQuestion& question, const QDateTime& moment) const;
    /// An instrument that is calibrated, at random.
    QString someInstrument() { return instruments().at(below(static_cast<int>(instruments().size()))); }

    void download();
    void work();
    void upload();
    /// The round whose runs wait in the calibrator; nothing when all were uploaded.
    std::optional<Round> pendingRound() const;
    /// Notes that something is edited; gives the edit's number, which no other edit has.
    int beginEdit(const QString& subject, bool removes = false);
    void endEdit(int edit, bool isSaved);

    StationOptions options_;
    std::mt19937_64 generator_;
    ActLog log_;
    StationOperator operator_;
    SystemClock clock_;
    IniSettingsStore settings_;
    StatementFigures figures_;
    testing::PlannedFault fault_;
    /// A part of an act for which a fault is planned, such as its upload, and the most statements that each
    /// of these has taken.
    QString step_;
    QHash<QString, int> longestSteps_;
    int faults_ = 0;
    Session session_;
    Menu menu_;
    DpclnkLibrary fluke702_;
    std::unique_ptr<SerialPort> port_;
    std::unique_ptr<Dpclnk3> fluke74x_;
    Calibrators calibrators_;
    QString memory_;
    std::unique_ptr<RecordSet> openRecordSet_;
    int edits_ = 0;
    qint16 level_ = 0;
};

} // namespace kelvane::endure
