#include "records/certificate_settings.h"

#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using CertificateSettingsStored = RecordedSession;

TEST_F(CertificateSettingsStored, ComeBackAsTheyWereEntered) {
    const CertificateSettings entered{.laboratory = u"Nordhafen"_s,
                                      .address = u"1 Quay\r\n4000 Westport"_s,
                                      .accreditation = u"No. 0815"_s,
                                      .customer = u"Boiler House"_s,
                                      .method = u"KP-1"_s,
                                      .traceability = u"To the SI."_s,
                                      .uncertainty = u"0.02 %"_s,
                                      .authorizedBy = u"E. Fischer"_s,
                                      .rule = DecisionRule::guardBand,
                                      .guardBand = 12.5,
                                      .paper = u"Letter"_s,
                                      .fileName = u"{number}"_s};
    storeCertificateSettings(session, entered);
    EXPECT_EQ(certificateSettings(session), entered);
    EXPECT_EQ(settings.values.value(u"Certificate/GuardBand"_s), u"12.5"_s);
}

TEST_F(CertificateSettingsStored, AreEmptyAtFirstButForTheNameOfTheFiles) {
    CertificateSettings expected;
    expected.fileName = u"{asset} {date}"_s;
    EXPECT_EQ(certificateSettings(session), expected);
    EXPECT_EQ(certificateSettings(session).rule, DecisionRule::none);
}

TEST_F(CertificateSettingsStored, ThatSomebodyHasSpoiltStateNoRule) {
    for (const auto& percent : {u""_s, u"many"_s, u"-1"_s, u"100.5"_s, u"nan"_s, u"1,5"_s}) {
        settings.values[u"Certificate/DecisionRule"_s] = u"GuardBand"_s;
        settings.values[u"Certificate/GuardBand"_s] = percent;
        EXPECT_EQ(certificateSettings(session).rule, DecisionRule::none) << percent.toStdString();
    }
    settings.values[u"Certificate/GuardBand"_s] = u"100"_s;
    EXPECT_EQ(certificateSettings(session).rule, DecisionRule::guardBand);
    settings.values[u"Certificate/DecisionRule"_s] = u"Sometimes"_s;
    settings.values[u"Certificate/Paper"_s] = u"A5"_s;
    EXPECT_EQ(certificateSettings(session).rule, DecisionRule::none);
    EXPECT_EQ(certificateSettings(session).paper, QString());
}

} // namespace kelvane::testing
