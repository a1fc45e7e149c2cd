#include "drivers/fluke74x/link.h"

#include "data/assets/assets.h"
#include "data/routine.h"
#include "data/small_routines.h"
#include "drivers/line_settings.h"
#include "drivers/link_status.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QScopeGuard>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace kelvane::Module74xInterface {

namespace {

using Status = Dpclnk3::Status;

/// The part of the progress bar that a transfer fills.
struct Share {
    int from;
    int width;
};

constexpr Share mapsOfDownload{0, 50};
constexpr Share mapsOfUpload{0, 33};
constexpr Share imageDown{50, 50};
constexpr Share firstPass{33, 33};
constexpr Share secondPass{66, 33};
constexpr int full = 100;

/// Which statuses of a step end a transfer.
enum class Strictness { endsOnWarning, endsOnError };

/// One contact with the calibrator.
class Contact {
  public:
    Contact(Fluke74x& driver, qint16 mode, QString& result)
        : driver_(driver),
          session_(driver.session),
          ui_(session_.ui),
          link_(driver.link),
          mode_(mode),
          result_(result) {}

    /// False when a status has ended it.
    bool carryOut();

  private:
    using Count = qint32&;

    bool open();
    bool identify();
    bool fetchMaps();
    bool moveImage();
    bool close();

    /// Starts a transfer and makes its steps until the library says that none is left.
    bool transfer(Share share, Strictness strictness, const std::function<Status(Count)>& start,
                  const std::function<Status(Count)>& step);
    bool readMemory(Share share);
    /// True for a status of 0; the words of any other are the result.
    bool isSuccess(Status status);

    Fluke74x& driver_;
    Session& session_;
    UserInterface& ui_;
    Dpclnk3& link_;
    const qint16 mode_;
    QString& result_;
};

bool Contact::carryOut() {
    ui_.showProgress(
        text(mode_ == modeBeginDownload ? TextId::fluke74xDownloadTitle : TextId::fluke74xUploadTitle));
    auto closing = qScopeGuard([this] { ui_.hideProgress(); });
    ui_.processEvents();
    if (mode_ != modeEndDownload && !(open() && identify() && fetchMaps()))
        return false;
    if (mode_ == modeBeginDownload) {
        ui_.setProgressValue(mapsOfDownload.width);
        ui_.setNormalPointer();
        closing.dismiss();
        return true;
    }
    if (!moveImage() || !close())
        return false;
    ui_.setNormalPointer();
    if (driver_.Calibrator74xAsset.isEmpty())
        result_ = text(TextId::calibratorAssetNotFound);
    closing.dismiss();
    ui_.hideProgress();
    ui_.processEvents();
    return true;
}

bool Contact::open() {
    const auto line = linkLine(session_, identity);
    ui_.setBusyPointer();
    ui_.setProgressText(text(TextId::fluke74xOpeningLink));
    ui_.processEvents();
    // An earlier failure, or a download that ended between its halves, may have left it open.
    if (!isSuccess(link_.DPC3close()))
        return false;
    if (!isSuccess(link_.DPC3open(line.baudRate, line.port, 1000, 5))) {
        link_.DPC3close();
        return false;
    }
    return true;
}

bool Contact::identify() {
    driver_.Calibrator74xModel = QString(16, u' ');
    driver_.Calibrator74xSerial = QString(10, u' ');
    driver_.Calibrator74xText = QString(40, u' ');
    qint32 unused1 = 0;
    qint32 unused2 = 0;
    const auto status =
        link_.DPC3get74X(driver_.Calibrator74xModel, driver_.Calibrator74xSerial, driver_.Calibrator74xText,
                         driver_.Calibrator74xNumber, unused1, unused2);
    // A warning ends this contact in success: the caller then uses the serial number.
    for (auto* text : {&driver_.Calibrator74xModel, &driver_.Calibrator74xSerial, &driver_.Calibrator74xText})
        *text = ModuleGlobals::CleanDLLString(*text);
    if (!isSuccess(status))
        return false;
    driver_.Calibrator74xAsset = ModuleGlobals::AssetfromSerial(session_, driver_.Calibrator74xSerial);
    return true;
}

bool Contact::fetchMaps() {
    const bool isUpload = mode_ == modeUpload;
    ui_.setProgressText(text(isUpload ? TextId::uploadingProgress : TextId::downloadingProgress));
    return transfer(
        isUpload ? mapsOfUpload : mapsOfDownload, Strictness::endsOnWarning,
        [this](Count count) { return link_.DPC3mapStart(count); },
        [this](Count count) { return link_.DPC3mapStep(count); });
}

/// The memory is read twice; what the second pass brings stays.
bool Contact::moveImage() {
    ui_.setBusyPointer();
    if (mode_ == modeUpload)
        return readMemory(firstPass) && readMemory(secondPass);
    qint32 kept1 = 0;
    qint32 kept2 = 0;
    qint32 kept3 = 0;
    return transfer(
        imageDown, Strictness::endsOnError, [this](Count count) { return link_.DPC3dnlStart(count); },
        [&](Count count) { return link_.DPC3dnlStep(count, kept1, kept2, kept3); });
}

bool Contact::readMemory(Share share) {
    return transfer(
        share, Strictness::endsOnError, [this](Count count) { return link_.DPC3uplStart(count); },
        [this](Count count) { return link_.DPC3uplStep(count); });
}

bool Contact::transfer(Share share, Strictness strictness, const std::function<Status(Count)>& start,
                       const std::function<Status(Count)>& step) {
    qint32 total = 0;
    if (!isSuccess(start(total)))
        return false;
    // It is the library that counts: a step that doesn't lower the count is followed by another one.
    for (qint32 remaining = total; remaining > 0;) {
        const auto status = step(remaining);
        if (!isSuccess(status) && (strictness == Strictness::endsOnWarning || isFatal(status)))
            return false;
        const auto done = std::clamp(qint64{total} - remaining, qint64{0}, qint64{total});
        ui_.setProgressValue(share.from + static_cast<int>(share.width * done / total));
        ui_.processEvents();
    }
    return true;
}

bool Contact::close() {
    ui_.setProgressValue(full);
    ui_.setProgressText(text(TextId::fluke74xClosingLink));
    return isSuccess(link_.DPC3close());
}

bool Contact::isSuccess(Status status) {
    if (status == 0)
        return true;
    result_ = DPC3StatusText(session_, status, {});
    return false;
}

} // namespace

QString Communicate74x(Fluke74x& driver, qint16 mode) {
    QString result;
    bool isDone = false;
    Routine routine(driver.session, u"Module74xInterface,Communicate74x"_s);
    routine.run([&] { isDone = Contact(driver, mode, result).carryOut(); });
    if (!isDone)
        driver.session.ui.setNormalPointer();
    return result;
}

} // namespace kelvane::Module74xInterface
