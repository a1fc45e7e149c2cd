#pragma once

#include "drivers/fluke74x/driver.h"
#include "testkit/recorded_link3.h"
#include "testkit/upload_lab.h"

namespace kelvane::testing {

/// An atom that the upload passes over; a group holds one for each step of its runs.
inline constexpr qint16 otherKind = 99;
inline constexpr qint16 runKind = 4;
inline constexpr qint16 tagKind = 11;
inline constexpr qint16 referenceKind = 18;

/// What was sourced to and measured from an instrument at a step, and the calibrator's error in percent.
inline StoredStep at(float source, float measure, float error = 0) {
    return {{numberBucket(QStringLiteral("sprimary"), source),
             numberBucket(QStringLiteral("mprimary"), measure), numberBucket(QStringLiteral("tol"), 3.125F),
             numberBucket(QStringLiteral("error"), error)}};
}

/// A group of one instrument, which begins with a reference to its results.
inline StoredGroup& addGroup(RecordedLink3& link) {
    link.groups << StoredGroup{.atoms = {StoredAtom{.kind = referenceKind}}};
    return link.groups.last();
}

/// A run of an instrument into the last group: its steps, its results and its tag. The atom of its results is
/// given.
inline StoredAtom& addRun(RecordedLink3& link, const QList<StoredStep>& steps, const QString& tag) {
    auto& atoms = link.groups.last().atoms;
    for (qsizetype i = 0; i < steps.size(); ++i)
        atoms << StoredAtom{.kind = otherKind};
    atoms << StoredAtom{.kind = runKind, .steps = steps}
          << StoredAtom{.kind = tagKind,
                        .tag = tag,
                        .serial = QStringLiteral("V88101"),
                        .technician = QStringLiteral("Joe Doe")};
    return atoms[atoms.size() - 2];
}

/// The demonstration laboratory with its Fluke 743 (F743-01, key 1103, serial number 7112044) on the recorded
/// link.
class Fluke74xUpload : public UploadLab {
  protected:
    QString upload() {
        const auto result = Module74xInterface::Fluke74x_upload(driver);
        EXPECT_TRUE(ui.hasMetAll());
        EXPECT_FALSE(ui.busy);
        EXPECT_FALSE(ui.progressShown);
        return result;
    }

    /// As the functions of these names; a run is stored a minute after the one before.
    StoredGroup& addGroup() { return testing::addGroup(link); }
    StoredAtom& addRun(const QList<StoredStep>& steps, const QString& tag = QStringLiteral("PT-101")) {
        auto& run = testing::addRun(link, steps, tag);
        run.time.minute = static_cast<qint16>(runs_++ % 60);
        return run;
    }
    /// A group with one run, that passes or fails at its last point.
    StoredAtom& addGoodRun(const QString& tag = QStringLiteral("PT-101")) {
        addGroup();
        return addRun(good(), tag);
    }
    StoredAtom& addBadRun(const QString& tag = QStringLiteral("PT-101")) {
        addGroup();
        return addRun(bad(), tag);
    }
    static QList<StoredStep> good() { return {at(0, 0), at(50, 50), at(100, 100)}; }
    static QList<StoredStep> bad() { return {at(0, 0), at(50, 50), at(100, 90, -10)}; }
    /// The tag of the last run.
    StoredAtom& lastTag() { return link.groups.last().atoms.last(); }

    RecordedLink3 link;
    Fluke74x driver{session, link};

    static inline const QString routine = QStringLiteral("Module74xInterface,Fluke74x_upload");

  private:
    int runs_ = 0;
};

} // namespace kelvane::testing
