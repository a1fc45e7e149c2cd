#include "drivers/fluke74x/buckets.h"
#include "testkit/fixtures.h"
#include "testkit/recorded_link3.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using Module74xInterface::BucketName;

/// A current state of 201 buckets, "B0" to "B200".
class BucketNames : public ::testing::Test {
  protected:
    BucketNames() {
        StoredStep step;
        for (int i = 0; i <= 200; ++i)
            step.buckets << numberBucket(u"B%1"_s.arg(i), 0);
        makeCurrent(step);
    }
    void makeCurrent(const StoredStep& step) {
        StoredAtom run{.kind = 4};
        run.steps << step;
        link.groups = {StoredGroup{.atoms = {run}}};
        Dpclnk3::State state;
        link.MEM3instrCalResultStepInfo(2, 0, 0, 0, state);
        link.STA3restore(state);
        link.calls.clear();
    }
    QString nameOf(qint16 index) {
        auto asked = index;
        const auto name = BucketName(link, asked);
        EXPECT_EQ(asked, index) << "left as it was";
        return name;
    }

    RecordedLink3 link;
};

TEST_F(BucketNames, AreAskedForByTheirIndex) {
    for (const qint16 index : {qint16{0}, qint16{1}, qint16{198}, qint16{199}}) {
        link.calls.clear();
        EXPECT_EQ(nameOf(index), u"B%1"_s.arg(index));
        EXPECT_EQ(link.calls, QStringList{u"STA3getBktName(\"root\", %1)"_s.arg(index)});
    }
}

TEST_F(BucketNames, OutsideOf0To199AreEmptyWithoutACall) {
    for (const qint16 index : {qint16{-1}, qint16{-32768}, qint16{200}, qint16{201}, qint16{32767}}) {
        EXPECT_EQ(nameOf(index), QString()) << index;
        EXPECT_EQ(link.calls, QStringList()) << index;
    }
}

TEST_F(BucketNames, HaveABufferOf33Blanks) {
    QStringList buffers;
    link.writeText = [&](const QString& words, const QString& buffer) {
        buffers << buffer;
        return words + QChar(0);
    };
    nameOf(7);
    nameOf(8);
    EXPECT_EQ(buffers, QStringList(2, QString(33, u' ')));
}

TEST_F(BucketNames, Of33CharactersComeWhole) {
    makeCurrent({{numberBucket(QString(33, u'x'), 0), numberBucket(QString(32, u'y'), 0),
                  numberBucket(QString(34, u'z'), 0)}});
    EXPECT_EQ(nameOf(0), QString(33, u'x'));
    EXPECT_EQ(nameOf(1), QString(32, u'y'));
    EXPECT_EQ(nameOf(2), QString(33, u'z')) << "what the library may write";
}

TEST_F(BucketNames, AreCleaned) {
    makeCurrent({{numberBucket(u"  suev "_s, 0), numberBucket({}, 0), numberBucket(u"   "_s, 0)}});
    EXPECT_EQ(nameOf(0), u"suev"_s);
    EXPECT_EQ(nameOf(1), QString());
    EXPECT_EQ(nameOf(2), QString());
    link.writeText = [](const QString&, const QString&) { return u"tol"_s + QChar(0) + u"behind"_s; };
    EXPECT_EQ(nameOf(0), u"tol"_s);
    link.writeText = [](const QString&, const QString& buffer) { return buffer; };
    EXPECT_EQ(nameOf(0), QString()) << "a library that writes nothing";
}

TEST_F(BucketNames, ComeWhateverTheStatus) {
    for (const qint16 status : {qint16{-1}, qint16{100}, qint16{2000}, qint16{2013}, qint16{32767}}) {
        link.answer(u"STA3getBktName"_s, status, 1);
        EXPECT_EQ(nameOf(3), u"B3"_s) << status;
    }
}

} // namespace kelvane::testing
