#pragma once

#include <QDialog>
#include <QStringList>

#include <functional>

class QLabel;
class QProcess;
class QProgressBar;
class QPushButton;

namespace kelvane {

/// Offered before the login where no data source is known: makes a database to try, opens the administrator's
/// guide, or goes on without. The window stays alive while the database is made, and closes only behind it.
class FirstStart final : public QDialog {
    Q_OBJECT
  public:
    /// Opens a document on the desktop; false when that is not possible.
    using OpenDocument = std::function<bool(const QString& path)>;

    /// `admin` is the path of the administrator's program, `documents` the folder of the pages.
    FirstStart(QString admin, QString documents, OpenDocument openDocument);
    ~FirstStart() override;

    void reject() override;

  private:
    void layOut();
    void makeDatabase();
    void run(const QStringList& words, std::function<void(const QByteArray& output)> then);
    void nameDatabase(const QByteArray& section);
    void openGuide();
    void setRunning(bool running);
    void fail(const QString& reason);
    void tell(QLabel& label, const QString& words);
    void fitHeight();

    QString admin_;
    QString documents_;
    OpenDocument openDocument_;
    QProcess* process_;
    std::function<void(const QByteArray&)> then_;
    QLabel* LabelOffer;
    QLabel* LabelOutcome;
    QProgressBar* ProgressMaking;
    QPushButton* CommandMake;
    QPushButton* CommandGuide;
    QPushButton* CommandContinue;
};

/// The same with what is installed beside this program.
void offerFirstStart();

} // namespace kelvane
