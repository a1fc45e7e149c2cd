#include "drivers/fluke702/link.h"

#include "data/assets/assets.h"
#include "data/routine.h"
#include "data/small_routines.h"
#include "drivers/line_settings.h"
#include "platform/error_report.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::Module702Interface {

namespace {

constexpr int full = 100;

/// What a direction of transfer calls and shows.
struct Direction {
    TextId title;
    TextId label;
    Dpclnk::Status (Dpclnk::*start)(qint32& count);
    Dpclnk::Status (Dpclnk::*step)(qint32& count);
};

constexpr Direction download{TextId::fluke702DownloadTitle, TextId::downloadingProgress, &Dpclnk::DPCdnlStart,
                             &Dpclnk::DPCdnlStep};
constexpr Direction upload{TextId::fluke702UploadTitle, TextId::uploadingProgress, &Dpclnk::DPCuplStart,
                           &Dpclnk::DPCuplStep};

/// The progress bar's step: opening and closing count like a step of the transfer each.
quint8 progressStep(qint32 count) {
    const auto parts = qint64{count} + 2;
    if (parts == 0)
        throw makeError(ErrorNumber::divisionByZero);
    const auto step = full / parts;
    if (step < 0 || step > std::numeric_limits<quint8>::max())
        throw makeError(ErrorNumber::overflow);
    return static_cast<quint8>(step);
}

/// One contact with the calibrator, which moves the whole image.
class Contact {
  public:
    Contact(Fluke702& driver, qint16 mode, QString& result)
        : driver_(driver),
          session_(driver.session),
          ui_(session_.ui),
          link_(driver.link),
          mode_(mode),
          direction_(mode == modeDownload ? download : upload),
          result_(result) {}

    void carryOut();

  private:
    bool open();
    bool identify();
    bool moveImage();
    bool close();
    void judgeUnknownCalibrator();

    /// True for a status of 0; the words of any other are the result.
    bool isSuccess(Dpclnk::Status status);
    void advance();

    Fluke702& driver_;
    Session& session_;
    UserInterface& ui_;
    Dpclnk& link_;
    const qint16 mode_;
    const Direction& direction_;
    QString& result_;
    int progressStep_ = 0;
    int progress_ = 0;
};

void Contact::carryOut() {
    driver_.Calibrator702Model = QString(16, u' ');
    driver_.Calibrator702Serial = QString(10, u' ');
    driver_.Calibrator702Text = QString(40, u' ');
    {
        const ProgressWindow window(ui_, text(direction_.title));
        ui_.processEvents();
        if (!open() || !identify() || !moveImage() || !close())
            return;
        judgeUnknownCalibrator();
    }
    ui_.processEvents();
}

bool Contact::open() {
    const auto line = linkLine(session_, identity);
    ui_.setBusyPointer();
    ui_.setProgressText(text(TextId::fluke702OpeningLink));
    ui_.processEvents();
    // An earlier failure may have left it open.
    if (!isSuccess(link_.DPCclose())) {
        ui_.setNormalPointer();
        return false;
    }
    if (!isSuccess(link_.DPCopen(line.baudRate, line.port, 1000, 5))) {
        link_.DPCclose();
        ui_.setNormalPointer();
        return false;
    }
    return true;
}

bool Contact::identify() {
    qint32 unused1 = 0;
    qint32 unused2 = 0;
    const auto status =
        link_.DPCget70x(driver_.Calibrator702Model, driver_.Calibrator702Serial, driver_.Calibrator702Text,
                        driver_.Calibrator702Number, unused1, unused2);
    // A warning ends this contact in success: the caller then uses the serial number.
    for (auto* text : {&driver_.Calibrator702Model, &driver_.Calibrator702Serial, &driver_.Calibrator702Text})
        *text = ModuleGlobals::CleanDLLString(*text);
    if (!isSuccess(status))
        return false;
    driver_.Calibrator702Asset = ModuleGlobals::AssetfromSerial(session_, driver_.Calibrator702Serial);
    ui_.setNormalPointer();
    ui_.setBusyPointer();
    return true;
}

bool Contact::moveImage() {
    qint32 count = 0;
    if (!isSuccess((link_.*direction_.start)(count)))
        return false;
    ui_.setNormalPointer();
    ui_.setProgressText(text(direction_.label));
    ui_.processEvents();
    progressStep_ = progressStep(count);
    advance();
    ui_.setBusyPointer();
    // It is the library that counts: a step that doesn't lower the count is followed by another one.
    while (count > 0) {
        if (!isSuccess((link_.*direction_.step)(count)))
            return false;
        advance();
        ui_.processEvents();
    }
    return true;
}

bool Contact::close() {
    advance();
    ui_.setProgressText(text(TextId::fluke702ClosingLink));
    if (!isSuccess(link_.DPCclose()))
        return false;
    ui_.setProgressValue(full);
    ui_.setNormalPointer();
    return true;
}

/// Instruments may go to a calibrator that the database doesn't know, but no results may come from one.
void Contact::judgeUnknownCalibrator() {
    if (!driver_.Calibrator702Asset.isEmpty())
        return;
    if (mode_ == modeDownload)
        ui_.messageBox(text(TextId::calibratorAssetNotFound), text(direction_.title), box::warning);
    else
        result_ = text(TextId::calibratorAssetNotFound);
}

bool Contact::isSuccess(Dpclnk::Status status) {
    if (status == 0)
        return true;
    result_ = DPCStatusText(session_, status, {});
    return false;
}

void Contact::advance() {
    progress_ = std::min(progress_ + progressStep_, full);
    ui_.setProgressValue(progress_);
}

} // namespace

QString Communicate702(Fluke702& driver, qint16 mode) {
    QString result;
    Routine routine(driver.session, u"Module702Interface,Communicate702"_s);
    routine.run([&] { Contact(driver, mode, result).carryOut(); });
    return result;
}

} // namespace kelvane::Module702Interface
