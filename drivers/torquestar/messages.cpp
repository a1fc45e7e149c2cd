#include "drivers/torquestar/messages.h"

#include "drivers/torquestar/fields.h"
#include "drivers/torquestar/protocol.h"
#include "platform/values/numbers.h"
#include "platform/values/texts.h"
#include "resources/strings.h"
#include "resources/text_id.h"

namespace kelvane::ModuleTSInterface {

QString characteristicName(const QString& asset) {
    return asset.left(11);
}

QByteArray nameField(const QString& name) {
    return toCalibratorBytes(name) + "=PC\xFF";
}

QByteArray part(const QByteArray& message, qsizetype position, qsizetype count) {
    return message.mid(position - 1, count);
}

QByteArray byteField(double value) {
    const double rounded = roundHalfEven(value);
    if (!(rounded >= 0 && rounded <= 255))
        throw makeError(ErrorNumber::invalidArgument);
    return QByteArray(1, static_cast<char>(static_cast<quint8>(rounded)));
}

QString testLink(TorqueStar& driver) {
    if (ProcessMessageProtocol(driver, "T0A") == "t0A")
        return {};
    return driver.TSError.isEmpty() ? text(TextId::lineCommunicationFailed) : driver.TSError;
}

QString askSerialNumber(TorqueStar& driver) {
    const auto reply = ProcessMessageProtocol(driver, "T0D");
    return plainText(Conv2Real(driver.session, part(reply, 22, 4)));
}

} // namespace kelvane::ModuleTSInterface
