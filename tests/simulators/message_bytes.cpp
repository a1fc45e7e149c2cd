#include "tests/simulators/message_bytes.h"

#include <cmath>

namespace kelvane::simulators {

QByteArray hex(const char* digits) {
    return QByteArray::fromHex(digits);
}

QByteArray wireName(const QByteArray& name) {
    return name + hex("3D 50 43 FF");
}

QByteArray scaled(double value) {
    const auto number = static_cast<quint32>(static_cast<qint32>(std::lround(value * 10000)));
    return QByteArray::fromHex(QByteArray::number(number, 16).rightJustified(8, '0'));
}

std::vector<QByteArray> goodFields() {
    return {hex("03"),   hex("01"),       hex("1E"),   hex("02"),      scaled(150), hex("00"), hex("03"),
            hex("00"),   hex("04"),       hex("01"),   hex("05"),      hex("03"),   hex("01"), scaled(104),
            scaled(96),  scaled(5),       scaled(2),   hex("20"),      hex("00"),   scaled(0), scaled(0),
            hex("0000"), hex("00004E20"), hex("015E"), hex("00003039")};
}

std::vector<QByteArray> goodSerialFields() {
    std::vector<QByteArray> fields = goodFields();
    for (const std::size_t missing : {2U, 4U, 6U, 11U})
        fields[missing].clear();
    fields[3] = hex("03");
    fields[5] = hex("02");
    fields[7] = hex("06");
    fields[8] = hex("08");
    fields[9] = hex("01");
    fields[10] = hex("03");
    fields[12] = hex("00");
    return fields;
}

QByteArray addMessage(const QByteArray& name, const std::vector<QByteArray>& fields) {
    QByteArray message = "T1A" + wireName(name);
    for (const QByteArray& field : fields)
        message += field;
    return message;
}

} // namespace kelvane::simulators
