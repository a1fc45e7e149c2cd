#include "workflow/download_list.h"

#include "data/assets/assets.h"
#include "data/assets/in_use.h"
#include "data/assets/worksheet_package.h"
#include "data/custom_dialog.h"
#include "data/parameters/cal_params.h"
#include "data/records/standards.h"
#include "data/routine.h"
#include "platform/values/texts.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// Typed or scanned instead of an instrument, it starts the download; so does its translation.
constexpr QStringView downloadWord = u"Download";

bool isSame(QStringView left, QStringView right) {
    return toUpperCase(left) == toUpperCase(right);
}

bool isListed(const DownloadListScreen& screen, const QString& asset) {
    const auto rows = screen.rows();
    return std::any_of(rows.cbegin(), rows.cend(), [&](const QString& row) { return isSame(row, asset); });
}

/// One press of the Add button.
class Addition {
  public:
    Addition(Calibrators& calibrators, DownloadListScreen& screen, Routine& routine)
        : calibrators_(calibrators), session_(calibrators.session), screen_(screen), routine_(routine) {}

    void add(const QString& entry);

  private:
    const Calibrator& calibrator() const { return calibratorNamed(screen_.calibrator()); }
    void addInstrument(const QString& asset, bool alone);
    bool nameStandards(const QString& asset);
    bool refuse(const QString& standard, const QString& asset);
    void registerStandard(const QString& standard, const QString& asset);
    void warn(const QString& message, TextId title = TextId::downloadProcedures) {
        session_.ui.messageBox(message, text(title), box::warning);
    }
    void endEntry() {
        screen_.clearEntry();
        screen_.focusEntry();
    }

    Calibrators& calibrators_;
    Session& session_;
    DownloadListScreen& screen_;
    Routine& routine_;
    /// Named so far, over all instruments of this addition: only the very first one must be named.
    int standards_ = 0;
};

void Addition::add(const QString& entry) {
    if (isListed(screen_, entry) || isListed(screen_, u'>' + entry)) {
        warn(text(TextId::instrumentAlreadyListed));
        return endEntry();
    }
    const BusyPointer busy(session_.ui);
    auto entries = ModuleGlobals::GetAssetsInTaskPackage(session_, entry);
    if (entries.isEmpty())
        entries << AssetEntry{.asset = entry};
    if (screen_.rows().size() + entries.size() >= calibrator().listEnd) {
        warn(text(TextId::instrumentListFull));
        return endEntry();
    }
    for (const auto& instrument : std::as_const(entries))
        addInstrument(instrument.asset, entries.size() == 1);
    endEntry();
}

/// What is wrong with a member of a package is passed over in silence, unless the calibrator itself refuses
/// it; an instrument that comes alone gets a box.
void Addition::addInstrument(const QString& asset, bool alone) {
    if (isListed(screen_, asset))
        return;
    if (ModuleGlobals::CheckAsset(session_, asset).isEmpty()) {
        if (alone)
            warn(text(TextId::instrumentNumberInvalid));
        return;
    }
    if (!ModuleGlobals::HasConfigData(session_, asset)) {
        if (alone)
            warn(text(TextId::configurationDataIncomplete));
        return;
    }
    const auto& chosen = calibrator();
    if (const auto reason = chosen.acceptable(calibrators_, asset); !reason.isEmpty())
        return warn(asset + u": "_s + reason);
    ModuleGlobals::clearStandardsInUse(session_, routine_, asset);
    if (!chosen.requiresStandard(calibrators_, asset) || nameStandards(asset))
        screen_.addRow(asset);
}

/// Asks for standards until an empty answer; false when the operator gave up.
bool Addition::nameStandards(const QString& asset) {
    const auto proposal = ModuleGlobals::lastStandard(session_, routine_, asset);
    // The proposal is gone before the question has been answered.
    ModuleGlobals::forgetLastStandard(session_, routine_, asset);
    while (true) {
        const bool required = standards_ == 0;
        const auto answer = ModuleGlobals::CustomDialog(
            session_, asset + u": "_s + text(TextId::externalStandardRequired), text(TextId::standardToUse),
            required, 0, 60, 0, required ? proposal : QString());
        // A required name of blanks alone comes as an empty answer.
        if (answer == cancelled || (required && answer.isEmpty()))
            return false;
        if (answer.isEmpty())
            return true;
        if (!refuse(answer, asset))
            registerStandard(answer, asset);
    }
}

bool Addition::refuse(const QString& standard, const QString& asset) {
    if (isSame(standard, asset)) {
        warn(asset + u": "_s + text(TextId::assetCannotCalibrateItself));
        return true;
    }
    if (calibrator().standardNeedsParameters && !ModuleGlobals::HasConfigData(session_, standard)) {
        warn(asset + u": "_s + text(TextId::configurationDataIncomplete));
        return true;
    }
    const auto verdict = ModuleGlobals::CheckStandard(session_, standard, asset);
    if (verdict == standardRankTooLow)
        warn(text(TextId::standardTraceLevelTooLow) + u' ' + asset, TextId::externalStandardRequired);
    else if (verdict == standardOverdue)
        warn(text(TextId::standardOverdue), TextId::externalStandardRequired);
    return verdict != standardUsable;
}

void Addition::registerStandard(const QString& standard, const QString& asset) {
    ModuleGlobals::addStandardInUse(session_, routine_, standard, asset);
    if (standards_ == 0) {
        ModuleGlobals::forgetLastStandard(session_, routine_, asset);
        ModuleGlobals::addLastStandard(session_, routine_, standard, asset);
    }
    ++standards_;
}

/// Puts the list into a task package that lives for one download; gives its tag.
QString makePackage(Session& session, Routine& routine, const QStringList& assets) {
    const auto tag = newPackageTag(session);
    insertPackage(session, routine, tag);
    for (const auto& asset : assets)
        insertPackageMember(session, routine, tag, asset);
    return tag;
}

} // namespace

void addToDownloadList(Calibrators& calibrators, DownloadListScreen& screen, const QString& entry) {
    auto& session = calibrators.session;
    Routine routine(session, u"FormDockingDown,CommandAdd"_s);
    routine.run([&] {
        if (isSame(entry, downloadWord) || isSame(entry, text(TextId::downloadCommand))) {
            screen.clearEntry();
            session.ui.processEvents();
            downloadList(calibrators, screen);
        } else if (!entry.isEmpty()) {
            Addition(calibrators, screen, routine).add(entry);
        }
    });
}

void removeFromDownloadList(Calibrators& calibrators, DownloadListScreen& screen, int row) {
    const auto rows = screen.rows();
    if (row < 0 || row >= rows.size())
        return;
    auto& session = calibrators.session;
    Routine routine(session, u"FormDockingDown,CommandRemove"_s);
    routine.run([&] {
        ModuleGlobals::clearStandardsInUse(session, routine, rows[row]);
        screen.removeRow(row);
        screen.focusEntry();
    });
}

void downloadList(Calibrators& calibrators, DownloadListScreen& screen) {
    const auto rows = screen.rows();
    if (rows.isEmpty())
        return;
    auto& session = calibrators.session;
    Routine routine(session, u"FormDockingDown,Download"_s);
    routine.run([&] {
        const auto calibrator = screen.calibrator();
        const auto tag = makePackage(session, routine, rows);
        const auto failure = downloadTo(calibrators, calibrator, tag);
        if (!failure.isEmpty()) {
            session.ui.messageBox(failure, text(TextId::downloadProcedures), box::warning);
            return;
        }
        session.ui.messageBox(text(TextId::downloadSuccessful), text(TextId::downloadProcedures),
                              box::information);
        ModuleGlobals::SaveRegSetting(session, u"Defaults"_s, u"LastDownloadCalibrator"_s, calibrator);
        removePackage(routine, tag);
        screen.closeScreen();
    });
}

} // namespace kelvane
