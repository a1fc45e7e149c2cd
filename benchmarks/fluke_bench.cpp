#include "benchmarks/fluke_bench.h"

#include <QCoreApplication>
#include <QDir>

#include <algorithm>
#include <cstdio>
#include <limits>
#include <numeric>

using namespace Qt::StringLiterals;

namespace kelvane::bench {

namespace {

constexpr int few = 50;
constexpr int many = 500;
/// So often the few are downloaded and uploaded before the many are, and again after them: as many
/// instruments in all, and a machine that grows slower or quicker meets both.
constexpr int turnsOfFew = many / few / 2;

constexpr int pointsEach = 21;
const QString strategy = u"BENCH 21 POINT"_s;

/// The database of a plant with 500 pressure transmitters, each with six messages, and a task package for
/// each number of them. Every run starts on a copy of it.
class Plant {
  public:
    Plant();
    QString database() { return site_.database.source(); }
    bool isShared() const { return site_.database.isShared(); }
    QString package(int instruments) const { return packages_[instruments]; }

  private:
    Site site_;
    QHash<int, QString> packages_;
};

Plant::Plant() : site_(QString()) {
    QStringList names;
    for (int number = 1; number <= many; ++number)
        names << u"PTB-%1"_s.arg(number, 3, 10, QChar(u'0'));
    site_.copyInstrument(u"PT-101"_s, names);
    const auto connection = site_.database.connectAsOwner();
    connection->execute(
        u"update mt.hvm_kv_tag_config set tp_name = '%1' where mtag like 'PTB-%'"_s.arg(strategy));
    for (int point = 0; point < pointsEach; ++point)
        connection->execute(
            u"insert into mt.hvm_kv_proc_points (tp_name,test_point_seq,test_point_pct) values "
            "('%1',%2,%3)"_s.arg(strategy)
                .arg(point)
                .arg(100.0 / (pointsEach - 1) * point));
    for (const int instruments : {1, few, many})
        packages_[instruments] = site_.makePackage(names.first(instruments));
    sharedConnection(site_.session).close(); // everything is in the database now
}

/// Each instrument has its record with all results, whoever has fired the statements.
void requireRecords(const BenchDatabase& database, int instruments) {
    const auto plain = database.connectPlainly();
    const auto rows = [&](const QString& query) {
        return plain->run(query, std::numeric_limits<int>::max());
    };
    require(rows(u"select ctag from mt.calibration where c2308 = 'FOUND-LEFT' and c2320 = '%1'"_s.arg(
                strategy)) == instruments &&
                rows(u"select ctag from mt.calresults where mtag like 'PTB-%'"_s) == instruments * pointsEach,
            u"records are missing"_s);
}

/// Plain ODBC that keeps step with a site: on a database of its own it fires what the site has fired, every
/// some statements. Whatever else the machine does meets both.
class InStep {
  public:
    InStep(Site& site, const BenchDatabase& database) : site_(site), replay_(database) {}

    /// The seconds that each of the two needs for a half of the run.
    struct Half {
        double ours = 0;
        double plain = 0;
        qsizetype statements = 0;
    };
    Half run(const std::function<QString()>& half);

  private:
    void catchUp();

    static constexpr qsizetype step = 100;
    Site& site_;
    Replay replay_;
    Half half_;
    /// Of `ours`, what was not the site's own.
    Seconds pause_{};
};

InStep::Half InStep::run(const std::function<QString()>& half) {
    half_ = {};
    pause_ = {};
    site_.log = {};
    site_.log.onStatement = [this] {
        if (site_.log.statements.size() == step)
            catchUp();
    };
    Seconds time{};
    QString failure;
    {
        const Timed timed(time);
        failure = half();
    }
    half_.ours = (time - pause_).count();
    catchUp();
    require(failure.isEmpty(), failure);
    site_.requireNoErrors();
    return half_;
}

void InStep::catchUp() {
    const Timed timed(pause_);
    half_.plain += replay_.run(site_.log);
    half_.statements += site_.log.statements.size();
    site_.log.statements.clear();
    site_.log.rows.clear();
}

struct RunFigures {
    InStep::Half download;
    InStep::Half upload;

    double ours() const { return download.ours + upload.ours; }
    double plain() const { return download.plain + upload.plain; }
};

using OnSite = std::function<std::unique_ptr<FlukeUnderBench>(Session&)>;

RunFigures run(Plant& plant, int instruments, const OnSite& onSite) {
    Site site(plant.database());
    // The journal of the results lies in the working folder: each run gets one of its own.
    QDir::setCurrent(site.folder.path());
    const BenchDatabase twin(plant.database());
    InStep inStep(site, twin);
    const auto fluke = onSite(site.session);
    RunFigures took;
    took.download = inStep.run([&] { return fluke->download(plant.package(instruments)); });
    took.upload = inStep.run([&] { return fluke->upload(); });
    requireRecords(site.database, instruments);
    requireRecords(twin, instruments);
    return took;
}

/// What several measurements have given.
class Figure {
  public:
    void take(double value) { values_ << value; }
    double mean() const {
        return std::accumulate(values_.begin(), values_.end(), 0.0) / static_cast<double>(values_.size());
    }
    double median() {
        std::sort(values_.begin(), values_.end());
        return values_[values_.size() / 2];
    }

  private:
    QList<double> values_;
};

/// What one number of instruments costs, for each of them.
class Costs {
  public:
    explicit Costs(int instruments) : instruments_(instruments) {}

    /// Gives the seconds for each.
    double take(const RunFigures& took) {
        download_.take(1000 * took.download.ours / instruments_);
        upload_.take(1000 * took.upload.ours / instruments_);
        statements_ = took.download.statements + took.upload.statements;
        return took.ours() / instruments_;
    }
    void print(const char* calibrator) {
        std::printf("%s, of %3d each: download %.2f ms, upload %.2f ms, %.1f statements\n", calibrator,
                    instruments_, download_.median(), upload_.median(),
                    static_cast<double>(statements_) / instruments_);
    }

  private:
    int instruments_;
    Figure download_;
    Figure upload_;
    qsizetype statements_ = 0;
};

void run(const char* calibrator, int turns, const OnSite& onSite) {
    Plant plant;
    Costs ofOne(1);
    Costs ofFew(few);
    Costs ofMany(many);
    Figure growth;
    Figure whole;
    Figure download;
    Figure upload;
    for (int turn = 0; turn < turns; ++turn) {
        ofOne.take(run(plant, 1, onSite));
        Figure fewEach;
        const auto goWithFew = [&] {
            for (int i = 0; i < turnsOfFew; ++i)
                fewEach.take(ofFew.take(run(plant, few, onSite)));
        };
        goWithFew();
        const auto took = run(plant, many, onSite);
        goWithFew();
        growth.take(ofMany.take(took) / fewEach.mean());
        whole.take(took.ours() / took.plain());
        download.take(took.download.ours / took.download.plain);
        upload.take(took.upload.ours / took.upload.plain);
    }
    for (auto* costs : {&ofOne, &ofFew, &ofMany})
        costs->print(calibrator);
    std::printf("%s: an instrument at %d / at %d: %.2f (aim 1.1 or less)\n", calibrator, many, few,
                growth.median());
    std::printf("%s: %.2f times plain ODBC firing the same statements (aim %s or less); download %.2f, "
                "upload %.2f\n",
                calibrator, whole.median(), plant.isShared() ? "1.2" : "1.3", download.median(),
                upload.median());
}

} // namespace

int benchFluke(int argc, char** argv, const char* calibrator, const OnSite& onSite) {
    const QCoreApplication application(argc, argv);
    run(calibrator, argc > 1 ? std::max(std::atoi(argv[1]), 1) : 5, onSite);
    return 0;
}

} // namespace kelvane::bench
