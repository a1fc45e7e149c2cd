#include "drivers/fluke_acceptance.h"

#include "data/routine.h"
#include "drivers/download_note.h"
#include "drivers/fluke_combinations.h"
#include "drivers/fluke_quantity.h"
#include "resources/strings.h"
#include "resources/text_id.h"

namespace kelvane {

namespace {

/// `result` holds what has been found when an error comes.
void accept(Session& session, const FlukeAcceptance& acceptance, const QString& asset, QString& result) {
    const auto instrument = ModuleGlobals::GetCalParams(session, asset);
    const auto note = [&](TextId words) { showDownloadNote(session.ui, asset, text(words)); };
    if (instrument.input_indicated && acceptance.refusesIndicatedInput) {
        result = text(TextId::indicatedInputUnsupported);
        return;
    }
    if (!isFlukeUnit(instrument.output_type))
        note(TextId::outputNotMeasurable);
    auto refusal = flukeCannotMeasure(acceptance.limits, instrument);
    if (!refusal)
        refusal = flukeCannotSource(acceptance.limits, instrument);
    if (refusal) {
        result = text(*refusal);
        return;
    }
    if (!isFlukeUnit(instrument.input_type)) {
        if (acceptance.refusesUnknownInput)
            result = text(acceptance.unknownInput);
        else
            note(acceptance.unknownInput);
    }
    for (const auto& combination : flukeCombinations) {
        if (combination.matches(instrument))
            note(TextId::outputNotMeasurable);
    }
}

} // namespace

QString flukeAcceptable(Session& session, const FlukeAcceptance& acceptance, const QString& asset) {
    QString result;
    Routine routine(session, acceptance.routine.toString());
    routine.run([&] { accept(session, acceptance, asset, result); });
    return result;
}

} // namespace kelvane
