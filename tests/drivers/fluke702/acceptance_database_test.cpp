#include "drivers/fluke702/driver.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/database_session.h"
#include "testkit/recorded_link.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace Module702Interface;

class FlukeAcceptanceOnDatabase : public DatabaseSession {
  protected:
    void expectBox(const QString& asset) {
        ui.expectBox(asset + u": "_s + text(TextId::outputNotMeasurable), text(TextId::downloadProcedures),
                     box::information);
    }

    RecordedLink link;
    Fluke702 driver{session, link};
};

TEST_F(FlukeAcceptanceOnDatabase, JudgesTheInstrumentsOfAPlant) {
    const struct {
        QString asset;
        std::optional<TextId> message;
        bool box;
        bool standard;
    } rows[] = {
        {u"PT-101"_s, {}, false, false},                            // psig to mA
        {u"PT-107"_s, {}, false, false},                            // mbar to V
        {u"IP-301"_s, {}, false, false},                            // mA to psi
        {u"VT-601"_s, {}, false, false},                            // mV to V
        {u"AC-604"_s, TextId::cannotSourceAcVoltage, false, false}, // VAC to mA
        {u"RI-803"_s, {}, false, false},                            // Ohms to mA
        {u"AN-805"_s, TextId::cannotSourceUnits, false, false},     // % to mA
        {u"TIT-201"_s, {}, false, false},                           // RTD PT100 385 to mA
        {u"TIT-202"_s, {}, false, false},
        {u"TIT-204"_s, {}, false, false},                              // RTD NI120 672 in F to mA
        {u"TIT-205"_s, {}, false, false},                              // TC K to mA
        {u"TIT-206"_s, {}, false, false},                              // TC J to V
        {u"TIT-207"_s, {}, false, false},                              // TC S to mA
        {u"LI-401"_s, {}, true, false},                                // mA to %, indicated
        {u"LI-402"_s, {}, false, false},                               // mA to psig, indicated
        {u"VI-602"_s, {}, false, false},                               // V to V, indicated
        {u"PG-801"_s, {}, true, false},                                // psi to psi, indicated
        {u"FT-501"_s, {}, false, false},                               // Hz to mA
        {u"FI-502"_s, {}, false, false},                               // KHz to KHz
        {u"VF-503"_s, {}, false, false},                               // V to Hz
        {u"TCS-802"_s, {}, true, true},                                // TC K to TC K
        {u"SG-804"_s, TextId::indicatedInputUnsupported, false, true}, // mA to mA, its input indicated
        {u"HW-701"_s, {}, true, true},                                 // psi to ft/lb
        {u"TQ-702"_s, TextId::cannotSourceUnits, false, false},        // N/m to mV
        {u"TW-101"_s, TextId::cannotSourceUnits, true, true},          // ft/lb to ft/lb
        {u"TW-108"_s, TextId::cannotSourceUnits, true, false},         // ft/lb to ft/lb, indicated
        {u"nobody"_s, TextId::cannotSourceUnits, true, true},
    };
    for (const auto& row : rows) {
        if (row.box)
            expectBox(row.asset);
        EXPECT_EQ(Fluke702_acceptable(driver, row.asset), row.message ? text(*row.message) : QString())
            << row.asset.toStdString();
        EXPECT_TRUE(ui.hasMetAll()) << row.asset.toStdString();
        EXPECT_EQ(Fluke702_requires_standard(driver, row.asset), row.standard) << row.asset.toStdString();
    }
}

TEST_F(FlukeAcceptanceOnDatabase, ALimitThatHasComeBackFromTheDatabaseStillPasses) {
    const struct {
        QString unit, limit, beyond;
        TextId message;
    } rows[] = {
        {u"A"_s, u"0.11"_s, u"0.110001"_s, TextId::cannotMeasureCurrentAbove},
        {u"KHz"_s, u"50"_s, u"50.00001"_s, TextId::cannotMeasureFrequencyAbove},
        {u"MHz"_s, u"0.05"_s, u"0.0500001"_s, TextId::cannotMeasureFrequencyAbove},
        {u"Mohms"_s, u"0.011"_s, u"0.0110001"_s, TextId::cannotMeasureResistanceAbove},
    };
    for (const auto& row : rows) {
        const auto store = [&](const QString& high) {
            execute(u"update mt.hvm_kv_tag_config set output_type = '"_s + row.unit +
                    u"', output_low = 0.001, output_high = "_s + high + u" where mtag = '1401'"_s);
        };
        store(row.limit);
        EXPECT_EQ(Fluke702_acceptable(driver, u"PT-101"_s), QString()) << row.unit.toStdString();
        store(row.beyond);
        EXPECT_EQ(Fluke702_acceptable(driver, u"PT-101"_s), text(row.message)) << row.unit.toStdString();
    }
}

} // namespace kelvane::testing
