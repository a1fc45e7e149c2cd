#include "app/first_start.h"

#include "app/database_to_try.h"
#include "platform/file_error.h"
#include "platform/installed_files.h"
#include "resources/text_id.h"
#include "ui/controls.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QIcon>
#include <QProcess>
#include <QProgressBar>
#include <QUrl>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr int widthInCharacters = 80;

/// A text of several lines, which can be selected.
QLabel* paragraph(const QString& name) {
    auto* made = nameControl(new QLabel, name, {});
    made->setWordWrap(true);
    made->setTextInteractionFlags(Qt::TextSelectableByMouse);
    made->setMinimumWidth(made->fontMetrics().averageCharWidth() * widthInCharacters);
    return made;
}

/// The last line of what a program has said of its failure, without the program's name.
QString reasonOf(const QByteArray& errors) {
    const auto line = QString::fromLocal8Bit(errors).trimmed().section(u'\n', -1);
    return line.section(u": "_s, line.startsWith(u"kelvane-admin: "_s) || line.contains(u".sh: "_s) ? 1 : 0);
}

} // namespace

FirstStart::FirstStart(QString admin, QString documents, OpenDocument openDocument)
    : admin_(std::move(admin)),
      documents_(std::move(documents)),
      openDocument_(std::move(openDocument)),
      process_(new QProcess(this)),
      LabelOffer(paragraph(u"LabelOffer"_s)),
      LabelOutcome(paragraph(u"LabelOutcome"_s)),
      ProgressMaking(nameControl(new QProgressBar, u"ProgressMaking"_s, text(TextId::firstStartMaking))),
      CommandMake(button(u"CommandMake"_s, TextId::firstStartMake, TextId::firstStartMakeTip)),
      CommandGuide(button(u"CommandGuide"_s, TextId::firstStartGuide, TextId::firstStartGuideTip)),
      CommandContinue(
          button(u"CommandContinue"_s, TextId::firstStartContinue, TextId::firstStartContinueTip)) {
    setObjectName(u"FirstStart"_s);
    setWindowTitle(text(TextId::firstStartTitle));
    setWindowIcon(QIcon(u":/icons/101-64.png"_s));
    layOut();
    tell(*LabelOffer, text(TextId::firstStartText).arg(QDir::toNativeSeparators(databaseToTry())));
    tell(*LabelOutcome, {});
    setRunning(false);
    connect(CommandMake, &QPushButton::clicked, this, [this] { makeDatabase(); });
    connect(CommandGuide, &QPushButton::clicked, this, [this] { openGuide(); });
    connect(CommandContinue, &QPushButton::clicked, this, &QDialog::accept);
    connect(process_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            fail(admin_ + u": "_s + process_->errorString());
    });
    connect(process_, &QProcess::finished, this, [this](int code, QProcess::ExitStatus status) {
        const auto then = std::exchange(then_, {});
        if (status == QProcess::NormalExit && code == 0)
            then(process_->readAllStandardOutput());
        else
            fail(reasonOf(process_->readAllStandardError()));
    });
}

FirstStart::~FirstStart() {
    // What is being made is made beside its place: nothing half is left.
    process_->disconnect(this);
}

void FirstStart::layOut() {
    ProgressMaking->setRange(0, 0);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(CommandMake);
    buttons->addWidget(CommandGuide);
    buttons->addStretch(1);
    buttons->addWidget(CommandContinue);
    auto* column = new QVBoxLayout(this);
    column->addWidget(LabelOffer);
    column->addWidget(ProgressMaking);
    column->addWidget(LabelOutcome);
    column->addLayout(buttons);
    kelvane::setTabOrder({CommandMake, CommandGuide, CommandContinue});
    CommandMake->setDefault(true);
}

void FirstStart::reject() {
    if (process_->state() == QProcess::NotRunning)
        QDialog::reject();
}

void FirstStart::setRunning(bool running) {
    ProgressMaking->setVisible(running);
    for (auto* command : {CommandMake, CommandGuide, CommandContinue})
        command->setEnabled(!running);
    fitHeight();
}

void FirstStart::tell(QLabel& label, const QString& words) {
    label.setText(words);
    label.setAccessibleName(words);
    label.setVisible(!words.isEmpty());
    fitHeight();
}

/// As high as its texts need in their lines.
void FirstStart::fitHeight() {
    layout()->activate();
    resize(width(), layout()->totalHeightForWidth(width()));
}

void FirstStart::fail(const QString& reason) {
    setRunning(false);
    tell(*LabelOutcome, text(TextId::firstStartFailed).arg(reason));
    CommandMake->setFocus();
}

void FirstStart::run(const QStringList& words, std::function<void(const QByteArray&)> then) {
    then_ = std::move(then);
    process_->start(admin_, words);
}

void FirstStart::makeDatabase() {
    setRunning(true);
    tell(*LabelOutcome, text(TextId::firstStartMaking));
    const auto database = databaseToTry();
    run({u"make"_s, u"--demo"_s, u"--"_s, database}, [this, database](const QByteArray&) {
        run({u"data-source"_s, u"--"_s, database},
            [this](const QByteArray& section) { nameDatabase(section); });
    });
}

void FirstStart::nameDatabase(const QByteArray& section) {
    try {
        addDataSource(userDataSources(), section);
    } catch (const FileError& error) {
        fail(error.reason);
        return;
    }
    setRunning(false);
    auto outcome = text(TextId::firstStartMade)
                       .arg(QDir::toNativeSeparators(databaseToTry()),
                            QDir::toNativeSeparators(documents_ + u"/technicians-guide.html"_s));
    try {
        provideWorkFiles(QDir::currentPath());
    } catch (const FileError& error) {
        // The database can be used all the same.
        outcome += u'\n' + error.reason;
    }
    tell(*LabelOutcome, outcome);
    // It is done; there is one way on.
    setWindowTitle(text(TextId::applicationName));
    tell(*LabelOffer, {});
    CommandMake->hide();
    CommandGuide->hide();
    CommandContinue->setDefault(true);
    CommandContinue->setFocus();
}

void FirstStart::openGuide() {
    const QString guide = documents_ + u"/administrators-guide.html"_s;
    const bool isOpen = QFileInfo::exists(guide) && openDocument_(guide);
    tell(*LabelOutcome,
         isOpen ? QString() : text(TextId::firstStartGuideMissing).arg(QDir::toNativeSeparators(guide)));
}

void offerFirstStart() {
    FirstStart(InstalledFiles::programFolder() + u"/kelvane-admin"_s, InstalledFiles().documents(),
               [](const QString& path) { return QDesktopServices::openUrl(QUrl::fromLocalFile(path)); })
        .exec();
}

} // namespace kelvane
