#include "app/about_box.h"

#include "data/journal/journal.h"
#include "data/start_up.h"
#include "platform/communication_log.h"
#include "platform/installed_files.h"
#include "platform/settings_store.h"
#include "platform/version.h"
#include "ui/controls.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr int iconSize = 64;
/// A path of usual length is seen whole.
constexpr int charactersInField = 72;

QString templateInUse(const Session& session) {
    const auto path = ModuleGlobals::resultTemplatePath(session);
    const bool isRead = !session.ResultTemplateLine.isEmpty() && QFileInfo(path).isFile();
    return isRead ? QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath())
                  : text(TextId::aboutTemplateMissing);
}

/// There is a journal for each data source, from its first result on.
QString journalOf(const Session& session) {
    const QFileInfo journal(Journal(session).path());
    return journal.exists() ? journal.absoluteFilePath() : text(TextId::aboutNotYet);
}

/// A field that can be reached, read and copied by keyboard, but not changed.
QLineEdit* fieldOf(const AboutLine& line) {
    auto* field = nameControl(new QLineEdit(line.value), line.name, text(line.caption));
    field->setReadOnly(true);
    field->setCursorPosition(0);
    field->setMinimumWidth(field->fontMetrics().averageCharWidth() * charactersInField);
    return field;
}

} // namespace

QList<AboutLine> aboutLines(const Session& session) {
    const QDir here = QDir::current();
    return {
        {u"TextWorkingFolder"_s, TextId::aboutWorkingFolder, here.absolutePath()},
        {u"TextSettings"_s, TextId::aboutSettings, IniSettingsStore::defaultPath()},
        {u"TextErrorLog"_s, TextId::aboutErrorLog, here.absoluteFilePath(u"errors.log"_s)},
        {u"TextTemplate"_s, TextId::aboutTemplate, templateInUse(session)},
        {u"TextJournal"_s, TextId::aboutJournal, journalOf(session)},
        {u"TextCommunicationLogs"_s, TextId::aboutCommunicationLogs, communicationLogFolder()},
    };
}

QString programNameWithVersion(const QString& version) {
    return text(TextId::aboutVersion).arg(version);
}

AboutBox::AboutBox(const Session& session, QWidget* parent)
    : QDialog(parent),
      lines_(aboutLines(session)),
      CommandCopy(button(u"CommandCopy"_s, TextId::aboutCopy, TextId::aboutCopyTip)),
      CommandClose(button(u"CommandClose"_s, TextId::closeCommand, TextId::closeWindowTip)) {
    setObjectName(u"AboutBox"_s);
    setWindowTitle(text(TextId::aboutTitle));
    setAttribute(Qt::WA_DeleteOnClose);
    layOut();
    connect(CommandCopy, &QPushButton::clicked, this,
            [this] { QApplication::clipboard()->setText(asText()); });
    connect(CommandClose, &QPushButton::clicked, this, &QDialog::accept);
    CommandClose->setDefault(true);
    CommandClose->setFocus();
}

void AboutBox::layOut() {
    auto* picture = new QLabel;
    picture->setPixmap(QApplication::windowIcon().pixmap(iconSize));
    auto* name = nameControl(new QLabel(programNameWithVersion(programVersion())), u"LabelVersion"_s, {});
    auto font = name->font();
    font.setPointSizeF(font.pointSizeF() * 1.5);
    name->setFont(font);
    name->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* words = new QVBoxLayout;
    words->addWidget(name);
    auto* purpose = nameControl(new QLabel(text(TextId::aboutPurpose).arg(InstalledFiles().documents())),
                                u"LabelPurpose"_s, {});
    purpose->setTextInteractionFlags(Qt::TextSelectableByMouse);
    purpose->setWordWrap(true);
    words->addWidget(purpose);
    words->addStretch(1);
    auto* head = new QHBoxLayout;
    head->addWidget(picture);
    head->addLayout(words, 1);

    auto* grid = new QGridLayout;
    for (const auto& line : lines_) {
        auto* field = fieldOf(line);
        const int row = grid->rowCount();
        grid->addWidget(labelFor(field, u"Label"_s + line.name, line.caption), row, 0);
        grid->addWidget(field, row, 1);
    }
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(CommandCopy);
    buttons->addWidget(CommandClose);

    auto* column = new QVBoxLayout(this);
    column->addLayout(head);
    column->addLayout(grid);
    column->addLayout(buttons);
}

void openAboutBox(const Session& session, QWidget* window) {
    if (!session.ui.bringQuestionForward())
        (new AboutBox(session, window))->open();
}

QString AboutBox::asText() const {
    auto copied = programNameWithVersion(programVersion()) + u'\n';
    for (const auto& line : lines_)
        copied += text(line.caption) + u": "_s + line.value + u'\n';
    return copied;
}

} // namespace kelvane
