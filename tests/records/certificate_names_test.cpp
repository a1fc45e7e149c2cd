#include "records/certificate_names.h"

#include "tests/records/certificate_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const CertificateNaming naming{u"PT-101"_s, u"2026-03-17"_s, u"MT-501/502"_s, u"S 77"_s};

QString nameBy(const QString& rule, const CertificateNaming& values = naming) {
    return CertificateNames(rule).next(values);
}

} // namespace

TEST(CertificateNames, FollowTheRule) {
    EXPECT_EQ(nameBy(u"{asset} {date}"_s), u"PT-101 2026-03-17.pdf"_s);
    EXPECT_EQ(nameBy(u"{serial}_{number}.PDF"_s), u"S 77_MT-501_502.pdf"_s);
    EXPECT_EQ(nameBy(u"same"_s), u"same.pdf"_s);
    EXPECT_EQ(nameBy(u"{Asset} {what} {"_s), u"{Asset} {what} {.pdf"_s);
    EXPECT_EQ(nameBy(u"{asset}"_s, {u"{date}"_s, u"x"_s, {}, {}}), u"{date}.pdf"_s) << "a value is no rule";
}

TEST(CertificateNames, HaveNothingThatAFileCanNotHave) {
    EXPECT_EQ(nameBy(u"{asset}"_s, {u"../a\\b:c*d?e\"f<g>h|i\nj\u202ek"_s, {}, {}, {}}),
              u"_._a_b_c_d_e_f_g_h_i_j_k.pdf"_s);
    EXPECT_EQ(nameBy(u"  {asset}. . "_s), u"PT-101.pdf"_s);
    EXPECT_EQ(nameBy(u"{asset}"_s, {u"Ω Манометр 圧力計"_s, {}, {}, {}}), u"Ω Манометр 圧力計.pdf"_s);
    for (const auto& rule : {u""_s, u" . "_s, u"{serial}"_s})
        EXPECT_EQ(nameBy(rule, {{}, {}, u"MT-1/2"_s, {}}), u"MT-1_2.pdf"_s) << rule.toStdString();
}

TEST(CertificateNames, ThatAreLongAreCutBetweenCharacters) {
    const auto name = nameBy(u"{asset}"_s, {QString(300, u'Ж'), {}, {}, {}});
    EXPECT_EQ(name, QString(100, u'Ж') + u".pdf"_s);
    EXPECT_EQ(nameBy(u"a{asset}"_s, {u"𝄞"_s.repeated(80), {}, {}, {}}),
              u"a"_s + u"𝄞"_s.repeated(49) + u".pdf"_s);
}

TEST(CertificateNames, ThatAreGivenAlreadyGetANumber) {
    CertificateNames names(u"{asset}"_s);
    EXPECT_EQ(names.next(naming), u"PT-101.pdf"_s);
    EXPECT_EQ(names.next(naming), u"PT-101 (2).pdf"_s);
    EXPECT_EQ(names.next({u"pt-101"_s, {}, {}, {}}), u"pt-101 (3).pdf"_s);
    EXPECT_EQ(names.next({u"PT-101 (2)"_s, {}, {}, {}}), u"PT-101 (2) (2).pdf"_s);
    EXPECT_EQ(names.next({u"PT-102"_s, {}, {}, {}}), u"PT-102.pdf"_s);
}

using NamingOfCertificates = CertificateSession;

TEST_F(NamingOfCertificates, TakesAssetDateNumberAndSerial) {
    const auto values = certificateNaming(session, adjusted());
    EXPECT_EQ(CertificateNames(u"{asset};{date};{number};{serial}"_s).next(values),
              u"PT-101;2026-03-17;MT-501_502;S 77.pdf"_s);
}

} // namespace kelvane::testing
