#include "data/assets/assets.h"
#include "data/assets/in_use.h"
#include "data/routine.h"
#include "drivers/activity.h"
#include "drivers/asset_entries.h"
#include "drivers/new_record.h"
#include "drivers/torquestar/characteristic.h"
#include "drivers/torquestar/codes.h"
#include "drivers/torquestar/driver.h"
#include "drivers/torquestar/messages.h"
#include "drivers/torquestar/protocol.h"
#include "resources/strings.h"
#include "resources/text_id.h"

using namespace Qt::StringLiterals;

namespace kelvane::ModuleTSInterface {

namespace {

const QString routineName = u"ModuleTSInterface,TorqueStar_download"_s;

/// Makes room for a round of `count` characteristics. A result, which may be an empty one, ends the download.
std::optional<QString> prepareRound(TorqueStar& driver, int count) {
    const auto name = nameField(roundName);
    if (part(ProcessMessageProtocol(driver, "T2F" + name), 4, 1) == "\x01")
        ProcessMessageProtocol(driver, "T2E" + name);
    const auto reply = ProcessMessageProtocol(driver, "T2B" + name + byteField(count) + '\x03');
    if (!driver.TSError.isEmpty())
        return driver.TSError;
    if (reply.size() != 4)
        return {};
    if (const auto error = roundError(static_cast<quint8>(reply[3])))
        driver.TSError = *error;
    return driver.TSError;
}

QString storeRound(TorqueStar& driver) {
    const auto reply = ProcessMessageProtocol(driver, "T2C");
    if (!driver.TSError.isEmpty())
        return driver.TSError;
    return reply == "t2C" ? QString() : text(TextId::roundNotStored);
}

/// What the calibrator says to a new characteristic: empty when it took it.
QString refusalOf(TorqueStar& driver, const QString& name, const QByteArray& reply) {
    if (!driver.TSError.isEmpty())
        return driver.TSError;
    if (reply.size() == 4)
        return name + u" - "_s + text(TextId::characteristicAlreadyExists);
    if (reply.size() != 5)
        return {};
    if (const auto error = characteristicError(static_cast<quint8>(reply[4])))
        driver.TSError = *error;
    return name + u" - "_s + driver.TSError;
}

/// Puts one instrument onto the calibrator, in place of one of the same name: empty, or the failure.
QString loadInstrument(TorqueStar& driver, const AssetEntry& entry, CharacteristicFields& fields) {
    auto& session = driver.session;
    const auto name = characteristicName(entry.asset);
    const ReportWatch reading(session);
    const auto instrument = ModuleGlobals::GetCalParams(session, entry.asset);
    const auto standards = standardsInUse(session, entry.asset);
    const auto transducer = ModuleGlobals::GetCalParams(session, standards.assets.value(0));
    if (reading.sawReport())
        return text(TextId::instrumentDataUnreadable).arg(entry.asset);
    if (const auto refusal = fields.fill(session, instrument, transducer); !refusal.isEmpty())
        return refusal;

    if (ProcessMessageProtocol(driver, "T1C" + nameField(name)).startsWith("t1C"))
        ProcessMessageProtocol(driver, "T1J");
    driver.TSMessage = "T1A" + nameField(name) + fields.join();
    return refusalOf(driver, name, ProcessMessageProtocol(driver, driver.TSMessage));
}

/// Forgets what the calibrator holds, and lists what it shall hold. Empty, or the failure: the registry is
/// then as before.
QString listInstruments(Session& session, const QString& serial, const QString& tag,
                        QList<AssetEntry>& entries) {
    QString failure;
    const ReportWatch reading(session);
    Routine routine(session, routineName);
    routine.run([&] {
        Transaction transaction(session);
        ModuleGlobals::ClearInUse(session, serial);
        if (reading.sawReport())
            return; // nothing more is asked while others wait for the lock
        failure = readPackage(session, tag, entries);
        if (failure.isEmpty() && !reading.sawReport())
            transaction.commit();
    });
    return reading.sawReport() ? text(TextId::downloadListUnreadable) : failure;
}

QString download(TorqueStar& driver, const QString& tag) {
    auto& session = driver.session;
    if (const auto failure = testLink(driver); !failure.isEmpty())
        return failure;
    const auto serial = askSerialNumber(driver);
    const ReportWatch asking(session);
    if (ModuleGlobals::AssetfromSerial(session, serial).isEmpty()) {
        if (asking.sawReport())
            return text(TextId::downloadListUnreadable);
        session.ui.messageBox(text(TextId::calibratorAssetNotFound), text(TextId::downloadProcedures),
                              box::warning);
    }
    QList<AssetEntry> entries;
    if (const auto failure = listInstruments(session, serial, tag, entries); !failure.isEmpty())
        return failure;

    CharacteristicFields fields(session);
    Activity activity(session.ui);
    const int count = static_cast<int>(entries.size());
    if (count > 1) {
        if (const auto result = prepareRound(driver, count))
            return *result;
    }
    for (int i = 0; i < count; ++i) {
        activity.show(text(TextId::loadingInstrumentProgress)
                          .arg(entries[i].asset, QString::number(i + 1), QString::number(count)));
        if (const auto failure = loadInstrument(driver, entries[i], fields); !failure.isEmpty())
            return failure;
        ModuleGlobals::AddInUse(session, serial, entries[i].mtag, session.SessionUser);
    }
    return count > 1 ? storeRound(driver) : QString();
}

} // namespace

QString TorqueStar_download(TorqueStar& driver, const QString& tag) {
    QString result;
    const BusyPointer busy(driver.session.ui);
    Routine routine(driver.session, routineName);
    routine.run([&] { result = download(driver, tag); });
    return result;
}

} // namespace kelvane::ModuleTSInterface
