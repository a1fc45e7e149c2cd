#include "simulators/torquestar/messages.h"

#include "simulators/common/text_bytes.h"
#include "simulators/torquestar/line.h"
#include "simulators/torquestar/validation.h"

#include <algorithm>
#include <array>

namespace kelvane::simulators {

namespace {

// Behind each name of the workstation, part of the name on the line.
const QByteArray nameSuffix = QByteArrayLiteral("=PC\xFF");
const QByteArray noData{1, Stx};
constexpr char roundMode = 3;

// Model and version, between the identifier and the serial number: the number stands at position 22.
const QByteArray model = QByteArrayLiteral("TorqueStar IVc1.20");

constexpr int roundExists = 1;
constexpr int roundNameInvalid = 2;
constexpr int sampleModeInvalid = 3;
constexpr int countInvalid = 4;

QByteArray withCode(const QByteArray& reply, int code) {
    return reply + static_cast<char>(code);
}

/// Takes a name and its suffix from the front of the bytes; nothing when there is no suffix.
std::optional<QString> takeName(QByteArrayView& bytes) {
    const qsizetype end = bytes.indexOf(nameSuffix);
    if (end < 0)
        return {};
    QString name = fromBytes(bytes.first(end));
    bytes = bytes.sliced(end + nameSuffix.size());
    return name;
}

bool validName(const std::optional<QString>& name) {
    return name && !name->isEmpty() && name->size() <= longestName;
}

} // namespace

QByteArray resultReply(const Result& result) {
    QByteArray reply = QByteArrayLiteral("t1D") + longBytes(result.date) + longBytes(result.time);
    for (const qint32 sample : result.samples)
        reply += longBytes(sample);
    return reply;
}

QByteArray commentReply(const QString& comment) {
    return QByteArrayLiteral("t1F") + toBytes(comment) + '\xFF';
}

QByteArray identityReply(qint32 serial) {
    return QByteArrayLiteral("t0D") + model + longBytes(serial);
}

const Messages::Entry Messages::entries[] = {
    {"T0A", &Messages::testLink},          {"T0D", &Messages::identify},
    {"T1A", &Messages::addCharacteristic}, {"T1C", &Messages::select},
    {"T1D", &Messages::readResult},        {"T1F", &Messages::readComment},
    {"T1J", &Messages::removeSelected},    {"T2B", &Messages::createRound},
    {"T2C", &Messages::storeRound},        {"T2E", &Messages::eraseRound},
    {"T2F", &Messages::lookForRound},
};

Messages::Messages(MemoryFile& memory, qint32 serial, std::size_t room)
    : memory_(memory), serial_(serial), room_(room) {}

const Messages::Entry* Messages::entryOf(const QByteArray& message) {
    const auto* const place = std::find_if(std::begin(entries), std::end(entries), [&](const Entry& entry) {
        return message.startsWith(entry.identifier);
    });
    return place == std::end(entries) ? nullptr : place;
}

bool Messages::knows(const QByteArray& message) {
    return entryOf(message) != nullptr;
}

QByteArray Messages::answer(const QByteArray& message) {
    const Routine routine = entryOf(message)->routine;
    QByteArray body;
    memory_.use([&](Memory& memory) {
        Reply reply = (this->*routine)(memory, QByteArrayView(message).sliced(3));
        body = reply.body;
        return reply.memoryChanged;
    });
    return body;
}

Messages::Reply Messages::testLink(Memory& /*memory*/, QByteArrayView /*rest*/) {
    selected_.clear();
    creation_.reset();
    return {QByteArrayLiteral("t0A")};
}

Messages::Reply Messages::identify(Memory& /*memory*/, QByteArrayView /*rest*/) {
    return {identityReply(serial_)};
}

Messages::Reply Messages::lookForRound(Memory& memory, QByteArrayView rest) {
    const std::optional<QString> name = takeName(rest);
    return {withCode(QByteArrayLiteral("t2F"), name && memory.findRound(*name) != nullptr ? 1 : 0)};
}

// The characteristics of the round stay: a round is a list of them.
Messages::Reply Messages::eraseRound(Memory& memory, QByteArrayView rest) {
    const std::optional<QString> name = takeName(rest);
    const bool erased =
        name && std::erase_if(memory.rounds, [&](const Round& round) { return round.name == *name; });
    return {withCode(QByteArrayLiteral("t2E"), erased ? 1 : 0), erased};
}

Messages::Reply Messages::createRound(Memory& memory, QByteArrayView rest) {
    const QByteArray reply = QByteArrayLiteral("t2B");
    const std::optional<QString> name = takeName(rest);
    if (!validName(name))
        return {withCode(reply, roundNameInvalid)};
    if (memory.findRound(*name) != nullptr)
        return {withCode(reply, roundExists)};
    if (rest.isEmpty() || rest.front() == 0)
        return {withCode(reply, countInvalid)};
    if (rest.size() != 2 || rest.back() != roundMode)
        return {withCode(reply, sampleModeInvalid)};
    creation_ = Creation{{*name, roundMode, {}}, static_cast<unsigned char>(rest.front()), 0};
    return {reply};
}

Messages::Reply Messages::storeRound(Memory& memory, QByteArrayView /*rest*/) {
    const QByteArray reply = QByteArrayLiteral("t2C");
    if (!creation_ || creation_->added != creation_->announced)
        return {withCode(reply, 0)};
    memory.rounds.push_back(creation_->round);
    creation_.reset();
    return {reply, true};
}

Messages::Reply Messages::select(Memory& memory, QByteArrayView rest) {
    const std::optional<QString> name = takeName(rest);
    const Characteristic* const found = name ? memory.find(*name) : nullptr;
    if (found == nullptr) {
        selected_.clear();
        // One byte stands between: a reply of two characters would be shorter than any frame that is waited
        // for.
        return {withCode(QByteArrayLiteral("t"), 0) + noData};
    }
    // Selecting the same characteristic again goes on with its results.
    if (selected_ != found->name)
        nextResult_ = 0;
    selected_ = found->name;
    return {found->results.empty() ? QByteArrayLiteral("t1C") + noData : QByteArrayLiteral("t1C")};
}

Messages::Reply Messages::removeSelected(Memory& memory, QByteArrayView /*rest*/) {
    const bool there = memory.find(selected_) != nullptr;
    memory.remove(selected_);
    if (creation_)
        std::erase(creation_->round.characteristics, selected_);
    selected_.clear();
    return {withCode(QByteArrayLiteral("t1J"), there ? 1 : 0), there};
}

Messages::Reply Messages::addCharacteristic(Memory& memory, QByteArrayView rest) {
    const QByteArray reply = QByteArrayLiteral("t1A");
    const auto refused = [&](int code) { return Reply{withCode(withCode(reply, 0), code)}; };
    const std::optional<QString> name = takeName(rest);
    if (!name || name->isEmpty())
        return refused(unknownError);
    if (!validName(name))
        return refused(nameTooLong);
    if (memory.find(*name) != nullptr)
        return {withCode(reply, 1)};
    Characteristic made{*name, {}, {}, {}};
    switch (readFields(rest, made.fields)) {
    case FieldBytes::CommentTooLong:
        return refused(commentOutOfRange);
    case FieldBytes::Unreadable:
        return refused(unknownError);
    case FieldBytes::Read:
        break;
    }
    if (const std::optional<int> fault = firstFault(made.fields))
        return refused(*fault);
    if (memory.characteristics.size() >= room_)
        return refused(noRoom);
    memory.characteristics.push_back(made);
    if (creation_) {
        creation_->round.characteristics.push_back(*name);
        ++creation_->added;
    }
    return {reply, true};
}

Messages::Reply Messages::readResult(Memory& memory, QByteArrayView /*rest*/) {
    const Characteristic* const selected = memory.find(selected_);
    if (selected == nullptr || nextResult_ >= selected->results.size())
        return {QByteArrayLiteral("t1D") + noData};
    return {resultReply(selected->results.at(nextResult_++))};
}

Messages::Reply Messages::readComment(Memory& memory, QByteArrayView /*rest*/) {
    const Characteristic* const selected = memory.find(selected_);
    return {commentReply(selected == nullptr ? QString() : selected->comment)};
}

} // namespace kelvane::simulators
