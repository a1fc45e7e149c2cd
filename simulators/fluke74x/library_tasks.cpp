#include "simulators/common/link_arguments.h"
#include "simulators/fluke74x/library.h"

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke74x {

namespace {

// What the library wants in the places of its constants.
constexpr qint32 strategyKind = 1;
constexpr qint32 templateKind = 2;

qint32 strategyReference(qint32 id) {
    return 4000 + id;
}

} // namespace

Library::Status Library::MEM3clear() {
    return call("MEM3clear", [&] {
        image_.clear();
        return Done;
    });
}

Library::Status Library::MEM3startTask(qint32* task, qint32* atom, const char* tag, const char* text) {
    return call(
        "MEM3startTask",
        [&] {
            if (anyNull(task, atom) || anyNull(tag, text))
                return BadArgument;
            return image_.startTask(*task, *atom, *textIn(tag));
        },
        tag, text);
}

Library::Status Library::MEM3promptDefn(qint32* first, qint32* second, qint32* third, const char* key,
                                        const char* prompt, const char* style, const char* font) {
    return call(
        "MEM3promptDefn",
        [&] {
            if (anyNull(first, second, third) || anyNull(key, prompt, style, font))
                return BadArgument;
            if (*textIn(style) != u"ordinary"_s || *textIn(font) != u"helvr12"_s)
                return BadArgument;
            References numbers;
            const Code code = image_.definePrompt({*textIn(key), *textIn(prompt)}, numbers);
            if (code != Done)
                return code;
            *first = numbers.first;
            *second = numbers.second;
            *third = numbers.third;
            return Done;
        },
        key, prompt, style, font);
}

Library::Status Library::MEM3promptTemplate(qint32 task, qint32 atom, qint32* place, qint32 first,
                                            qint32 second, qint32 third) {
    return call(
        "MEM3promptTemplate",
        [&] {
            const Code code = place == nullptr ? BadArgument : image_.checkTask(task, atom);
            return code == Done ? image_.placePrompt({first, second, third}, *place) : code;
        },
        task, atom, first, second, third);
}

Library::Status Library::MEM3findStrategyDefn(qint32 kind, const char* name, qint32* strategy,
                                              qint32* strategyId) {
    return call(
        "MEM3findStrategyDefn",
        [&] {
            if (kind != strategyKind || name == nullptr || anyNull(strategy, strategyId))
                return BadArgument;
            const qint32 id = image_.findStrategy(*textIn(name));
            if (id == 0)
                return NotFound;
            *strategy = strategyReference(id);
            *strategyId = id;
            return Done;
        },
        kind, name);
}

Library::Status Library::MEM3strategyDefn(qint32 task, qint32* atom, qint32* strategyId, const char* name,
                                          const float* points, qint16 count) {
    const std::vector<float> given = pointsIn(count, points);
    const qint32 atomIn = atom == nullptr ? 0 : *atom;
    return call(
        "MEM3strategyDefn",
        [&] {
            if (anyNull(atom, strategyId) || name == nullptr)
                return BadArgument;
            Code code = image_.checkTask(task, atomIn);
            if (code == Done)
                code = image_.defineStrategy(*textIn(name), given, *strategyId);
            if (code == Done)
                *atom = strategyReference(*strategyId);
            return code;
        },
        task, atomIn, name, given, count);
}

Library::Status Library::MEM3instrCalTemplate(qint32 task, qint32 atom, qint32* place, qint32 strategy,
                                              qint32 strategyAtom, qint32 strategyId, qint32 state1,
                                              qint32 state2, qint32 state3, qint16 measureByHand,
                                              qint16 sourceByHand, qint32 kind, const char* tag,
                                              const char* serial) {
    return call(
        "MEM3instrCalTemplate",
        [&] {
            if (kind != templateKind || place == nullptr || anyNull(tag, serial))
                return BadArgument;
            const Code code = image_.checkTask(task, atom);
            if (code != Done)
                return code;
            return image_.placeTemplate({strategyId,
                                         {state1, state2, state3},
                                         measureByHand,
                                         sourceByHand,
                                         *textIn(tag),
                                         *textIn(serial)},
                                        *place);
        },
        task, atom, strategy, strategyAtom, strategyId, state1, state2, state3, measureByHand, sourceByHand,
        kind, tag, serial);
}

Library::Status Library::MEM3endTask() {
    return call("MEM3endTask", [&] { return image_.endTask(); });
}

} // namespace kelvane::simulators::fluke74x
